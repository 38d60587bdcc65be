// The floating toolbar: its buttons, drop-down menus and boxes.

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QWidget>

#include "kd/db/table.h"
#include "kd/ui/widgets.h"
#include "tests/endurance/controls.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

/// Null while it doesn't show.
QWidget* toolbar() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == QLatin1String("IDD_TABLEDIT_DIALOG")) return window;
    }
    return nullptr;
}

bool isMore(const QWidget& control) {
    const QString name = control.objectName();
    return name.endsWith(QLatin1String("INSERT"));
}

/// Tables stay of a size that is quickly looked through.
bool isLarge(const Stand& stand) {
    const KdDbTable* table = stand.tableOfSelectedCells();
    return table != nullptr && table->numRows() * table->numColumns() > 150;
}

std::vector<QWidget*> usable(const Stand& stand) {
    QWidget* window = toolbar();
    if (window == nullptr) return {};
    std::vector<QWidget*> controls = usableControls(*window);
    if (isLarge(stand)) std::erase_if(controls, [](const QWidget* control) { return isMore(*control); });
    return controls;
}

bool showsUsable(const Stand& stand) {
    return hasSelectedCells(stand) && !usable(stand).empty();
}

Lines use(Random& random, const Stand& stand) {
    return {command(useOf(random, stand, *random.oneOf(usable(stand))))};
}

Lines useOnCells(Random& random, const Stand& stand) {
    Lines lines = {selectSomeCells(random, stand)};
    return lines;
}

constexpr Action actions[] = {
    {"use", 150, showsUsable, use},
    {"select", 40, hasTable, useOnCells},
};

}  // namespace

const Road toolbarRoad = {"toolbar", actions};

}  // namespace endurance
