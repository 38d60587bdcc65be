// Cells and texts through the clipboard, within a table, to others and to other drawings.

#include "tests/endurance/road.h"

namespace endurance {
namespace {

constexpr const wchar_t* texts[] = {L"plain", L"two\\nlines", L"tab\tseparated\\nand\tmore",
                                    L"12.5",  L"=A1+1",       L"{\\H2x;formatted}",
                                    L"部件",  L"%%c20",       L"a,b,\"c\""};

Lines copy(Random&, const Stand&) {
    return {command(L"@key CTRL+C")};
}

Lines cut(Random&, const Stand&) {
    return {command(L"@key CTRL+X")};
}

Lines paste(Random&, const Stand&) {
    return {command(L"@key CTRL+V")};
}

Lines pasteElsewhere(Random& random, const Stand& stand) {
    return {selectSomeCells(random, stand), command(L"@key CTRL+V")};
}

Lines pasteText(Random& random, const Stand& stand) {
    return {command(std::wstring(L"@clipboard ") + random.oneOf(texts)), selectSomeCells(random, stand),
            command(L"@key CTRL+V")};
}

constexpr Action actions[] = {
    {"copy", 30, hasSelectedCells, copy},   {"cut", 12, hasSelectedCells, cut},
    {"paste", 25, hasSelectedCells, paste}, {"pasteElsewhere", 25, hasTable, pasteElsewhere},
    {"pasteText", 8, hasTable, pasteText},
};

}  // namespace

const Road clipboardRoad = {"clipboard", actions};

}  // namespace endurance
