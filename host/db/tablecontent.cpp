// What the cells of a table hold: text, fields, blocks, and their locks.

#include "host/db/fieldevaluation.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"

using namespace kdhost;

namespace {

/// What `read(content)` gives for a cell that shows its content, else `nothing`.
template <class T, class Read>
T readContent(const KdDbTable& table, int row, int column, T nothing, Read read) {
    return readShownContent(tableState(table), row, column,
                            [=](const CellContent* cell) -> T { return cell == nullptr ? nothing : read(*cell); });
}

void setBlockPart(KdDbTable& table, int row, int column, double CellObjects::*part, double value) {
    changeCells(table, row, column, contentEditable,
                [&](TableState& state, int r, int c) { state.rows.writeContent(r, c).objects.write().*part = value; });
}

}  // namespace

KdDb::CellType KdDbTable::cellType(int row, int column) const {
    const TableState& state = tableState(*this);
    if (!toFirstCell(state, row, column)) return KdDb::kTextCell;
    return state.content(row, column).type();
}

void KdDbTable::setCellType(int row, int column, KdDb::CellType type) {
    if (type < KdDb::kTextCell || type > KdDb::kMultipleContentCell) return;
    // Content of a kind that the new type can't show goes.
    changeCells(*this, row, column, contentEditable, [&](TableState& state, int r, int c) {
        CellContent& cell = state.rows.writeContent(r, c);
        CellObjects kept = cell.ownObjects();
        if (type == KdDb::kTextCell) {
            const KdDbObjectId field = kept.field;
            kept = {};
            kept.field = field;
        }
        if (type == KdDb::kBlockCell) {
            cell.text.clear();
            kept.field.setNull();
        }
        kept.type = static_cast<std::uint8_t>(type);
        cell.setObjects(kept);
    });
}

const wchar_t* KdDbTable::textString(int row, int column) const {
    return readContent(*this, row, column, L"", [this](const CellContent& cell) { return shownText(*this, cell); });
}

KdString KdDbTable::textString(int row, int column, int content) const {
    if (content != 0) return {};
    return readContent(*this, row, column, KdString(), [this](const CellContent& cell) {
        if (cell.hasField()) return KdString(shownField(*this, cell));
        return cell.text.empty() ? KdString() : KdString(std::wstring(cell.text.view()));
    });
}

void KdDbTable::setTextString(int row, int column, const wchar_t* text) {
    const auto gate = [&](KdDbTable& table) { return editSizeOfCell(table, row, column); };
    const auto write = [&](TableState& state, int r, int c) {
        CellContent& cell = state.rows.writeContent(r, c);
        cell.objects = {};
        cell.text = text == nullptr ? L"" : text;
        noteGrowth(state, r, c);
    };
    changeCells(*this, row, column, contentEditable, write, gate);
}

KdDbObjectId KdDbTable::fieldId(int row, int column) const {
    return readContent(*this, row, column, KdDbObjectId(), [](const CellContent& cell) { return cell.field(); });
}

void KdDbTable::setFieldId(int row, int column, const KdDbObjectId& field) {
    changeCells(*this, row, column, contentEditable, [&](TableState& state, int r, int c) {
        CellContent& cell = state.rows.writeContent(r, c);
        cell.clear();
        if (field.isNull()) return;
        cell.objects.write().field = field;
        noteGrowth(state, r, c);
    });
    tellFieldEvaluation([&](FieldEvaluation& each) { each.fieldPlaced(*this); });
}

KdDbObjectId KdDbTable::blockTableRecordId(int row, int column) const {
    return readContent(*this, row, column, KdDbObjectId(), [](const CellContent& cell) { return cell.block(); });
}

KdDbObjectId KdDbTable::blockTableRecordId(int row, int column, int content) const {
    return content == 0 ? blockTableRecordId(row, column) : KdDbObjectId::kNull;
}

void KdDbTable::setBlockTableRecordId(int row, int column, int content, const KdDbObjectId& block, bool autoFit) {
    if (content != 0) return;
    changeCells(*this, row, column, contentEditable, [&](TableState& state, int r, int c) {
        CellContent& cell = state.rows.writeContent(r, c);
        CellObjects objects = cell.ownObjects();
        objects.field.setNull();
        if (block != objects.block) objects.attributes.clear();
        objects.block = block;
        objects.autoFit = autoFit;
        cell.text.clear();
        objects.type = KdDb::kBlockCell;
        cell.setObjects(objects);
    });
}

bool KdDbTable::isAutoScale(int row, int column, int content) const {
    return content == 0 && readContent(*this, row, column, false,
                                       [](const CellContent& cell) { return cell.objects && cell.objects->autoFit; });
}

double KdDbTable::blockScale(int row, int column) const {
    return readContent(*this, row, column, 1.0,
                       [](const CellContent& cell) { return cell.objects ? cell.objects->blockScale : 1.0; });
}

void KdDbTable::setBlockScale(int row, int column, double scale) {
    if (scale > 0.0) setBlockPart(*this, row, column, &CellObjects::blockScale, scale);
}

double KdDbTable::blockRotation(int row, int column) const {
    return readContent(*this, row, column, 0.0,
                       [](const CellContent& cell) { return cell.objects ? cell.objects->blockRotation : 0.0; });
}

void KdDbTable::setBlockRotation(int row, int column, double angle) {
    setBlockPart(*this, row, column, &CellObjects::blockRotation, angle);
}

int KdDbTable::contentType(int row, int column) const {
    return readContent(*this, row, column, KdDb::kCellContentTypeValue, [](const CellContent& cell) {
        if (cell.hasField()) return KdDb::kCellContentTypeField;
        const bool isBlock = cell.type() == KdDb::kBlockCell || !cell.block().isNull();
        return isBlock ? KdDb::kCellContentTypeBlock : KdDb::kCellContentTypeValue;
    });
}

int KdDbTable::contentType(int row, int column, int content) const {
    return content == 0 ? contentType(row, column) : KdDb::kCellContentTypeUnknown;
}

bool KdDbTable::isEmpty(int row, int column) const {
    return readContent(*this, row, column, true, [](const CellContent& cell) { return cell.empty(); });
}

void KdDbTable::deleteContent(const KdCellRange& range) {
    KdCellRange cells;
    if (!cellsOf(tableState(*this), range, cells)) return;
    for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
        for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
            changeCells(*this, row, column, contentEditable,
                        [](TableState& state, int r, int c) { state.rows.writeContent(r, c).clear(); });
        }
    }
}

bool KdDbTable::isContentEditable(int row, int column) const {
    return contentEditable(tableState(*this), row, column);
}

bool KdDbTable::isFormatEditable(int row, int column) const {
    return formatEditable(tableState(*this), row, column);
}

KdDb::CellState KdDbTable::cellState(int row, int column) const {
    return readFormatCell(tableState(*this), row, column, [](const CellLook* cell) {
        return cell == nullptr ? KdDb::kCellStateNone : static_cast<KdDb::CellState>(cell->state);
    });
}

// A lock must not lock itself in: the state may always be set.
void KdDbTable::setCellState(int row, int column, KdDb::CellState lock) {
    const auto always = [](const TableState&, int, int) { return true; };
    changeCells(*this, row, column, always, [&](TableState& state, int r, int c) {
        state.rows.writeLook(r, c).state = static_cast<std::uint8_t>(lock);
    });
}

/// Tables of this host are linked to no data outside: there is nothing to take off.
void KdDbTable::removeDataLink() {}
