// VqUICreator: builds widget trees from the `.ui` files of resource modules.
#pragma once

#include <QList>
#include <QString>
#include <memory>

class QAction;
class QWidget;

class VqUICreator {
public:
    /// `file` is the resource path ("TvxTableRes/TvxTableRes"). `kind` 1 is for dialogs, 3 for menus.
    VqUICreator(QWidget* parent, const QString& file, int kind);
    ~VqUICreator();

    /// Builds the tree of that name; the widgets are children of the parent. False, with nothing built, when
    /// the tree is missing or can't be read. A tree built before stays, but is no longer in the lists below.
    bool generate(const QString& name);
    /// The tree's root, then its named descendants in the order of the file. Deleted widgets drop out.
    QList<QWidget*> widgets() const;
    /// The tree's named actions, likewise; separators and sub-menus' own actions are not among them.
    QList<QAction*> actions() const;
    QWidget* widget(const QString& name) const;
    QAction* action(const QString& name) const;
    /// Deletes what was built.
    void release();

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
