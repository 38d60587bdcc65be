// The names that the host keeps for itself, in their stored form and as shown in the host's language.

#include <algorithm>
#include <array>

#include "host/db/names.h"
#include "host/db/tablestylestate.h"
#include "host/win32/modules.h"
#include "kd/db/tablestyle.h"

namespace {

struct ReservedName {
    KdDb::reservedStringEnumType kind;
    const wchar_t* stored;
    const wchar_t* english;
    const wchar_t* chinese;

    const wchar_t* local() const { return kdhost::language() == kdhost::Language::Chinese ? chinese : english; }
};

// "Standard" is shown as it is stored in every language.
constexpr std::array<ReservedName, 4> kReservedNames{{
    {KdDb::kReservedStandard, L"Standard", L"Standard", L"Standard"},
    {KdDb::kReservedCellStyleTitle, kdhost::kTitleStyle, L"Title", L"\x6807\x9898"},
    {KdDb::kReservedCellStyleHeader, kdhost::kHeaderStyle, L"Header", L"\x8868\x5934"},
    {KdDb::kReservedCellStyleData, kdhost::kDataStyle, L"Data", L"\x6570\x636e"},
}};

template <class Test>
const ReservedName* findName(Test test) {
    auto found = std::find_if(kReservedNames.begin(), kReservedNames.end(), test);
    return found == kReservedNames.end() ? nullptr : &*found;
}

}  // namespace

KdString kddbXlateReservedString(const wchar_t* name, bool toLocal) {
    KdString given(name);
    const ReservedName* reserved = findName(
        [&](const ReservedName& each) { return kdhost::sameName(given.str(), toLocal ? each.stored : each.local()); });
    if (reserved == nullptr) return given;
    return toLocal ? reserved->local() : reserved->stored;
}

bool kddbIsReservedString(const wchar_t* name, KdDb::reservedStringEnumType kind) {
    const KdString given(name);
    return findName([&](const ReservedName& each) {
               return each.kind == kind && kdhost::sameName(given.str(), each.stored);
           }) != nullptr;
}

KdString kddbGetReservedString(KdDb::reservedStringEnumType kind, bool local) {
    const ReservedName* reserved = findName([&](const ReservedName& each) { return each.kind == kind; });
    if (reserved == nullptr) return {};
    return local ? reserved->local() : reserved->stored;
}
