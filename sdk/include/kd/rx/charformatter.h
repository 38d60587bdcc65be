// Single characters to bytes and back, for text files in a chosen encoding.
#pragma once

/// Conversions of one character. ANSI means code page 936; a character that it lacks becomes the escape
/// `\U+XXXX` in capitals where escapes are asked for, and a question mark otherwise or beyond 16 bits.
class KfCharFormatter {
public:
    /// True for "\", "U" or "u", "+", then four hexadecimal digits of either case; what follows is not read.
    static bool isCIFString(const char* text);
    /// Turns the four digits of such a text into its character. False, and `character` as it was, for
    /// another text.
    static bool parseCIF(const char* text, wchar_t& character);

    /// Writes `character` to `out` and returns the number of bytes made, 0 when `size` is too small.
    /// `lineEnds` turns a line feed into a carriage return with line feed.
    static int wcharToAnsiOrUtf8(wchar_t character, char* out, unsigned size, bool ansi, bool escapes, bool lineEnds) {
        // Nearly every character of a file is one that stands for itself; a call for each is what writing costs.
        if (character > 0 && character < 0x80 && character != L'\n' && size > 0 && out != nullptr) {
            *out = static_cast<char>(character);
            return 1;
        }
        return encodeAnsiOrUtf8(character, out, size, ansi, escapes, lineEnds);
    }
    static int wcharToUtf16(wchar_t character, char* out, unsigned size, bool machineOrder, bool lineEnds);
    /// Decodes one ANSI character of one byte, or of two where the first is a lead byte.
    static wchar_t ansiToWchar(const char* bytes, unsigned length);
    /// True when the byte begins a character of two bytes in the ANSI encoding.
    static bool isAnsiLeadByte(unsigned char byte);

private:
    static int encodeAnsiOrUtf8(wchar_t character, char* out, unsigned size, bool ansi, bool escapes, bool lineEnds);
};
