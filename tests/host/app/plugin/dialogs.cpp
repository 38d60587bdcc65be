// A module whose commands open every kind of window that a script can act on, and tell what came of it on the
// command line.

#include <QMenu>
#include <cstdint>
#include <memory>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/value.h"
#include "kd/ed/prompts.h"
#include "kd/rx/commandstack.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"
#include "kd/ui/basedialog.h"
#include "kd/ui/hostdialogs.h"
#include "kd/ui/uicreator.h"
#include "kd/ui/widgets.h"
#include "mfc/combobox.h"
#include "mfc/listctrl.h"

namespace {

void tell(const std::wstring& text) {
    kdedPrompt((L"\n" + text).c_str());
}

KdDbDatabase* drawing() {
    return kddbHostApplicationServices()->workingDatabase();
}

/// Shows all kinds of controls. Its action button opens a dialog of the same kind over it, down to the third,
/// where it asks in a message box; so does OK of each while its edit is empty.
class EveryControl : public KdUiBaseDialog {
public:
    EveryControl(int level, CWnd* parent) : KdUiBaseDialog(parent), m_level(level) {
        if (generateUICtrls("KdUiTests", "BASE_ALL")) KdUiBaseDialog::bindSingals();
        connectControl("IDC_ACTION", "clicked()", [this] { goDeeper(); });
        m_combo.Attach(getWidgetsFromOrignal("IDC_COMBO"));
        m_list.Attach(getWidgetsFromOrignal("IDC_LIST"));
        for (const wchar_t* text : {L"red", L"green", L"blue"}) {
            m_combo.AddString(text);
            m_list.InsertItem(m_list.GetItemCount(), text);
        }
        getWidgetsFromOrignal("IDC_LIST")->setMinimumHeight(140);
        constexpr int kWithArrow = 6;
        qobject_cast<KdUiPushButton*>(getWidgetsFromOrignal("IDC_PICTURE"))->setButtonStyle(kWithArrow);
        connectControl("IDC_PICTURE", "clicked()", [] { tell(L"picture"); });
        connectControl("IDC_PICTURE", "clickedEventEx()", [this] { showRowMenu(); });
    }

    void run() {
        const int result = DoModal();
        tell(L"level " + std::to_wstring(m_level) + (result == IDOK ? L" OK " : L" cancelled ") + text());
    }

    void OnOK() override {
        if (!text().empty()) return KdUiBaseDialog::OnOK();
        MessageBoxW(L"A text is needed.\nType one.", GetOemProductName(), MB_OK | MB_ICONWARNING);
        GotoDlgCtrl(GetDlgItem("IDC_EDIT"));
    }

    void OnListNotify(const char*, NMHDR* header, LRESULT* result) override {
        if (header->code == LVN_ENDLABELEDIT) *result = takeLabel(reinterpret_cast<const NMLVDISPINFO&>(*header));
        if (header->code == NM_RCLICK) showRowMenu();
    }

private:
    /// 1 to let the row show what was typed.
    static LRESULT takeLabel(const NMLVDISPINFO& label) {
        tell(label.pszText == nullptr ? L"label given up" : std::wstring(L"label ") + label.pszText);
        return 1;
    }

    std::wstring text() {
        CStdStr<wchar_t> text;
        GetDlgItem("IDC_EDIT")->GetWindowTextW(text);
        return text.c_str();
    }

    void goDeeper() {
        constexpr int kDeepest = 3;
        if (m_level < kDeepest) {
            EveryControl(m_level + 1, this).run();
        } else {
            tell(L"answer " + std::to_wstring(MessageBoxW(L"Deep enough?", GetOemProductName(), MB_YESNOCANCEL)));
        }
    }

    void showRowMenu() {
        VqUICreator creator(this, QStringLiteral("KdUiTests"), 3);
        if (!creator.generate(QStringLiteral("BASE_MENU"))) return;
        connect(creator.action(QStringLiteral("IDR_FIRST")), &QAction::triggered, this,
                [this] { m_list.EditLabel(1); });
        connect(creator.action(QStringLiteral("IDR_DEEP")), &QAction::triggered, this, [this] { goDeeper(); });
        creator.action(QStringLiteral("IDR_SECOND"))->setEnabled(false);
        qobject_cast<QMenu*>(creator.widgets().first())->exec(QPoint(20, 20));
    }

    int m_level;
    CComboBox m_combo;
    CListCtrl m_list;
};

void showDialogs() {
    EveryControl(1, nullptr).run();
}

void chooseColor() {
    KdCmColor color = KdCmColor::fromIndex(1);
    if (!kdedSetColorDialogTrueColor(color, true, KdCmColor::fromIndex(3))) return tell(L"no colour");
    tell(color.isByLayer()   ? L"bylayer"
         : color.isByBlock() ? L"byblock"
         : color.isNone()    ? L"none"
         : color.isByACI()   ? std::to_wstring(color.colorIndex())
                             : std::to_wstring(color.red()) + L"," + std::to_wstring(color.green()) + L"," +
                                 std::to_wstring(color.blue()));
}

void chooseLinetype() {
    KdDbObjectId linetype = drawing()->continuousLinetype();
    if (!kdedLinetypeDialog(drawing(), linetype)) return tell(L"no line type");
    KdDbObject* object = nullptr;
    if (kddbOpenObject(object, linetype, KdDb::kForRead) != Kdad::eOk) return;
    std::wstring name;
    static_cast<KdDbSymbolTableRecord*>(object)->getName(name);
    object->close();
    tell(L"line type " + name);
}

void chooseTextStyle() {
    CStdStr<wchar_t> name = L"Standard";
    const bool chosen = invokeTextStyleDialog(drawing(), &name);
    tell((chosen ? L"text style " : L"no text style ") + std::wstring(name.c_str()));
}

void chooseFormat() {
    const auto value = std::make_unique<KdValue>();
    value->set(845.34786);
    KdValue* given = value.get();
    if (VqFdUiInvokeDataTypeDialog(given, drawing(), nullptr) != 0) return tell(L"no format");
    tell(L"type " + std::to_wstring(value->dataType()) + L" format " + value->getFormat());
}

void ask() {
    tell(L"answer " + std::to_wstring(AfxMessageBox(L"Is it so?", MB_YESNO | MB_ICONQUESTION)));
}

struct Command {
    const wchar_t* name;
    KdEdCommandFunction function;
};

constexpr Command kCommands[] = {
    {L"SHOWDIALOGS", showDialogs},         {L"CHOOSECOLOR", chooseColor},   {L"CHOOSELINETYPE", chooseLinetype},
    {L"CHOOSETEXTSTYLE", chooseTextStyle}, {L"CHOOSEFORMAT", chooseFormat}, {L"ASK", ask},
};

constexpr const wchar_t* kGroup = L"TEST_DIALOGS";

KdEdCommandStack* commands() {
    return KdRxObject::cast<KdEdCommandStack>(kdrxSysRegistry()->at(L"KDAD_REGISTERED_COMMANDS"));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) std::intptr_t kdrxEntryPoint(std::uint32_t message, void* argument) {
    if (message == KdRx::kInitAppMsg) {
        KdRxObject::cast<KdRxDynamicLinker>(kdrxSysRegistry()->at(L"DynamicLinker"))->allowUnload(argument);
        for (const Command& command : kCommands) {
            commands()->addCommand(kGroup, command.name, command.name, 0, command.function, nullptr, -1, nullptr,
                                   nullptr);
        }
        if (qEnvironmentVariableIsSet("KD_TEST_ASK_AT_START")) ask();
    }
    if (message == KdRx::kUnloadAppMsg) {
        if (qEnvironmentVariableIsSet("KD_TEST_ASK_AT_END")) ask();
        commands()->removeGroup(kGroup);
    }
    return 0;
}

__attribute__((visibility("default"))) std::uint32_t kdrxGetApiVersion() {
    return 0x7E50000;
}
}
