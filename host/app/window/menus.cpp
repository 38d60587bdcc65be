// The menus of the main window.

#include "host/app/window/menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "host/rx/commandstack.h"

namespace kdhost {
namespace {

constexpr MenuEntry kSeparator{nullptr, {nullptr, nullptr}, nullptr};

/// The command that an entry types.
std::wstring commandOf(const MenuEntry& entry) {
    const std::wstring typed = entry.typed;
    return typed.substr(0, typed.find_first_of(L" \n"));
}

void addEntry(QMenu& menu, const MenuEntry& entry, const std::function<void(const std::wstring&)>& type) {
    if (entry.name == nullptr) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(entry.text.text());
    action->setObjectName(QString::fromLatin1(entry.name));
    if (entry.shortcut != nullptr) action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    QObject::connect(action, &QAction::triggered, action,
                     [type, typed = std::wstring(L"^C^C") + entry.typed] { type(typed); });
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, command = commandOf(entry)] { action->setEnabled(findCommand(command).has_value()); });
}

}  // namespace

// A leading underscore asks for the command's global name, which is the same in every language.
const std::vector<MenuRecord>& menuRecords() {
    static const std::vector<MenuRecord> records = {
        {"FileMenu",
         {"&File", "文件(&F)"},
         {{"FileNew", {"&New", "新建(&N)"}, L"_NEW\n", "Ctrl+N"},
          kSeparator,
          {"FileExportPng", {"Export &PNG...", "输出 PNG(&P)..."}, L"_EXPORTPNG\n"},
          {"FileExportSvg", {"Export &SVG...", "输出 SVG(&S)..."}, L"_EXPORTSVG\n"},
          {"FilePrintPdf", {"Print to P&DF...", "打印到 PDF(&D)..."}, L"_PRINTPDF\n", "Ctrl+P"},
          kSeparator,
          {"FileClose", {"&Close", "关闭(&C)"}, L"_CLOSE\n\n", "Ctrl+W"},
          {"FileQuit", {"&Quit", "退出(&Q)"}, L"_QUIT\n", "Ctrl+Q"}}},
        {"EditMenu",
         {"&Edit", "编辑(&E)"},
         {{"EditUndo", {"&Undo", "放弃(&U)"}, L"_U\n", "Ctrl+Z"},
          {"EditRedo", {"&Redo", "重做(&R)"}, L"_REDO\n", "Ctrl+Y"},
          kSeparator,
          {"EditErase", {"&Erase", "删除(&E)"}, L"_ERASE\n"}}},
        {"ViewMenu",
         {"&View", "视图(&V)"},
         {{"ViewZoomIn", {"Zoom &In", "放大(&I)"}, L"_ZOOM 2x\n", "Ctrl++"},
          {"ViewZoomOut", {"Zoom &Out", "缩小(&O)"}, L"_ZOOM 0.5x\n", "Ctrl+-"},
          {"ViewZoomExtents", {"Zoom &Extents", "范围缩放(&E)"}, L"_ZOOM _Extents\n", "Ctrl+0"},
          {"ViewZoomWindow", {"Zoom &Window", "窗口缩放(&W)"}, L"_ZOOM _Window\n"},
          kSeparator,
          {"ViewRegen", {"&Regenerate", "重生成(&R)"}, L"_REGEN\n"}}},
        {"DrawMenu",
         {"&Draw", "绘图(&D)"},
         {{"DrawLine", {"&Line", "直线(&L)"}, L"_LINE\n"}, {"DrawTable", {"&Table...", "表格(&T)..."}, L"_TABLE\n"}}},
        {"ModifyMenu",
         {"&Modify", "修改(&M)"},
         {{"ModifyErase", {"&Erase", "删除(&E)"}, L"_ERASE\n"},
          {"ModifyList", {"&List", "列表(&L)"}, L"_LIST\n"},
          kSeparator,
          {"ModifyLayer", {"La&yer", "图层(&Y)"}, L"_LAYER\n"},
          {"ModifySetvar", {"Set &Variable", "设置变量(&V)"}, L"_SETVAR\n"}}},
        {"TableMenu",
         {"&Table", "表格(&T)"},
         {{"TableInsert", {"&Insert Table...", "插入表格(&I)..."}, L"_TABLE\n"},
          {"TableStyle", {"Table &Style...", "表格样式(&S)..."}, L"_TABLESTYLE\n"},
          kSeparator,
          {"TableImport", {"I&mport CSV", "输入 CSV(&M)"}, L"_TABLEIMPORT\n"},
          {"TableExport", {"E&xport Table...", "输出表格(&X)..."}, L"_TABLEEXPORT\n"},
          kSeparator,
          {"TableCell", {"Edit &Cell", "编辑单元(&C)"}, L"_EDITTABLECELL\n"},
          {"TableText", {"Edit &Text in Place", "在位编辑文字(&T)"}, L"_TABLEDIT\n"}}},
        {"LanguageMenu",
         {"&Language", "语言(&L)"},
         {{"LanguageEnglish", {"&English", "&English"}, L"_LANGUAGE _English\n"},
          {"LanguageChinese", {"中文(&C)", "中文(&C)"}, L"_LANGUAGE _Chinese\n"}}},
        {"HelpMenu", {"&Help", "帮助(&H)"}, {{"HelpContents", {"&Contents", "内容(&C)"}, L"_HELP\n", "F1"}}},
    };
    return records;
}

void buildMenus(QMenuBar& bar, std::function<void(const std::wstring&)> type) {
    for (const MenuRecord& record : menuRecords()) {
        QMenu* menu = bar.addMenu(record.title.text());
        menu->setObjectName(QString::fromLatin1(record.name));
        for (const MenuEntry& entry : record.entries) addEntry(*menu, entry, type);
    }
}

}  // namespace kdhost
