// Names of new styles: the proposal, what is refused, and the dialog around both.

#include "module/style/stylenamingdlg.h"

#include "kd/ui/hostdialogs.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"

namespace {

constexpr unsigned kFirstCopyText = 2042;
constexpr unsigned kNumberedCopyText = 2043;

/// The prefix of the n-th copy.
CStdStr<wchar_t> numberedCopy(int number) {
    CStdStr<wchar_t> prefix;
    prefix.Format(loadText(kNumberedCopyText), number);
    return prefix;
}

}  // namespace

CVqStyleNamingDlg::CVqStyleNamingDlg(const StyleNaming& naming, CWnd* parent)
    : KdUiBaseDialog(parent), m_naming(naming) {
    buildTree(*this, naming.dialog);
}

void CVqStyleNamingDlg::bindSingals() {
    const ControlWire<CVqStyleNamingDlg> controls[] = {
        {"IDOK", ControlSignal::Clicked, &CVqStyleNamingDlg::OnOk},
        {"IDHELP", ControlSignal::Clicked, &CVqStyleNamingDlg::OnHelp},
        {m_naming.startBox, ControlSignal::SelectionChange, &CVqStyleNamingDlg::OnSelStartwithComboBox},
        {m_naming.nameEdit, ControlSignal::TextChanged, &CVqStyleNamingDlg::OnChangeNewNameEdit},
    };
    connectControls(*this, controls);
}

void CVqStyleNamingDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, m_naming.startBox, m_startBox);
    DDX_Control(exchange, m_naming.nameEdit, m_nameEdit);
    DDX_Text(exchange, m_naming.nameEdit, m_strNewName);
}

int CVqStyleNamingDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    FillStartWithComboBox();
    SetNewStyleName(true);
    m_bTrackEdit = true;
    GetWindowRect(m_windowRect);
    return 1;
}

void CVqStyleNamingDlg::FillStartWithComboBox() {
    for (const CStdStr<wchar_t>& name : m_names) m_startBox.AddString(name);
    m_startBox.SetCurSel(m_startBox.FindStringExact(0, m_strStartWith));
}

void CVqStyleNamingDlg::OnChangeNewNameEdit() {
    if (m_bTrackEdit) m_bNameEdited = true;
}

void CVqStyleNamingDlg::OnSelStartwithComboBox() {
    m_bTrackEdit = false;
    // A name that the user has touched is never overwritten.
    if (!m_bNameEdited) SetNewStyleName(true);
    m_bTrackEdit = true;
}

void CVqStyleNamingDlg::OnHelp() {
    if (m_naming.helpTopic != nullptr) kdedHelp(nullptr, m_naming.helpTopic, 0);
}

void CVqStyleNamingDlg::OnOk() {
    const CStdStr<wchar_t> name = GetNewStyleName();
    if (const unsigned objection = objectionTo(name); objection != 0) {
        refuse(objection);
        return;
    }
    SetNewStyleName(false);
    OnOK();
}

unsigned CVqStyleNamingDlg::objectionTo(const CStdStr<wchar_t>& name) const {
    if (name.empty()) return m_naming.emptyText;
    if (FindStyleName(name)) return m_naming.existsText;
    if (!CVqTableCommon::CheckStyleNameValid(name)) return m_naming.invalidText;
    if (m_naming.longestName != 0 && name.size() > m_naming.longestName) return m_naming.tooLongText;
    return 0;
}

void CVqStyleNamingDlg::refuse(unsigned textNumber) {
    MessageBoxW(loadText(textNumber), GetOemProductName(), MB_OK | MB_ICONWARNING);
    m_nameEdit.SetSel(0, -1);
    m_nameEdit.SetFocus();
}

CStdStr<wchar_t> CVqStyleNamingDlg::BuildNewStyleName(const CStdStr<wchar_t>& start) const {
    const CStdStr<wchar_t> firstCopy = loadText(kFirstCopyText);
    // A copy of a first copy is numbered; every other start, one with the prefix in its middle too, gets the
    // prefix.
    const bool isFirstCopy = start.starts_with(firstCopy.c_str());
    const CStdStr<wchar_t> base = isFirstCopy ? CStdStr<wchar_t>(start.substr(firstCopy.size())) : start;

    int number = 2;
    CStdStr<wchar_t> name = isFirstCopy ? numberedCopy(number++) + base : firstCopy + start;
    while (FindStyleName(name)) {
        const CStdStr<wchar_t> next = numberedCopy(number++) + base;
        if (next == name) break;  // the text has lost its number: there is no free name to find
        name = next;
    }
    return name;
}

bool CVqStyleNamingDlg::FindStyleName(const CStdStr<wchar_t>& name) const {
    for (int row = 0; row < m_startBox.GetCount(); ++row) {
        CStdStr<wchar_t> listed;
        m_startBox.GetLBText(row, listed);
        if (listed.CompareNoCase(name) == 0) return true;
    }
    return false;
}

void CVqStyleNamingDlg::SetNewStyleName(bool show) {
    const CStdStr<wchar_t> start = m_naming.startsFromRow ? selectedRowText() : startBoxText();
    if (m_naming.startsFromRow) m_strStartWith = start;
    const CStdStr<wchar_t> name = BuildNewStyleName(start);
    if (show) m_nameEdit.SetWindowTextW(name);
}

CStdStr<wchar_t> CVqStyleNamingDlg::GetNewStyleName() {
    UpdateData(true);
    m_strNewName.Trim();
    return m_strNewName;
}

CStdStr<wchar_t> CVqStyleNamingDlg::selectedRowText() const {
    CStdStr<wchar_t> text;
    m_startBox.GetLBText(m_startBox.GetCurSel(), text);
    return text;
}

CStdStr<wchar_t> CVqStyleNamingDlg::startBoxText() const {
    CStdStr<wchar_t> text;
    m_startBox.GetWindowTextW(text);
    return text;
}
