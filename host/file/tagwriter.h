// Writing of tags: numbers in their shortest form that reads back as the same bits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

namespace kdhost::file {

class TagWriter {
public:
    /// The bytes stand as they are to be read.
    void raw(int code, std::string_view bytes);
    /// Control characters and the caret are written by a caret and a letter.
    void text(int code, std::wstring_view text);
    /// A text of any length in pieces that readers take: all but the last under `pieceCode`.
    void longText(int pieceCode, int lastCode, std::wstring_view text);
    void real(int code, double number);
    void integer(int code, std::int64_t number);
    void handle(int code, std::uint64_t handle);
    /// Radians, written in degrees of as many digits as bring the same radians back.
    void angle(int code, double radians);
    void point(int code, double x, double y, double z);
    void point(int code, const KdGePoint3d& point) { this->point(code, point.x, point.y, point.z); }
    void point(int code, const KdGeVector3d& vector) { point(code, vector.x, vector.y, vector.z); }
    /// Lines that are tags already.
    void lines(std::string_view bytes) { m_bytes += bytes; }

    std::string& bytes() { return m_bytes; }

private:
    void code(int code);
    template <class... Format>
    void number(Format... format);

    std::string m_bytes;
};

/// Degrees as files have them, in radians.
double radiansOf(long double degrees);

/// As TagWriter::text() writes it.
void appendText(std::string& bytes, std::wstring_view text);
std::string handleText(std::uint64_t handle);

/// The longest piece of a text, in characters.
inline constexpr std::size_t kLongestPiece = 250;

}  // namespace kdhost::file
