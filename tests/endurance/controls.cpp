// Uses of controls.

#include "tests/endurance/controls.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QTabWidget>
#include <array>

#include "kd/ui/widgets.h"

namespace endurance {
namespace {

struct Values {
    const char* part;  ///< of the control's name
    std::vector<std::wstring> good;
    std::vector<std::wstring> bad;  ///< may be refused, with the focus kept
};

/// The first row whose part the name holds.
const std::vector<Values>& values() {
    static const std::vector<Values> rows = {
        {"COLUMNWIDTH", {L"20", L"35.5", L"63.5", L"120"}, {L"-3", L"x"}},
        {"ROWHEIGHT", {L"1", L"2", L"3"}, {L"0", L"-1"}},
        {"DATAROW", {L"1", L"2", L"4", L"7"}, {L"0", L"abc"}},
        {"COLUMN_EDIT", {L"1", L"2", L"4", L"6"}, {L"0", L"abc"}},
        {"HEIGHT", {L"1", L"2.5", L"4.5", L"6"}, {L"0", L"-2", L"tall"}},
        {"WIDTH", {L"0.8", L"1", L"1.2"}, {L"0", L"-2"}},
        {"SCALE", {L"0.5", L"1", L"2"}, {L"0", L"-1"}},
        {"SPACING", {L"0.5", L"1", L"2"}, {L"-1", L"wide"}},
        {"ANGLE", {L"0", L"30", L"45", L"90", L"15.5"}, {L"up"}},
        {"HORIZONTAL", {L"0.5", L"1.5", L"3"}, {L"-1"}},
        {"VERTICAL", {L"0.5", L"1.5", L"3"}, {L"-1"}},
        {"INDEX_EDIT", {L"1", L"5", L"30", L"254"}, {L"999"}},
        {"PRECISION", {L"0", L"2", L"4"}, {}},
        {"SPIN", {L"0", L"7", L"200"}, {}},
        {"EXLPATH", {L"people.csv", L"schedule.csv", L"numbers.csv"}, {L"missing.csv"}},
    };
    return rows;
}

/// Null for a control that takes names.
const Values* valuesFor(const QWidget& control) {
    const QString name = control.objectName();
    if (name.contains(QLatin1String("NAME_EDIT"))) return nullptr;
    for (const Values& row : values()) {
        if (name.contains(QLatin1String(row.part))) return &row;
    }
    return nullptr;
}

/// At the end of a line that sets what may be refused there stands nothing else; so this is told by the value alone.
bool isBad(const std::wstring& value) {
    for (const Values& row : values()) {
        if (std::find(row.bad.begin(), row.bad.end(), value) != row.bad.end()) return true;
    }
    return value == L"a,b";
}

std::wstring nameOf(const QWidget& control) {
    return control.objectName().toStdWString();
}

std::wstring goodValue(Random& random, const QWidget& control) {
    const Values* row = valuesFor(control);
    return row == nullptr ? someName(random) : random.oneOf(row->good);
}

std::wstring setEdit(Random& random, const Stand&, QWidget& control) {
    const Values* row = valuesFor(control);
    const bool isOdd = random.chance(8) && (row == nullptr || !row->bad.empty());
    std::wstring value = goodValue(random, control);
    if (isOdd) value = row == nullptr ? L"a,b" : random.oneOf(row->bad);
    return L"@set " + nameOf(control) + L" " + value;
}

std::wstring setMark(Random& random, const Stand&, QWidget& control) {
    return L"@set " + nameOf(control) + (random.chance(50) ? L" on" : L" off");
}

std::wstring click(Random&, const Stand&, QWidget& control) {
    return L"@click " + nameOf(control);
}

std::wstring press(Random& random, const Stand& stand, QWidget& control) {
    const auto* button = qobject_cast<KdUiPushButton*>(&control);
    const bool drops = button != nullptr && button->hasArrowPart() && random.chance(50);
    return drops ? L"@drop " + nameOf(control) : click(random, stand, control);
}

std::vector<int> enabledRows(const QComboBox& combo) {
    std::vector<int> rows;
    for (int row = 0; row < combo.count(); ++row) {
        const QModelIndex index = combo.model()->index(row, combo.modelColumn(), combo.rootModelIndex());
        if ((index.flags() & Qt::ItemIsEnabled) != 0) rows.push_back(row);
    }
    return rows;
}

std::wstring selectRow(Random& random, const Stand&, QWidget& control) {
    return rowOf(random, control);
}

/// Which of its rows is chosen follows when it is open.
std::wstring openBox(Random&, const Stand&, QWidget& control) {
    return L"@drop " + nameOf(control);
}

std::wstring selectPage(Random& random, const Stand&, QWidget& control) {
    return L"@select " + nameOf(control) + L" #" + random.number(0, static_cast<QTabWidget&>(control).count() - 1);
}

constexpr const wchar_t* listActions[] = {L"@click ", L"@click ", L"@click ", L"@doubleclick ", L"@context "};

std::wstring useRow(Random& random, const Stand&, QWidget& control) {
    const int rows = static_cast<QAbstractItemView&>(control).model()->rowCount();
    return random.oneOf(listActions) + nameOf(control) + L" #" + random.number(0, rows - 1);
}

template <class Control>
bool is(const QWidget& control) {
    return qobject_cast<const Control*>(&control) != nullptr;
}

bool isEditable(const QWidget& control) {
    const auto* edit = qobject_cast<const QLineEdit*>(&control);
    return edit != nullptr && !edit->isReadOnly();
}

bool isFilledCombo(const QWidget& control) {
    const auto* combo = qobject_cast<const QComboBox*>(&control);
    return combo != nullptr && !enabledRows(*combo).empty();
}

/// Boxes that are filled when they are opened: what they hold before may be gone.
bool isFilledWhenOpened(const QWidget& control) {
    constexpr const char* boxes[] = {"IDC_TABLEDIT_CELLSTYLECOMBO", "IDC_TABLEINSERT_STYLENAME_COMBOBOX"};
    const auto isIt = [&](const char* name) { return control.objectName() == QLatin1String(name); };
    return std::any_of(std::begin(boxes), std::end(boxes), isIt) && isFilledCombo(control);
}

bool isFilledList(const QWidget& control) {
    const auto* view = qobject_cast<const QAbstractItemView*>(&control);
    return view != nullptr && view->model() != nullptr && view->model()->rowCount() > 0;
}

struct Kind {
    bool (*is)(const QWidget&);
    std::wstring (*use)(Random&, const Stand&, QWidget&);
};

/// The first row that fits counts.
constexpr std::array kinds = {
    Kind{isEditable, setEdit},      Kind{is<QAbstractSpinBox>, setEdit}, Kind{isFilledWhenOpened, openBox},
    Kind{isFilledCombo, selectRow}, Kind{is<QCheckBox>, setMark},        Kind{is<QRadioButton>, click},
    Kind{is<QPushButton>, press},   Kind{is<QTabWidget>, selectPage},    Kind{isFilledList, useRow},
};

const Kind* kindOf(const QWidget& control) {
    const auto* found = std::find_if(kinds.begin(), kinds.end(), [&](const Kind& kind) { return kind.is(control); });
    return found == kinds.end() ? nullptr : found;
}

bool isNamed(const QWidget& control) {
    return control.objectName().startsWith(QLatin1String("IDC_"));
}

}  // namespace

std::vector<QWidget*> usableControls(QWidget& window) {
    std::vector<QWidget*> found;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const bool isOwn = control->window() == &window && isNamed(*control);
        if (isOwn && control->isVisible() && control->isEnabled() && kindOf(*control) != nullptr)
            found.push_back(control);
    }
    return found;
}

std::wstring useOf(Random& random, const Stand& stand, QWidget& control) {
    return kindOf(control)->use(random, stand, control);
}

std::wstring rowOf(Random& random, QWidget& box) {
    const std::vector<int> rows = enabledRows(static_cast<QComboBox&>(box));
    return L"@select " + nameOf(box) + L" #" + std::to_wstring(random.oneOf(rows));
}

bool mayBeRefused(const std::wstring& line) {
    return line.rfind(L"@set ", 0) == 0 && isBad(line.substr(line.find(L' ', 5) + 1));
}

std::wstring remedyOf(Random& random, const Stand&, QWidget& control) {
    return L"@set " + nameOf(control) + L" " + goodValue(random, control);
}

std::wstring someName(Random& random) {
    constexpr const wchar_t* names[] = {L"Doors", L"Windows", L"车间", L"Notes", L"Parts of it", L"Amounts"};
    return random.oneOf(names) + std::wstring(random.chance(70) ? L" " + random.number(1, 99) : L"");
}

}  // namespace endurance
