// Names of commands that go on with what has been typed.

#include "host/app/window/completionlist.h"

#include <algorithm>

#include "host/rx/commandstack.h"

namespace kdhost {
namespace {

constexpr int kMostRows = 8;

}  // namespace

CompletionList::CompletionList(std::function<void(const QString&)> choose) {
    setObjectName(QStringLiteral("CommandCompletion"));
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::StyledPanel);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this,
            [choose = std::move(choose)](QListWidgetItem* item) { choose(item->text()); });
    hide();
}

void CompletionList::offer(const QString& typed, const QWidget& edit) {
    clear();
    const std::vector<std::wstring> names =
        typed.isEmpty() ? std::vector<std::wstring>() : commandCompletions(typed.toStdWString());
    for (const std::wstring& name : names) addItem(QString::fromStdWString(name));
    const bool isWhole = names.size() == 1 && item(0)->text().compare(typed, Qt::CaseInsensitive) == 0;
    if (names.empty() || isWhole) {
        hide();
        return;
    }
    setCurrentRow(-1);
    if (parentWidget() != edit.window()) setParent(edit.window());
    const int rows = std::min(count(), kMostRows);
    const int height = rows * sizeHintForRow(0) + 2 * frameWidth();
    const int room = fontMetrics().averageCharWidth() * 6;
    const QPoint corner = edit.mapTo(edit.window(), QPoint(0, 0));
    setGeometry(corner.x(), corner.y() - height, sizeHintForColumn(0) + room, height);
    show();
    raise();
}

void CompletionList::moveChoice(int rows) {
    if (count() == 0) return;
    const int from = currentRow() < 0 && rows < 0 ? 0 : currentRow();
    setCurrentRow((from + rows + count()) % count());
}

QString CompletionList::chosen() const {
    return currentItem() == nullptr ? QString() : currentItem()->text();
}

QString CompletionList::best() const {
    const QString text = chosen();
    return text.isEmpty() && count() > 0 ? item(0)->text() : text;
}

}  // namespace kdhost
