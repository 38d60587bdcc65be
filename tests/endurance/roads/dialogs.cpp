// The commands that are dialogs, and the reading of files.

#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool mayHaveMoreTables(const Stand& stand) {
    return stand.tables().size() < 4;
}

Lines insertTable(Random&, const Stand&) {
    return {command(L"TABLE")};
}

Lines editStyles(Random&, const Stand&) {
    return {command(L"TABLESTYLE")};
}

constexpr const wchar_t* csvFiles[] = {L"hour_of_work.csv", L"named.csv",    L"numbers.csv",
                                       L"people.csv",       L"schedule.csv", L"upper.CSV"};

Lines importTable(Random& random, const Stand&) {
    return {command(L"TABLEIMPORT"), text(random.oneOf(csvFiles)), point(L"@pick " + somePlace(random))};
}

constexpr Action actions[] = {
    {"TABLE", 20, mayHaveMoreTables, insertTable},
    {"TABLESTYLE", 20, nullptr, editStyles},
    {"TABLEIMPORT", 25, mayHaveMoreTables, importTable},
};

}  // namespace

const Road dialogsRoad = {"dialogs", actions};

}  // namespace endurance
