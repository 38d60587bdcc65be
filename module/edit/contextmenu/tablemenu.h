// A popup menu of the resource module: its items are addressed by object name or by position, and choosing one calls
// the context that the menu belongs to.
#pragma once

#include <QLatin1String>
#include <QPointer>
#include <QStringList>
#include <memory>

#include "kd/ui/menu.h"

class KdEdUIContext;
class QAction;
class QActionGroup;
class VqUICreator;

/// The flags of TableMenu's operations.
enum TableMenuFlag : unsigned {
    kTableMenuEnabled = 0,
    kTableMenuDisabled = 3,  ///< either of its two bits disables
    kTableMenuChecked = 8,
    kTableMenuByPosition = 1024,
    kTableMenuSeparator = 0x800,
};

/// Wraps the popup that it loaded, a sub-menu of another one, or itself as an empty popup. Positions count from 0, with
/// separators; one without an item is passed over, as is a name that no item has. A name is looked up in the whole
/// menu with its sub-menus.
class TableMenu : public KdUiMenu {
public:
    explicit TableMenu(QWidget* parent = nullptr);
    ~TableMenu() override;

    /// Becomes an empty popup of its own.
    virtual void CreatePopupMenu();
    virtual int GetMenuItemCount() const;
    /// The object name of an item or of a sub-menu; empty for a separator and for a position without an item.
    virtual QString GetMenuItemID(int position) const;
    /// Deletes what was loaded. Nothing happens to a menu without a name, that is, to one that wasn't loaded.
    virtual void DestroyMenu();
    /// Builds the tree of that name, in the place of what was loaded before. Empty arguments do nothing; a tree that is
    /// missing leaves a menu without items.
    virtual void LoadMenuW(const QString& file, const QString& name);
    /// Either of the two low bits of the flags disables the item; otherwise it is enabled.
    virtual void EnableMenuItem(QLatin1String name, unsigned flags);
    virtual void EnableMenuItem(int position, unsigned flags);
    /// Takes the item out and deletes it, with its sub-menu.
    virtual void DeleteMenu(QLatin1String name);
    virtual void DeleteMenu(int position);
    /// Checks the item, or unchecks it without the flag.
    virtual void CheckMenuItem(QLatin1String name, unsigned flags);
    virtual void CheckMenuItem(int position, unsigned flags);
    /// Joins the items from `first` to `last`, in either order, into a group of which one is checked, and checks one.
    /// The three lie in one menu.
    virtual void CheckMenuRadioItem(QLatin1String first, QLatin1String last, QLatin1String checked, unsigned flags);
    virtual void DeleteMenuItem(QAction* item);
    /// Inserts the item before the one at the position; at the end for a position behind it.
    virtual void InsertMenuItemW(int position, QAction* item);
    /// Inserts a popup as a sub-menu. It stays its owner's.
    virtual void InsertMenuW(QLatin1String name, int position, TableMenu& subMenu, const QString& text);
    /// Inserts a sub-menu with an item for each name; a name without a text has itself for its text.
    virtual void InsertMenuW(QLatin1String name, int position, const QStringList& names, const QStringList& texts);
    /// Adds a separator, or an item, which is disabled with the low bit of the flags. Other flags do nothing.
    virtual void AppendMenuW(unsigned flags, const QString& objectName, const QString& text);
    /// Shows the popup at the cursor; returns when it has closed.
    virtual void ShowMenuItem();

    /// The menu below the position, wrapped; null when there is none. It is kept for as long as the menu lives.
    std::unique_ptr<TableMenu> GetSubMenu(int position) const;
    /// Slot of all items: calls the context with the command of each row that has the sender's name.
    void OnMenuClicked();
    /// The context outlives the menu.
    void SetonCommand(KdEdUIContext* context) { m_context = context; }

    /// What the host shows; null when nothing is loaded.
    QMenu* popup() const { return m_popup; }
    /// Whether an item has the name.
    bool holds(QLatin1String name) const;
    /// The position of the item of that name in the menu itself; the number of items when there is none.
    int positionOf(QLatin1String name) const;

private:
    void InitMenu(QMenu* popup, KdEdUIContext* context);
    QAction* itemAt(int position) const;
    QAction* itemNamed(QLatin1String name) const;
    void connectItem(QAction* item);

    std::unique_ptr<VqUICreator> m_creator;
    QPointer<QMenu> m_popup;
    QPointer<QWidget> m_parent;
    KdEdUIContext* m_context = nullptr;
    QPointer<QActionGroup> m_radioItems;
    QString m_file;
    QString m_name;
};
