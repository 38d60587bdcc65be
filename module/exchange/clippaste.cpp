// A paste: cells from a temporary drawing, or a text into every selected cell; and whether it would fit.

#include "kd/db/formula.h"
#include "kd/db/table.h"
#include "module/core/formulafield.h"
#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipranges.h"

namespace {

/// A single equals sign is text.
bool isFormula(const KdString& text) {
    return text.length() >= 2 && text.str().front() == L'=';
}

void putText(KdDbTable& table, const CKdTableCellRange& cells, const KdString& text) {
    forEachCell(cells, [&](int row, int column) { table.setTextString(row, column, text.kwszPtr()); });
}

/// Every cell gets the same formula, in fields of its own. True when any did.
bool putFormulas(KdDbTable& table, const CKdTableCellRange& cells, const KdString& text) {
    KdString expression;
    kdadConvertExprToFieldCode(withoutEqualsSign(text.str()), expression);
    const std::wstring code = expressionCode(expression.str());
    bool any = false;
    forEachCell(cells, [&](int row, int column) {
        // A locked cell wouldn't take the field, which would then hang on nothing.
        if (!table.isContentEditable(row, column)) return;
        any |= putFormula(table, row, column,
                          [&](KdDbField& field) { return field.setFieldCode(code.c_str(), KdDbField::kFieldCode); });
    });
    return any;
}

/// Whether as many lines, from the first selected one on, are in the table. Computed wide: the number comes from
/// another program.
bool endsInside(int first, std::int32_t count, int total) {
    return std::int64_t{first} + count <= total;
}

}  // namespace

int CVqTableClipDataMgr::CanPasteTableCell(const KdDbTable* table) const {
    COleDataObject clipboard;
    if (table == nullptr || !clipboard.AttachClipboard()) return 0;
    const std::optional<CKdTableCellRange> selected = blockOf(table->getSubSelection(), *table);
    if (!selected) return 0;
    tagVqTableClipboardInfo info{};
    if (GetAcTableClipboardData(clipboard, info) == 0) return 1;
    if (info.m_rows == 1 && info.m_columns == 1) return 1;
    if (selected->numRows() == info.m_rows && selected->numColumns() == info.m_columns) return 1;
    return endsInside(selected->m_topRow, info.m_rows, table->numRows()) &&
                   endsInside(selected->m_leftColumn, info.m_columns, table->numColumns())
               ? 1
               : 0;
}

int CVqTableClipDataMgr::PastTableCells(KdDbTable* table, bool& formula) {
    if (table == nullptr || !table->isWriteEnabled()) return 0;
    COleDataObject clipboard;
    if (!clipboard.AttachClipboard()) return 0;
    tagVqTableClipboardInfo info{};
    if (GetAcTableClipboardData(clipboard, info) != 0) return ApplyCellProperties(table, &info);
    KdString text;
    if (GetTextClipboardData(clipboard, text) == 0) return 1;
    const std::optional<CKdTableCellRange> cells = cellsOf(*table);
    if (!cells) return 0;
    if (!isFormula(text)) {
        putText(*table, *cells, text);
    } else if (putFormulas(*table, *cells, text)) {
        formula = true;
    }
    return 1;
}
