// The scanners of lengths: decimal numbers, and feet and inches with fractions. Each accepts exactly the forms
// that its rules name and stops at the first character that doesn't fit. No sign: the caller takes it off.
#pragma once

/// Gathers the digits at the cursor into `value` and their number into `count`, both 0 when there are none. The
/// cursor ends on the first character that is no digit.
void GatherValue(wchar_t** cursor, double* value, int* count);

/// A decimal number with an optional fraction and exponent, such as "12.5" or "1e3". Non-zero on success; 0
/// with `out` 0 for other texts.
int ParseAsDecimal(wchar_t* text, double* out);

/// Feet, inches and a fraction, such as "5'-3 1/2"" or "3.5", in inches. Non-zero on success; 0 with `out` 0 for
/// other texts.
int ParseAsArchitectural(wchar_t* text, double* out);
