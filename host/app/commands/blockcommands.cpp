// BLOCK and INSERT.

#include "host/app/commands/blockcommands.h"

#include <algorithm>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "host/app/commands/chosenobjects.h"
#include "host/app/commands/valueprompts.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opening.h"
#include "host/db/symbols.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/idmapping.h"
#include "kd/db/symboltable.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr Words kName{L"\nName of the block: ", L"\n块名: "};
constexpr Words kNoName{L"\"%1\" can't be the name of a block.", L"“%1”不能用作块名。"};
constexpr Words kTaken{L"There is a block \"%1\" already.", L"块“%1”已存在。"};
constexpr Words kNoBlock{L"There is no block \"%1\".", L"没有块“%1”。"};
constexpr Words kBasePoint{L"\nBase point: ", L"\n基点: "};
constexpr Words kInsertionPoint{L"\nInsertion point: ", L"\n插入点: "};
constexpr Words kScale{L"\nScale <1>: ", L"\n比例 <1>: "};
constexpr Words kNoScale{L"The scale can't be 0.", L"比例不能为 0。"};
constexpr Words kAngle{L"\nAngle of rotation in degrees <0>: ", L"\n旋转角度 (度) <0>: "};
constexpr Words kNotWritten{L"The drawing can't be written now.", L"现在无法修改图形。"};
constexpr Words kMade{L"\nBlock \"%1\": %2 objects.", L"\n块“%1”: %2 个对象。"};
constexpr Words kNothing{L"Nothing was chosen that a block can be made of.", L"没有可用于创建块的对象。"};
constexpr Words kKept{L"\n%1 on locked layers or in use left as they are.",
                      L"\n锁定图层上或正在使用的 %1 个对象保持不变。"};

/// Empty when the user gives none.
std::wstring askForName() {
    return askForText(kName, true).value_or(L"");
}

KdDbObjectId findBlock(const KdDbDatabase& database, const std::wstring& name) {
    return recordNamed(database.blockTableId(), name);
}

/// Null when the drawing can't be written.
Opened<KdDbBlockTableRecord> addBlock(const KdDbDatabase& database, const std::wstring& name, const KdGePoint3d& base) {
    auto record = std::make_unique<KdDbBlockTableRecord>();
    record->setName(name.c_str());
    record->setOrigin(base);
    return addRecord(database.blockTableId(), std::move(record));
}

bool mayGo(KdDbObjectId id) {
    const KdDbObject* object = peekObject(id);
    return object != nullptr && !isOnLockedLayer(*object) && openConflict(*object, KdDb::kForWrite) == Kdad::eOk;
}

/// A clone of the entity, in the user's coordinates.
bool cloneInto(KdDbBlockTableRecord& block, KdDbObjectId id, KdDbIdMapping& mapping, const KdGeMatrix3d& toUser) {
    const auto* entity = peek<KdDbEntity>(id);
    KdDbObject* clone = nullptr;
    if (entity == nullptr || entity->deepClone(&block, clone, mapping) != Kdad::eOk || clone == nullptr) return false;
    static_cast<KdDbEntity*>(clone)->transformBy(toUser);
    clone->close();
    return true;
}

void moveIntoBlock(const Editor& editor, const std::wstring& name, const KdGePoint3d& base,
                   std::vector<KdDbObjectId> ids) {
    const Opened<KdDbBlockTableRecord> block = addBlock(editor.database(), name, base);
    if (!block) return commandLine().fail(kNotWritten.text());
    KdDbIdMapping mapping(&editor.database());
    const KdGeMatrix3d toUser = editor.ucs().inverse();
    std::erase_if(ids, [&](KdDbObjectId id) { return !cloneInto(*block, id, mapping, toUser); });
    const int kept = eraseWhatMayGo(ids);
    commandLine().write(kMade.with(name, ids.size()));
    if (kept > 0) commandLine().write(kKept.with(kept));
}

/// The null id, with the user told, when there is no such block that may be inserted.
KdDbObjectId askForBlock(const KdDbDatabase& database) {
    const std::wstring name = askForName();
    if (name.empty()) return {};
    const KdDbObjectId id = findBlock(database, name);
    const auto* block = peek<KdDbBlockTableRecord>(id);
    if (block != nullptr && !block->isLayout()) return id;
    commandLine().fail(kNoBlock.with(name));
    return {};
}

}  // namespace

void makeBlock() {
    Editor& editor = *currentEditor();
    const std::wstring name = askForName();
    if (name.empty()) return;
    // An asterisk begins the names that the host gives itself.
    if (name.front() == L'*') return commandLine().fail(kNoName.with(name));
    if (!findBlock(editor.database(), name).isNull()) return commandLine().fail(kTaken.with(name));
    KdGePoint3d base;
    if (kdedGetPoint(nullptr, kBasePoint.text(), base) != RTNORM) return;
    std::vector<KdDbObjectId> ids = chosenObjects();
    if (ids.empty()) return;
    const std::size_t kept = std::erase_if(ids, [](KdDbObjectId id) { return !mayGo(id); });
    if (kept > 0) commandLine().write(kKept.with(kept));
    if (ids.empty()) return commandLine().fail(kNothing.text());
    moveIntoBlock(editor, name, base, std::move(ids));
    editor.pickFirst().clear();
}

void insertBlock() {
    Editor& editor = *currentEditor();
    const KdDbObjectId block = askForBlock(editor.database());
    if (block.isNull()) return;
    KdGePoint3d place;
    if (kdedGetPoint(nullptr, kInsertionPoint.text(), place) != RTNORM) return;
    const std::optional<double> scale = askForNumber(kScale, 1.0);
    if (!scale) return;
    if (*scale == 0.0) return commandLine().fail(kNoScale.text());
    const std::optional<double> degrees = askForNumber(kAngle, 0.0);
    if (!degrees) return;

    auto insertion = std::make_unique<KdDbBlockReference>(place, block);
    insertion->setDatabaseDefaults(&editor.database());
    insertion->setScaleFactor(*scale);
    insertion->setRotation(*degrees * std::numbers::pi / 180.0);
    insertion->transformBy(editor.ucs());
    if (!appendToCurrentSpace(editor.database(), std::move(insertion))) commandLine().fail(kNotWritten.text());
}

}  // namespace kdhost
