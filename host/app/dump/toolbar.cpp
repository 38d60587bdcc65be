// What can be seen of the table toolbar, which is a module's window.

#include "host/app/dump/toolbar.h"

#include <QApplication>
#include <QWidget>

#include "host/db/access.h"

namespace kdhost::dump {
namespace {

/// The property under which the window keeps the id of its table.
constexpr const char* kTableProperty = "tableId";

/// Null while none shows.
const QWidget* shownToolbar() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == QLatin1String("IDD_TABLEDIT_DIALOG")) return window;
    }
    return nullptr;
}

Json tableOf(const QWidget& toolbar) {
    const KdDbObjectId id(toolbar.property(kTableProperty).toULongLong());
    const KdDbObject* table = peekObject(id);
    return table == nullptr ? Json(nullptr) : Json(handle(table->handle()));
}

Json enabledControls(const QWidget& toolbar) {
    Json names = Json::array();
    for (const QWidget* control : toolbar.findChildren<QWidget*>()) {
        const bool isNamed = control->objectName().startsWith(QLatin1String("IDC_TABLEDIT_"));
        if (isNamed && control->isEnabled()) names.push_back(control->objectName().toStdString());
    }
    return names;
}

}  // namespace

Json toolbar() {
    const QWidget* shown = shownToolbar();
    if (shown == nullptr) return {{"visible", false}, {"table", nullptr}, {"enabled", Json::array()}};
    return {{"visible", true}, {"table", tableOf(*shown)}, {"enabled", enabledControls(*shown)}};
}

}  // namespace kdhost::dump
