// Names of styles.

#include "module/core/tablecommon.h"

bool CVqTableCommon::CheckStyleNameValid(const CStdStr<wchar_t>& name) {
    return name.find_first_of(L"<>/\\\":;?*|,=`'") == std::wstring::npos;
}
