// Value text: numbers and angles as dialog fields hold them, and the small values that dialogs remember.
#pragma once

#include "mfc/stdstr.h"
#include "module/valuetext/numberparse.h"

class KdDbDatabase;

/// Static operations without state. Lengths are in drawing units, angles in radians. "Non-zero on success" means
/// 0 on failure, with the output as it was unless the operation says otherwise.
class CVqTableUtils {
public:
    // Numbers.

    /// Reads a length with an optional sign. The form is told by the look of the text, not by the drawing's units:
    /// an exponent makes it decimal, else a mark of feet, inches or fractions makes it architectural. Non-zero on
    /// success; a failure sets `value` to 0, or to -0 behind a minus sign, and only an empty text leaves it alone.
    static int StringToDoubleConvert(KdDbDatabase* database, const CStdStr<wchar_t>& text, double& value);
    /// Writes a length in the drawing's length units. 1 on success, 0 with an empty text where the host refuses,
    /// -5001 for a null database.
    static int DoubleToStringConvert(KdDbDatabase* database, double value, CStdStr<wchar_t>& text);
    /// Writes a number with that many decimals. `dimzin` from 4 to 7 takes away the leading zero, 8 to 11 the
    /// trailing ones, 12 and above both. Always 1; throws std::out_of_range where a leading zero would go from
    /// behind a minus sign.
    static int ConvertStringWithDimzin(double value, int precision, int dimzin, CStdStr<wchar_t>& text);

    /// Each takes white space off both ends first. Digits, with a point and more digits or without; no sign, no
    /// exponent. Leading zeros go.
    static bool IsLegalNumber(CStdStr<wchar_t>& text);
    /// A 32-bit integer other than 0, with an optional sign; rewritten in its plainest form.
    static bool IsLegalInteger(CStdStr<wchar_t>& text);
    /// Any text that isn't empty.
    static bool IsLegalScientificNotation(CStdStr<wchar_t>& text);
    /// False for infinities, NaNs and denormal numbers.
    static bool IsRealValid(double value);

    // Angles.

    /// Reads an angle in any notation; the drawing's base and direction are applied to it.
    static int StringToAngleConvert(KdDbDatabase* database, const CStdStr<wchar_t>& text, double& radians);
    /// Writes an angle in the drawing's units. Flags: 1 leaves base and direction alone, 2 writes the degree sign,
    /// 4 and 8 keep a whole turn and what lies beyond it. 1 on success; an unknown unit leaves the text.
    static int AngleToStringConvert(KdDbDatabase* database, int flags, double radians, CStdStr<wchar_t>& text);
    /// Reads degrees, minutes and seconds in this order, each at most once, or a number of degrees alone.
    static int DecimaldegreesToRadian(const CStdStr<wchar_t>& text, double& radians);
    /// Writes degrees, minutes from precision 1 on, seconds from 3 on, decimals of seconds from 5 on.
    static int RadianToDecimaldegrees(double radians, int precision, CStdStr<wchar_t>& text);
    /// Reads decimal degrees; the digit before a mark of degrees goes with the mark.
    static int ProcessDecimalToAngle(const CStdStr<wchar_t>& text, wchar_t* degreeSign, double& radians);
    /// Reads a text that begins with N or S. `angle` gets the working value, also on failure.
    static int ProcessSurveyNorthAndSouthToAngle(int flags, const CStdStr<wchar_t>& text, double& angle, double& out,
                                                 double base, int direction, int north);
    /// Applies base and direction unless flag 1 is set, and normalises. False above 1e10.
    static bool ProcessAngle(int flags, double base, int direction, double angle, double& out);
    /// With flag 2, every d becomes the degree sign. Always 1.
    static int ReplaceDegreeMark(int flags, CStdStr<wchar_t>& text);
    /// Brings both angles into 0 to 2 pi, `b` behind `a`; `b` may be null. A number that isn't valid becomes 0 with
    /// false, one beyond a million 0 with true; else true when both are equal or `b` is null.
    static bool NormalAngle(double* a, double* b);
    /// Equal up to whole turns, within 1e-10.
    static bool AngleEqual(double a, double b);
    /// The text of one degree sign.
    static wchar_t* DegreeSign();

    // Settings that dialogs remember.

    /// The registry path of the host's current profile, with the tail of this module's key when asked for.
    static CStdStr<wchar_t> GetRegistryProfilesRoot(int withTail);
    /// 1 if a value of that size was read.
    static int RegeditQueryValue(const CStdStr<wchar_t>& name, int& value);
    static int RegeditQueryValue(const CStdStr<wchar_t>& name, unsigned int& value);
    static int RegeditQueryValue(const CStdStr<wchar_t>& name, double& value);
    /// 1 if the key could be opened, 0 otherwise.
    static int RegeditSetValue(const CStdStr<wchar_t>& name, int value);
    static int RegeditSetValue(const CStdStr<wchar_t>& name, unsigned int value);
    static int RegeditSetValue(const CStdStr<wchar_t>& name, double value);
    /// Makes the key exist below the profile's root. Always 1.
    static int IsRegeditOpenKey();
};
