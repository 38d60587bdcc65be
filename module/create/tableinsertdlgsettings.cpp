// What the insert dialog remembers between runs. Numbers are stored also for a figure that is automatic. A value that
// can't be read leaves its field as it is.

#include "kd/db/database.h"
#include "module/create/tableinsertdlg.h"
#include "module/valuetext/tableutils.h"

namespace {

constexpr const wchar_t* kAutoOptions = L"AutoOptions";
constexpr const wchar_t* kColumns = L"Columns";
constexpr const wchar_t* kRowHeight = L"RowHeight";
constexpr const wchar_t* kRows = L"Rows";
constexpr const wchar_t* kWindowToFit = L"WindowToFit";
constexpr const wchar_t* kMetric = L"Metric";
constexpr const wchar_t* kColumnWidth = L"ColumnWidth";
constexpr const wchar_t* kIndicatorColor = L"IndicatorColor";

/// How what is fixed in a window is stored.
struct AutoOption {
    bool dataRowsFixed;
    bool columnsFixed;
    int stored;
};
constexpr AutoOption kAutoOptionValues[] = {
    {true, true, 10},
    {true, false, 9},
    {false, true, 6},
    {false, false, 5},
};

constexpr double kMillimetresOfInch = 25.4;
constexpr double kMetricColumnWidth = 63.5;
constexpr double kPlainColumnWidth = 2.5;

bool isMetric(const KdDbDatabase& database) {
    return database.measurement() == 1;
}

}  // namespace

int CVqTableInsertDlg::ReadRegedit() {
    CVqTableUtils::IsRegeditOpenKey();
    int stored = 0;
    // Settings of a key that was missing until now are the defaults, and so are those without this value.
    if (CVqTableUtils::RegeditQueryValue(kAutoOptions, stored) == 0) InitSetting();
    readAutoOptions();
    readInteger(kColumns, Columns);
    readInteger(kRowHeight, RowHeight);
    readInteger(kRows, DataRows);
    if (CVqTableUtils::RegeditQueryValue(kWindowToFit, stored) != 0) m_bPointMode = stored == 0;
    CVqTableUtils::RegeditQueryValue(kMetric, m_nMetric);
    readColumnWidth();
    return 1;
}

/// A value that isn't one of the four changes nothing.
void CVqTableInsertDlg::readAutoOptions() {
    int stored = 0;
    if (CVqTableUtils::RegeditQueryValue(kAutoOptions, stored) == 0) return;
    for (const AutoOption& option : kAutoOptionValues) {
        if (option.stored != stored) continue;
        m_bDataRowsFixed = option.dataRowsFixed;
        m_bColumnsFixed = option.columnsFixed;
    }
}

void CVqTableInsertDlg::readInteger(const wchar_t* name, Figure figure) {
    int stored = 0;
    if (CVqTableUtils::RegeditQueryValue(name, stored) != 0) m_texts[figure].Format(L"%d", stored);
}

/// The width is stored in the units of the drawing that it was typed for, and comes back in those of this one.
void CVqTableInsertDlg::readColumnWidth() {
    double width = 0.0;
    if (CVqTableUtils::RegeditQueryValue(kColumnWidth, width) == 0) return;
    const bool isStoredMetric = m_nMetric == 1;
    if (isMetric(*m_pDatabase) && !isStoredMetric) width *= kMillimetresOfInch;
    if (!isMetric(*m_pDatabase) && isStoredMetric) width /= kMillimetresOfInch;
    m_texts[ColumnWidth].Format(L"%f", width);
}

int CVqTableInsertDlg::WriteRegedit() {
    // A dialog that could not be opened whole has no figures of the user's.
    if (m_idDictionary.isNull()) return 0;
    int options = 0;
    for (const AutoOption& option : kAutoOptionValues) {
        if (option.dataRowsFixed == m_bDataRowsFixed && option.columnsFixed == m_bColumnsFixed) options = option.stored;
    }
    if (CVqTableUtils::RegeditSetValue(kAutoOptions, options) == 0) return 0;
    CVqTableUtils::RegeditSetValue(kColumns, integerOf(Columns));
    CVqTableUtils::RegeditSetValue(kRowHeight, integerOf(RowHeight));
    CVqTableUtils::RegeditSetValue(kRows, integerOf(DataRows));
    CVqTableUtils::RegeditSetValue(kWindowToFit, m_bPointMode ? 0 : 1);
    m_nMetric = isMetric(*m_pDatabase) ? 1 : 0;
    CVqTableUtils::RegeditSetValue(kMetric, m_nMetric);
    CVqTableUtils::RegeditSetValue(kColumnWidth, shownColumnWidth());
    // Kept for who reads it there; this dialog has no use for it.
    CVqTableUtils::RegeditSetValue(kIndicatorColor, 0);
    return 1;
}

void CVqTableInsertDlg::InitSetting() {
    m_bDataRowsFixed = true;
    m_bColumnsFixed = true;
    m_texts[Columns] = L"3";
    m_texts[RowHeight] = L"1";
    m_texts[DataRows] = L"3";
    m_bPointMode = true;
    m_texts[ColumnWidth].Format(L"%f", isMetric(*m_pDatabase) ? kMetricColumnWidth : kPlainColumnWidth);
    WriteRegedit();
}
