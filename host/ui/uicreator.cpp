// Widget trees from `.ui` files, built with the host's widget classes and in the host's language.

#include "kd/ui/uicreator.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QTranslator>
#include <QUiLoader>
#include <array>
#include <cmath>

#include "host/ui/menutree.h"
#include "host/ui/treeroot.h"
#include "host/win32/modules.h"
#include "kd/ui/hostdialogs.h"
#include "kd/ui/menu.h"
#include "kd/ui/widgets.h"

namespace {

constexpr int kMenus = 3;  ///< the kind of trees that are menus

struct WidgetClass {
    const char* name;
    QWidget* (*make)(QWidget* parent);
};

template <class T>
QWidget* make(QWidget* parent) {
    return new T(parent);
}

/// Classes that `.ui` files name and Qt doesn't know. A plain Qt class in a file becomes the host's own, so
/// that its signals are there.
constexpr std::array kWidgetClasses = {
    WidgetClass{"KdUiLineEdit", make<KdUiLineEdit>},
    WidgetClass{"QLineEdit", make<KdUiLineEdit>},
    WidgetClass{"KdUiDoubleSpinBox", make<KdUiDoubleSpinBox>},
    WidgetClass{"KdUiComboBox", make<KdUiComboBox>},
    WidgetClass{"QComboBox", make<KdUiComboBox>},
    WidgetClass{"KdUiPushButton", make<KdUiPushButton>},
    WidgetClass{"KdUiListWidget", make<KdUiListWidget>},
    WidgetClass{"QListWidget", make<KdUiListWidget>},
    WidgetClass{"KdUiTreeWidget", make<KdUiTreeWidget>},
    WidgetClass{"KdUiTabBar", make<KdUiTabBar>},
    WidgetClass{"KdUiSlider", make<KdUiSlider>},
    WidgetClass{"KdUiMenu", make<KdUiMenu>},
    WidgetClass{"QMenu", make<KdUiMenu>},
    // The tree stands inside its dialog, so that its root is no window.
    WidgetClass{"QDialog", make<kdhost::TreeRoot>},
};

/// Sizes and places in a file are those of a plain screen. What a layout holds takes its place from that; sizes without
/// a number stay so.
void scaleSizes(QWidget& widget) {
    const auto scaled = [scale = kdadGetDPIScale()](int pixels) {
        return pixels >= QWIDGETSIZE_MAX ? pixels : static_cast<int>(std::lround(pixels * scale));
    };
    const QSize most = widget.maximumSize();
    const QSize least = widget.minimumSize();
    const QRect place = widget.geometry();
    widget.setMaximumSize(scaled(most.width()), scaled(most.height()));
    widget.setMinimumSize(scaled(least.width()), scaled(least.height()));
    widget.setGeometry(scaled(place.x()), scaled(place.y()), scaled(place.width()), scaled(place.height()));
}

class Loader : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        for (const WidgetClass& known : kWidgetClasses) {
            if (className != QLatin1String(known.name)) continue;
            QWidget* widget = known.make(parent);
            widget->setObjectName(name);
            return widget;
        }
        return QUiLoader::createWidget(className, parent, name);
    }
};

/// Whether the file connects a signal to the object of that name.
bool isReceiver(QFile& form, const QString& name) {
    return form.seek(0) && form.readAll().contains("<receiver>" + name.toUtf8() + "</receiver>");
}

QWidget* load(QFile& form, QWidget* parent) {
    Loader loader;
    loader.setLanguageChangeEnabled(false);
    form.seek(0);
    return loader.load(&form, parent);
}

/// The texts of a tree in the host's language, while it is being built.
class TranslationScope {
public:
    explicit TranslationScope(const QString& file) {
        if (kdhost::language() != kdhost::Language::Chinese) return;
        if (m_translator.load(QStringLiteral(":/") + file + QStringLiteral("/zh_CN.qm"))) {
            QCoreApplication::installTranslator(&m_translator);
        }
    }
    ~TranslationScope() { QCoreApplication::removeTranslator(&m_translator); }
    TranslationScope(const TranslationScope&) = delete;
    TranslationScope& operator=(const TranslationScope&) = delete;

private:
    QTranslator m_translator;
};

}  // namespace

struct VqUICreator::Private {
    QPointer<QWidget> parent;
    QString file;
    int kind;
    QPointer<QWidget> root;
    QList<QPointer<QWidget>> widgets;
    QList<QPointer<QAction>> actions;
};

VqUICreator::VqUICreator(QWidget* parent, const QString& file, int kind) : m_private(std::make_unique<Private>()) {
    m_private->parent = parent;
    m_private->file = file;
    m_private->kind = kind;
}

VqUICreator::~VqUICreator() = default;

bool VqUICreator::generate(const QString& name) {
    QFile form(QStringLiteral(":/%1/%2.ui").arg(m_private->file, name));
    if (!form.open(QIODevice::ReadOnly)) return false;
    TranslationScope translation(m_private->file);
    QWidget* root = m_private->kind == kMenus ? kdhost::buildMenuTree(form.readAll(), m_private->parent) : nullptr;
    if (root == nullptr) root = load(form, m_private->parent);
    if (root == nullptr) return false;

    if (auto* tree = qobject_cast<kdhost::TreeRoot*>(root)) tree->setConnected(isReceiver(form, root->objectName()));
    scaleSizes(*root);
    m_private->root = root;
    m_private->widgets = {root};
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty()) continue;
        // Parts that a control makes for itself have the size that it wants.
        if (!widget->objectName().startsWith(QLatin1String("qt_"))) scaleSizes(*widget);
        m_private->widgets.append(widget);
    }
    m_private->actions.clear();
    for (QAction* action : root->findChildren<QAction*>()) {
        if (!action->objectName().isEmpty()) m_private->actions.append(action);
    }
    return true;
}

QList<QWidget*> VqUICreator::widgets() const {
    QList<QWidget*> alive;
    for (const QPointer<QWidget>& widget : m_private->widgets) {
        if (widget != nullptr) alive.append(widget);
    }
    return alive;
}

QList<QAction*> VqUICreator::actions() const {
    QList<QAction*> alive;
    for (const QPointer<QAction>& action : m_private->actions) {
        if (action != nullptr) alive.append(action);
    }
    return alive;
}

QWidget* VqUICreator::widget(const QString& name) const {
    for (const QPointer<QWidget>& widget : m_private->widgets) {
        if (widget != nullptr && widget->objectName() == name) return widget;
    }
    return nullptr;
}

QAction* VqUICreator::action(const QString& name) const {
    for (const QPointer<QAction>& action : m_private->actions) {
        if (action != nullptr && action->objectName() == name) return action;
    }
    return nullptr;
}

void VqUICreator::release() {
    delete m_private->root;
    m_private->widgets.clear();
    m_private->actions.clear();
}
