// The menus of the main window.

#include "host/app/window/menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "host/rx/commandstack.h"

namespace kdhost {
namespace {

constexpr MenuEntry kSeparator{nullptr, {L"", L""}, nullptr};

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
    QAction* action = menu.addAction(QString::fromWCharArray(entry.text.text()));
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
         {L"&File", L"文件(&F)"},
         {{"FileNew", {L"&New", L"新建(&N)"}, L"_NEW\n", "Ctrl+N"},
          {"FileOpen", {L"&Open...", L"打开(&O)..."}, L"_OPEN\n", "Ctrl+O"},
          {"FileSave", {L"&Save", L"保存(&S)"}, L"_SAVE\n", "Ctrl+S"},
          {"FileSaveAs", {L"Save &As...", L"另存为(&A)..."}, L"_SAVEAS\n", "Ctrl+Shift+S"},
          kSeparator,
          {"FileExportPng", {L"Export &PNG...", L"输出 PNG(&P)..."}, L"_EXPORTPNG\n"},
          {"FileExportSvg", {L"Export S&VG...", L"输出 SVG(&V)..."}, L"_EXPORTSVG\n"},
          {"FilePrintPdf", {L"Print to P&DF...", L"打印到 PDF(&D)..."}, L"_PRINTPDF\n", "Ctrl+P"},
          kSeparator,
          {"FileClose", {L"&Close", L"关闭(&C)"}, L"_CLOSE\n\n", "Ctrl+W"},
          {"FileQuit", {L"&Quit", L"退出(&Q)"}, L"_QUIT\n", "Ctrl+Q"}}},
        {"EditMenu",
         {L"&Edit", L"编辑(&E)"},
         {{"EditUndo", {L"&Undo", L"放弃(&U)"}, L"_U\n", "Ctrl+Z"},
          {"EditRedo", {L"&Redo", L"重做(&R)"}, L"_REDO\n", "Ctrl+Y"},
          kSeparator,
          {"EditErase", {L"&Erase", L"删除(&E)"}, L"_ERASE\n"}}},
        {"ViewMenu",
         {L"&View", L"视图(&V)"},
         {{"ViewZoomIn", {L"Zoom &In", L"放大(&I)"}, L"_ZOOM 2x\n", "Ctrl++"},
          {"ViewZoomOut", {L"Zoom &Out", L"缩小(&O)"}, L"_ZOOM 0.5x\n", "Ctrl+-"},
          {"ViewZoomExtents", {L"Zoom &Extents", L"范围缩放(&E)"}, L"_ZOOM _Extents\n", "Ctrl+0"},
          {"ViewZoomWindow", {L"Zoom &Window", L"窗口缩放(&W)"}, L"_ZOOM _Window\n"},
          kSeparator,
          {"ViewRegen", {L"&Regenerate", L"重生成(&R)"}, L"_REGEN\n"}}},
        {"DrawMenu",
         {L"&Draw", L"绘图(&D)"},
         {{"DrawLine", {L"&Line", L"直线(&L)"}, L"_LINE\n"},
          {"DrawTable", {L"&Table...", L"表格(&T)..."}, L"_TABLE\n"},
          kSeparator,
          {"DrawMakeBlock", {L"Make &Block", L"创建块(&B)"}, L"_BLOCK\n"},
          {"DrawInsertBlock", {L"&Insert Block", L"插入块(&I)"}, L"_INSERT\n"}}},
        {"ModifyMenu",
         {L"&Modify", L"修改(&M)"},
         {{"ModifyErase", {L"&Erase", L"删除(&E)"}, L"_ERASE\n"},
          {"ModifyList", {L"&List", L"列表(&L)"}, L"_LIST\n"},
          kSeparator,
          {"ModifyLayer", {L"La&yer", L"图层(&Y)"}, L"_LAYER\n"},
          {"ModifyUcs", {L"&User Coordinate System", L"用户坐标系(&U)"}, L"_UCS\n"},
          {"ModifySetvar", {L"Set &Variable", L"设置变量(&V)"}, L"_SETVAR\n"}}},
        {"TableMenu",
         {L"&Table", L"表格(&T)"},
         {{"TableInsert", {L"&Insert Table...", L"插入表格(&I)..."}, L"_TABLE\n"},
          {"TableStyle", {L"Table &Style...", L"表格样式(&S)..."}, L"_TABLESTYLE\n"},
          kSeparator,
          {"TableImport", {L"I&mport CSV", L"输入 CSV(&M)"}, L"_TABLEIMPORT\n"},
          {"TableExport", {L"E&xport Table...", L"输出表格(&X)..."}, L"_TABLEEXPORT\n"},
          kSeparator,
          {"TableCell", {L"Edit &Cell", L"编辑单元(&C)"}, L"_EDITTABLECELL\n"},
          {"TableText", {L"Edit &Text in Place", L"在位编辑文字(&T)"}, L"_TABLEDIT\n"}}},
        {"LanguageMenu",
         {L"&Language", L"语言(&L)"},
         {{"LanguageEnglish", {L"&English", L"&English"}, L"_LANGUAGE _English\n"},
          {"LanguageChinese", {L"中文(&C)", L"中文(&C)"}, L"_LANGUAGE _Chinese\n"}}},
        {"HelpMenu", {L"&Help", L"帮助(&H)"}, {{"HelpContents", {L"&Contents", L"内容(&C)"}, L"_HELP\n", "F1"}}},
    };
    return records;
}

void buildMenus(QMenuBar& bar, const std::function<void(const std::wstring&)>& type) {
    for (const MenuRecord& record : menuRecords()) {
        QMenu* menu = bar.addMenu(QString::fromWCharArray(record.title.text()));
        menu->setObjectName(QString::fromLatin1(record.name));
        for (const MenuEntry& entry : record.entries) addEntry(*menu, entry, type);
    }
}

}  // namespace kdhost
