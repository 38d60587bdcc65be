// Qt's own texts in Chinese: buttons of message boxes, the file dialog, menus of edits and scroll bars. They are
// there from the application's start and follow the host's language; in English Qt's words stand as they are.

#include <QCoreApplication>
#include <QTranslator>
#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

#include "host/win32/modules.h"

namespace {

struct QtText {
    std::string_view context;
    std::string_view source;
    const char* chinese;
};

constexpr bool comesBefore(const QtText& a, const QtText& b) {
    return std::tie(a.context, a.source) < std::tie(b.context, b.source);
}

/// In the order of contexts and sources, which are searched by halves.
constexpr std::array kQtTexts = {
    QtText{"QAbstractSpinBox", "&Select All", "全选(&S)"},
    QtText{"QAbstractSpinBox", "&Step up", "增加(&S)"},
    QtText{"QAbstractSpinBox", "Step &down", "减少(&D)"},
    QtText{"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
           "%1\n未找到文件夹。\n请检查文件夹的名称。"},
    QtText{"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
           "%1\n未找到文件。\n请检查文件名。"},
    QtText{"QFileDialog", "%1 File", "%1 文件"},
    QtText{"QFileDialog", "%1 already exists.\nDo you want to replace it?", "%1 已存在。\n要替换它吗？"},
    QtText{"QFileDialog", "&Delete", "删除(&D)"},
    QtText{"QFileDialog", "&New Folder", "新建文件夹(&N)"},
    QtText{"QFileDialog", "&Open", "打开(&O)"},
    QtText{"QFileDialog", "&Rename", "重命名(&R)"},
    QtText{"QFileDialog", "&Save", "保存(&S)"},
    QtText{"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?", "“%1”受写保护。\n仍要删除吗？"},
    QtText{"QFileDialog", "All Files (*)", "所有文件 (*)"},
    QtText{"QFileDialog", "Are you sure you want to delete '%1'?", "确实要删除“%1”吗？"},
    QtText{"QFileDialog", "Back", "后退"},
    QtText{"QFileDialog", "Change to detail view mode", "显示详细信息"},
    QtText{"QFileDialog", "Change to list view mode", "显示列表"},
    QtText{"QFileDialog", "Could not delete directory.", "无法删除文件夹。"},
    QtText{"QFileDialog", "Create New Folder", "新建文件夹"},
    QtText{"QFileDialog", "Create a New Folder", "新建文件夹"},
    QtText{"QFileDialog", "Delete", "删除"},
    QtText{"QFileDialog", "Detail View", "详细信息"},
    QtText{"QFileDialog", "Drive", "驱动器"},
    QtText{"QFileDialog", "File", "文件"},
    QtText{"QFileDialog", "File &name:", "文件名(&N):"},
    QtText{"QFileDialog", "Files", "文件"},
    QtText{"QFileDialog", "Files of type:", "文件类型:"},
    QtText{"QFileDialog", "Folder", "文件夹"},
    QtText{"QFileDialog", "Forward", "前进"},
    QtText{"QFileDialog", "Go back", "后退"},
    QtText{"QFileDialog", "Go forward", "前进"},
    QtText{"QFileDialog", "Go to the parent directory", "转到上级文件夹"},
    QtText{"QFileDialog", "List View", "列表"},
    QtText{"QFileDialog", "List of places and bookmarks", "位置和书签列表"},
    QtText{"QFileDialog", "Look in:", "查找范围:"},
    QtText{"QFileDialog", "New Folder", "新建文件夹"},
    QtText{"QFileDialog", "Open", "打开"},
    QtText{"QFileDialog", "Parent Directory", "上级文件夹"},
    QtText{"QFileDialog", "Remove", "移除"},
    QtText{"QFileDialog", "Save As", "另存为"},
    QtText{"QFileDialog", "Show ", "显示 "},
    QtText{"QFileDialog", "Show &hidden files", "显示隐藏文件(&H)"},
    QtText{"QFileDialog", "Sidebar", "位置"},
    QtText{"QFileSystemModel", "Computer", "计算机"},
    QtText{"QFileSystemModel", "Date Modified", "修改日期"},
    QtText{"QFileSystemModel", "Name", "名称"},
    QtText{"QFileSystemModel", "Size", "大小"},
    QtText{"QFileSystemModel", "Type", "类型"},
    QtText{"QLineEdit", "&Copy", "复制(&C)"},
    QtText{"QLineEdit", "&Paste", "粘贴(&P)"},
    QtText{"QLineEdit", "&Redo", "重做(&R)"},
    QtText{"QLineEdit", "&Undo", "撤消(&U)"},
    QtText{"QLineEdit", "Cu&t", "剪切(&T)"},
    QtText{"QLineEdit", "Delete", "删除"},
    QtText{"QLineEdit", "Select All", "全选"},
    QtText{"QPlatformTheme", "&No", "否(&N)"},
    QtText{"QPlatformTheme", "&Yes", "是(&Y)"},
    QtText{"QPlatformTheme", "Cancel", "取消"},
    QtText{"QPlatformTheme", "Close", "关闭"},
    QtText{"QPlatformTheme", "OK", "确定"},
    QtText{"QPlatformTheme", "Open", "打开"},
    QtText{"QPlatformTheme", "Save", "保存"},
    QtText{"QScrollBar", "Bottom", "底部"},
    QtText{"QScrollBar", "Left edge", "左边缘"},
    QtText{"QScrollBar", "Page down", "下一页"},
    QtText{"QScrollBar", "Page left", "左一页"},
    QtText{"QScrollBar", "Page right", "右一页"},
    QtText{"QScrollBar", "Page up", "上一页"},
    QtText{"QScrollBar", "Right edge", "右边缘"},
    QtText{"QScrollBar", "Scroll down", "向下滚动"},
    QtText{"QScrollBar", "Scroll here", "滚动到此处"},
    QtText{"QScrollBar", "Scroll left", "向左滚动"},
    QtText{"QScrollBar", "Scroll right", "向右滚动"},
    QtText{"QScrollBar", "Scroll up", "向上滚动"},
    QtText{"QScrollBar", "Top", "顶部"},
    QtText{"QTabBar", "Scroll Left", "向左滚动"},
    QtText{"QTabBar", "Scroll Right", "向右滚动"},
    QtText{"QWidgetTextControl", "&Copy", "复制(&C)"},
    QtText{"QWidgetTextControl", "Copy &Link Location", "复制链接地址(&L)"},
    QtText{"QWidgetTextControl", "Select All", "全选"},
};
static_assert(std::is_sorted(kQtTexts.begin(), kQtTexts.end(), comesBefore));

class QtTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    /// Null leaves Qt's own words.
    QString translate(const char* context, const char* source, const char*, int) const override {
        if (kdhost::language() != kdhost::Language::Chinese || context == nullptr || source == nullptr) return {};
        const QtText wanted{context, source, nullptr};
        const auto found = std::lower_bound(kQtTexts.begin(), kQtTexts.end(), wanted, comesBefore);
        if (found == kQtTexts.end() || comesBefore(wanted, *found)) return {};
        return QString::fromUtf8(found->chinese);
    }
};

void installQtTexts() {
    QCoreApplication::installTranslator(new QtTexts(QCoreApplication::instance()));  // which owns it
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(installQtTexts)
