// LIST.

#include <string>

#include "host/app/commands/chosenobjects.h"
#include "host/app/commands/drawcommands.h"
#include "host/db/access.h"
#include "host/db/symbols.h"
#include "host/ed/commandline.h"
#include "host/ed/words.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {

constexpr Words kHead{L"%1, handle %2, layer %3", L"%1，句柄 %2，图层 %3"};
constexpr Words kBox{L", from %1,%2 to %3,%4", L"，从 %1,%2 到 %3,%4"};
constexpr Words kLength{L", length %1", L"，长度 %1"};
constexpr Words kRowsAndColumns{L", %1 rows, %2 columns", L"，%1 行，%2 列"};
constexpr Words kBlock{L", block %1 at %2,%3, scale %4", L"，块 %1 位于 %2,%3，比例 %4"};
constexpr Words kText{L", text \"%1\"", L"，文字“%1”"};

std::wstring ofLine(const KdDbEntity& entity) {
    const auto& line = static_cast<const KdDbLine&>(entity);
    return kLength.with(line.startPoint().distanceTo(line.endPoint()));
}

std::wstring ofText(const KdDbEntity& entity) {
    return kText.with(std::wstring(static_cast<const KdDbMText&>(entity).contents()));
}

std::wstring ofTable(const KdDbEntity& entity) {
    const auto& table = static_cast<const KdDbTable&>(entity);
    return kRowsAndColumns.with(table.numRows(), table.numColumns());
}

std::wstring ofInsertion(const KdDbEntity& entity) {
    const auto& insertion = static_cast<const KdDbBlockReference&>(entity);
    const KdGePoint3d place = insertion.position();
    return kBlock.with(recordName(insertion.blockTableRecord()), place.x, place.y, insertion.scaleFactor());
}

/// What is told of a class; the first row that fits counts.
struct ClassRow {
    KdRxClass* (*cls)();
    std::wstring (*tell)(const KdDbEntity& entity);
};
constexpr ClassRow kClasses[] = {
    {KdDbLine::desc, ofLine},
    {KdDbMText::desc, ofText},
    {KdDbTable::desc, ofTable},
    {KdDbBlockReference::desc, ofInsertion},
};

std::wstring described(const KdDbEntity& entity) {
    wchar_t handle[20];
    std::swprintf(handle, std::size(handle), L"%llX", static_cast<unsigned long long>(entity.handle()));
    std::wstring text =
        kHead.with(std::wstring(entity.isA()->name()), std::wstring(handle), recordName(entity.layerId()));
    if (const KdDbExtents box = entity.getGeomExtents(); box.isValid()) {
        text += kBox.with(box.minPoint().x, box.minPoint().y, box.maxPoint().x, box.maxPoint().y);
    }
    for (const ClassRow& row : kClasses) {
        if (entity.isKindOf(row.cls())) return text + row.tell(entity);
    }
    return text;
}

}  // namespace

// Read as they stand: a module may have one open.
void listObjects() {
    for (KdDbObjectId id : chosenObjects()) {
        if (const auto* entity = peek<KdDbEntity>(id)) commandLine().write(L"\n" + described(*entity));
    }
}

}  // namespace kdhost
