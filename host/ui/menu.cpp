// The popup menu.

#include "kd/ui/menu.h"

KdUiMenu::KdUiMenu(QWidget* parent) : QMenu(parent) {}

KdUiMenu::KdUiMenu(const QString& title, QWidget* parent) : QMenu(title, parent) {}

KdUiMenu::~KdUiMenu() = default;
