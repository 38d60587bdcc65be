// Data formats of the selected cells: one of the menu's, or one that the host's dialog makes.

#include "kd/ui/hostdialogs.h"
#include "module/core/propertyedits.h"
#include "module/core/tablecommon.h"

namespace {

/// A sample in the cells' type, unit and format, for the dialog to start from.
std::unique_ptr<KdValue> sampleOf(const KdDbTable& table, const SelectedCells& cells) {
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    CVqTableCommon::GetDataType(&table, type, unit);

    auto sample = std::make_unique<KdValue>();
    sample->setUnitType(unit);
    sample->setFormat(table.format(cells.top, cells.left));
    KdValue* filled = sample.get();
    CVqTableCommon::GetValue(filled, type, unit);
    return sample;
}

/// Lets the user change type, unit and format. False when the dialog is cancelled.
bool askForFormat(KdDbTable& table, KdValue& value) {
    KdValue* asked = &value;
    return VqFdUiInvokeDataTypeDialog(asked, table.database(), nullptr) == 0;
}

void formatCells(KdDbTable& table, const SelectedCells& cells, const KdValue& value) {
    forEachSelected(table, cells, [&](int row, int column) {
        table.setDataType(row, column, value.dataType(), value.unitType());
        table.setDataFormat(row, column, value.getFormat());
    });
}

}  // namespace

int CVqTableCommon::SetDataType(KdDbObjectId table, KdValue::DataType type, KdValue::UnitType unit) {
    const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
    if (!open) return false;
    if (const std::optional<SelectedCells> cells = selectedCells(*open)) {
        forEachSelected(*open, *cells, [&](int row, int column) { open->setDataType(row, column, type, unit); });
    }
    return true;
}

int CVqTableCommon::SetDataFormatMenu(unsigned menuId, KdDbObjectId table) {
    return markedEdit(propertymark::kDataFormatMenu, [&] {
        KdValue::DataType type = KdValue::kUnknown;
        KdValue::UnitType unit = KdValue::kUnitless;
        // The number of no format takes the type off.
        GetDataFormat(static_cast<int>(menuId), type, unit);
        SetDataType(table, type, unit);
    });
}

int CVqTableCommon::SetDataFormat(KdDbObjectId table) {
    if (!table.isValid()) return false;
    // The table stays open for write while the dialog shows.
    return editSelection(table, propertymark::kDataFormat, [](KdDbTable& open, const SelectedCells& cells) {
        const std::unique_ptr<KdValue> value = sampleOf(open, cells);
        if (askForFormat(open, *value)) formatCells(open, cells, *value);
    });
}
