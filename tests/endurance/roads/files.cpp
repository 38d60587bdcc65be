// Drawings: new ones, saved, opened, switched and closed; pictures of them.

#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool mayHaveMoreDocuments(const Stand& stand) {
    return stand.documents() < 3;
}

bool mayOpen(const Stand& stand) {
    return mayHaveMoreDocuments(stand) && !stand.files(L"dxf").empty();
}

bool hasSeveralDocuments(const Stand& stand) {
    return stand.documents() > 1;
}

Lines switchDocument(Random& random, const Stand& stand) {
    return {command(L"@document " + random.number(1, stand.documents()))};
}

Lines closeDocument(Random& random, const Stand& stand) {
    const bool isCurrent = random.chance(50);
    return {command(L"CLOSE"), text(isCurrent ? L"" : random.number(1, stand.documents()))};
}

constexpr const wchar_t* pictures[] = {L"EXPORTPNG", L"EXPORTSVG", L"PRINTPDF"};

Lines writePicture(Random& random, const Stand&) {
    return {command(random.oneOf(pictures))};
}

Lines newDrawing(Random&, const Stand&) {
    return {command(L"NEW")};
}
Lines open(Random&, const Stand&) {
    return {command(L"OPEN")};
}
Lines save(Random&, const Stand&) {
    return {command(L"SAVE")};
}
Lines saveAs(Random&, const Stand&) {
    return {command(L"SAVEAS")};
}

constexpr Action actions[] = {
    {"NEW", 2, mayHaveMoreDocuments, newDrawing},
    {"OPEN", 4, mayOpen, open},
    {"SAVE", 3, nullptr, save},
    {"SAVEAS", 4, nullptr, saveAs},
    {"DOCUMENT", 8, hasSeveralDocuments, switchDocument},
    {"CLOSE", 3, hasSeveralDocuments, closeDocument},
    {"picture", 1, hasTable, writePicture},
};

}  // namespace

const Road filesRoad = {"files", actions};

}  // namespace endurance
