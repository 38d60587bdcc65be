// How the dialog of table styles is wired, opened and closed. No failure of the host's is told: it ends the step that
// met it. The one message box is the question before a style is deleted.

#include "module/style/tablestyledlg.h"

#include "kd/ad/mainapp.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ui/hostdialogs.h"
#include "module/controls/wiring.h"
#include "module/core/drawingwalk.h"
#include "module/core/openobject.h"
#include "module/core/tablestyles.h"

namespace {

constexpr const char* kList = "IDC_TABLESTYLE_STYLE_LIST";
constexpr const char* kFilter = "IDC_TABLESTYLE_LIST_COMBOBOX";
constexpr const char* kPreview = "IDC_TABLESTYLE_PREVIEWPIC_STATIC";

}  // namespace

CVqTableStyleDlg::CVqTableStyleDlg(CWnd* parent) : KdUiBaseDialog(parent) {
    buildTree(*this, "IDD_TABLESTYLE_DIALOG");
}

CVqTableStyleDlg::~CVqTableStyleDlg() = default;

int CVqTableStyleDlg::SetDatabase(KdDbDatabase* database) {
    if (database == nullptr) return 0;
    m_pDatabase = database;
    return 1;
}

void CVqTableStyleDlg::bindSingals() {
    using Dialog = CVqTableStyleDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {"IDC_TABLESTYLE_CURSTYLE_BUTTON", ControlSignal::Clicked, &Dialog::OnCurrentStyleButton},
        {"IDC_TABLESTYLE_NEWSTYLE_BUTTON", ControlSignal::Clicked, &Dialog::OnNewStyleButton},
        {"IDC_TABLESTYLE_MODSTYLE_BUTTON", ControlSignal::Clicked, &Dialog::OnModifyStyleButton},
        {"IDC_TABLESTYLE_DELSTYLE_BUTTON", ControlSignal::Clicked, &Dialog::OnDeleteStyleButton},
        {"IDHELP", ControlSignal::Clicked, &Dialog::OnHelp},
        {"IDOK", ControlSignal::Clicked, &Dialog::OnClose},
        {kFilter, ControlSignal::SelectionChange, &Dialog::OnSelchangeListComboBox},
    };
    static constexpr NotificationWire<Dialog> kNotifications[] = {
        {kList, NM_RCLICK, &Dialog::OnNMRclickTablestyleList},
        {kList, LVN_ITEMCHANGED, &Dialog::OnItemchangedList},
    };
    connectControls(*this, kControls);
    connectNotifications(*this, kNotifications);
}

/// What no signal of the list carries comes by this way.
void CVqTableStyleDlg::OnListNotify(const char* control, NMHDR* header, LRESULT* result) {
    using Dialog = CVqTableStyleDlg;
    static constexpr ListNotificationWire<Dialog> kNotifications[] = {
        {kList, NM_CLICK, &Dialog::OnNMClickTablestyleList},
        {kList, NM_DBLCLK, &Dialog::OnNMDblclkTablestyleList},
        {kList, LVN_KEYDOWN, &Dialog::OnLvnKeydownTablestyleList},
        {kList, LVN_BEGINLABELEDIT, &Dialog::OnLvnBeginlabeleditTablestyleList},
        {kList, LVN_ENDLABELEDIT, &Dialog::OnLvnEndlabeleditTablestyleList},
    };
    dispatchListNotification(*this, kNotifications, control, header, result);
}

void CVqTableStyleDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kList, m_ctrlList);
    DDX_Control(exchange, kFilter, m_ctrlFilterCombo);
    DDX_Control(exchange, kPreview, m_ctrlPreview);
}

int CVqTableStyleDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    m_strCurrentStyle = currentTableStyleName();
    SetCurrentTableStyleTip();
    fillFilterCombo();
    LoadTableStyleFromDatabase();
    m_idPreviewStyle = getCurrentTableStyleId();
    initializeTablePreviewer();
    FillTableStyleNameList(m_nListFilter);
    ListSort();
    return 1;
}

/// The tables are gathered once: nothing can add one while the dialog is open.
int CVqTableStyleDlg::LoadTableStyleFromDatabase() {
    KdDbDictionary* styles = nullptr;
    if (m_pDatabase == nullptr || m_pDatabase->getTableStyleDictionary(styles, KdDb::kForRead) != Kdad::eOk) return 0;
    m_idDictionary = styles->objectId();
    styles->close();
    const bool read = visitEntities(m_pDatabase, [this](const KdDbEntity& entity) {
        if (!entity.isKindOf(KdDbTable::desc())) return;
        m_bHasTables = true;
        m_tableIds.append(entity.objectId());
    });
    return read ? 1 : 0;
}

namespace {

/// A table whose layer can't be read counts as one on a locked layer.
bool isOnUnlockedLayer(const KdDbEntity& entity) {
    const OpenObject<KdDbLayerTableRecord> layer(entity.layerId(), KdDb::kForRead);
    return layer && !layer->isLocked();
}

}  // namespace

/// Every table that may be changed is drawn afresh, whichever styles were.
void CVqTableStyleDlg::OnClose() {
    for (const KdDbObjectId id : m_tableIds) {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        if (table && isOnUnlockedLayer(*table)) table->recordGraphicsModified(true);
    }
    OnOK();
}

bool CVqTableStyleDlg::PreTranslateMessage(MSG* message) {
    return KdUiBaseDialog::PreTranslateMessage(message);
}

void CVqTableStyleDlg::OnCancel() {
    if (KdadMainAppService* service = vqcadMainAppService()) service->dialogCancelled();
    KdUiBaseDialog::OnCancel();
}

void CVqTableStyleDlg::OnHelp() {
    kdedHelp(nullptr, L"Tablestyle", 0);
}
