// Names of commands that go on with what has been typed, in a list over the command line.
#pragma once

#include <QListWidget>
#include <functional>

namespace kdhost {

/// Never has the focus: the edit below it goes on taking the keys and moves the choice.
class CompletionList : public QListWidget {
public:
    /// `choose` is told of a click on a name.
    explicit CompletionList(std::function<void(const QString&)> choose);

    /// Shows what goes on with `typed` over the edit, within its window; hides when nothing does.
    void offer(const QString& typed, const QWidget& edit);
    /// One row up or down, from none in a circle.
    void moveChoice(int rows);
    /// Empty while no row is chosen.
    QString chosen() const;
    /// The chosen row, else the first.
    QString best() const;
};

}  // namespace kdhost
