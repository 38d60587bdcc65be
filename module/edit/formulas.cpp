// Formulas put into the selected cell: each makes the text that starts with an equals sign and opens the cell editor
// on it, where the user finishes.

#include "kd/db/formula.h"
#include "kd/db/table.h"
#include "kd/ed/selection.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/edit/celledit.h"
#include "module/edit/tabletoolbar.h"

namespace {

/// Without a table of its own an operation takes the toolbar's; the null id when there is none either.
KdDbObjectId orToolbarTable(KdDbObjectId table) {
    return table.isNull() ? toolbarTable() : table;
}

/// What the user picked for a formula.
struct PickedCells {
    KdDbObjectId table;
    KdCellRange range;
};

bool pickCells(bool singleCell, PickedCells& picked) {
    return kdadSelectTableUnits(singleCell, picked.table, picked.range) && !picked.table.isNull();
}

/// Reads the selection's first cell, lets `makeFormula(id, text)` add to the equals sign, and opens the editor on it.
/// False when the table can't be opened or the formula isn't made.
template <class MakeFormula>
bool insertFormula(KdDbObjectId given, MakeFormula makeFormula) {
    const KdDbObjectId id = orToolbarTable(given);
    OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return false;
    const KdCellRange cells = table->getSubSelection();
    table.close();
    KdString text(L"=");
    if (!makeFormula(id, text)) return false;
    editTable(id, cells.m_topRow, cells.m_leftColumn, false, text);
    return true;
}

/// A function over cells that the user picks, in this table or in another one.
bool insertFunction(KdDbObjectId given, const wchar_t* function) {
    return insertFormula(given, [&](KdDbObjectId id, KdString& text) {
        PickedCells picked;
        if (!pickCells(false, picked)) return false;
        const KdDbObjectId named = picked.table == id ? KdDbObjectId::kNull : picked.table;
        return kdadConvertToFormulaExpr(picked.range, function, named, text);
    });
}

/// The name of one cell that the user picks, with its table's number when that is another one.
bool appendCell(KdDbObjectId id, KdString& text) {
    PickedCells picked;
    if (!pickCells(true, picked)) return false;
    KdString reference;
    if (!kdadConvertIndexToIndicatorString(picked.range.m_topRow, picked.range.m_leftColumn, reference)) return false;
    if (picked.table != id) {
        KdString number;
        number.format(L"%I64d", picked.table.asInteger());
        text.append(L"Table(").append(number).append(L").");
    }
    text.append(reference);
    return true;
}

}  // namespace

bool CVqTableCommon::InsertSumFormula() {
    return InsertSumFormula(KdDbObjectId::kNull);
}

bool CVqTableCommon::InsertSumFormula(KdDbObjectId table) {
    return insertFunction(table, L"Sum");
}

bool CVqTableCommon::InsertCountFormula() {
    return InsertCountFormula(KdDbObjectId::kNull);
}

bool CVqTableCommon::InsertCountFormula(KdDbObjectId table) {
    return insertFunction(table, L"Count");
}

bool CVqTableCommon::InsertAverageFormula() {
    return InsertAverageFormula(KdDbObjectId::kNull);
}

bool CVqTableCommon::InsertAverageFormula(KdDbObjectId table) {
    return insertFunction(table, L"Average");
}

bool CVqTableCommon::InsertCellFormula() {
    return InsertCellFormula(KdDbObjectId::kNull);
}

bool CVqTableCommon::InsertCellFormula(KdDbObjectId table) {
    return insertFormula(table, appendCell);
}

bool CVqTableCommon::InsertEquation() {
    return InsertEquation(KdDbObjectId::kNull);
}

bool CVqTableCommon::InsertEquation(KdDbObjectId table) {
    return insertFormula(table, [](KdDbObjectId, KdString&) { return true; });
}
