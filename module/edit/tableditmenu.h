// A drop-down menu of the toolbar: a tree of the resource module whose items stand for command numbers.
#pragma once

#include <QPointer>
#include <functional>
#include <memory>

#include "kd/ui/menu.h"

class QAction;
class QActionGroup;
class VqUICreator;

/// Marks and states of menu items; EnableMenuItem looks at the two low bits, CheckMenuItem at the checked one.
enum MenuItemFlag : unsigned {
    kMenuItemEnabled = 0,
    kMenuItemGrayed = 1,
    kMenuItemDisabled = 2,
    kMenuItemUnchecked = 0,
    kMenuItemChecked = 8,
};

/// Items are addressed by their positions, from 0, separators counted; a position without an item is passed over.
/// One item at most is checked: the one that shows how the selection stands, later the one chosen.
class VqTableditMenu : public KdUiMenu {
public:
    /// Gets the command number of the item that the user chose.
    using CommandHandler = std::function<void(unsigned command)>;

    explicit VqTableditMenu(QWidget* parent = nullptr);
    ~VqTableditMenu() override;

    /// Fills the menu with the items of the tree of that name. False, and nothing is changed, when there is none.
    bool LoadMenuItem(const QString& file, const QString& name, CommandHandler handler);
    /// Checks the item, or unchecks it without the flag.
    void CheckMenuItem(int position, unsigned flags);
    /// Either of the two low bits disables the item; otherwise it is enabled.
    void EnableMenuItem(int position, unsigned flags);
    /// Unchecks and enables all items: a menu is kept from one showing to the next.
    void ResetMenuItems();
    /// Slot of all items: moves the check mark to the sender and hands on its command.
    void OnMenuClicked();
    /// Shows the menu at the cursor; returns when it has closed.
    void ShowMenuItem();

private:
    /// Null for a position without an item.
    QAction* itemAt(int position) const;
    void check(QAction* item);

    std::unique_ptr<VqUICreator> m_creator;
    QActionGroup* m_group;
    QPointer<QAction> m_checked;
    CommandHandler m_handler;
};
