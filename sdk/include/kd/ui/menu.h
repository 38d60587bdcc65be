// KdUiMenu: the host's popup menu.
#pragma once

#include <QMenu>

class KdUiMenu : public QMenu {
    Q_OBJECT
public:
    explicit KdUiMenu(QWidget* parent = nullptr);
    explicit KdUiMenu(const QString& title, QWidget* parent = nullptr);
    ~KdUiMenu() override;
};
