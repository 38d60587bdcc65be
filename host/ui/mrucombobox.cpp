// Boxes of recently used entries: what is chosen, what was chosen before, and the entry that asks.

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QListWidget>
#include <QSignalBlocker>
#include <array>

#include "host/ui/rowsamples.h"
#include "kd/ui/comboboxes.h"
#include "kd/ui/widgets.h"
#include "mfc/resource.h"
#include "win32/module.h"

namespace {

constexpr unsigned kListOpen = 0x20;
constexpr unsigned kChoosing = 0x40;

}  // namespace

/// Follows what the user does in the widget, as long as the wrapper holds it.
class CKdUiMRUComboBox::Watch : public QObject {
public:
    Watch(CKdUiMRUComboBox& box, QWidget* widget) : m_box(box) {
        if (auto* combo = qobject_cast<QComboBox*>(widget)) {
            connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { remember(); });
            connect(combo, QOverload<int>::of(&QComboBox::activated), this, [this] { m_box.chooseOtherOfUser(); });
            combo->view()->installEventFilter(this);
        }
        if (auto* combo = qobject_cast<KdUiComboBox*>(widget)) {
            connect(combo, &KdUiComboBox::boxDropdowm, this, [this] { m_box.m_dropFlags |= kListOpen | kChoosing; });
        }
        if (auto* list = qobject_cast<QListWidget*>(widget)) {
            connect(list, &QListWidget::currentRowChanged, this, [this] { remember(); });
            connect(list, &QListWidget::itemClicked, this, [this] { m_box.chooseOtherOfUser(); });
        }
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide) m_box.clearDropFlags(kListOpen | kChoosing);
        return QObject::eventFilter(watched, event);
    }

private:
    /// A handler of the dialog may have opened the other entry's dialog already: the row as it is now counts.
    void remember() {
        const int row = m_box.GetCurSel();
        if (!m_box.isOther(row)) m_box.m_lastSelection = row;
    }

    CKdUiMRUComboBox& m_box;
};

CKdUiMRUComboBox::CKdUiMRUComboBox() = default;

CKdUiMRUComboBox::~CKdUiMRUComboBox() = default;

bool CKdUiMRUComboBox::Create(QWidget* widget, unsigned control) {
    if (qobject_cast<QComboBox*>(widget) == nullptr && qobject_cast<QListWidget*>(widget) == nullptr) return false;
    Attach(widget);
    std::array<wchar_t, 1024> tip{};
    if (control != 0 && LoadStringW(AfxGetResourceHandle(), control, tip.data(), static_cast<int>(tip.size())) > 0) {
        widget->setToolTip(QString::fromWCharArray(tip.data()));
    }
    return true;
}

void CKdUiMRUComboBox::Attach(QWidget* widget) {
    m_watch.reset();
    m_dropFlags = 0;
    m_lastSelection = -1;
    CComboBox::Attach(widget);
    if (widget == nullptr) return;
    m_watch = std::make_unique<Watch>(*this, widget);
    AddItems();
}

void CKdUiMRUComboBox::AddItems() {
    if (widget() == nullptr) return;
    CStdStr<wchar_t> shown;
    GetLBText(GetCurSel(), shown);
    ResetContent();
    m_otherName = {};
    OnAddItems();
    m_otherName = GetOtherName();
    const int count = GetCount();
    for (int row = 0; row < count; ++row) DrawItemImage(row);
    const int again = shown.IsEmpty() ? -1 : FindOtherItem(shown);
    SetCurSel(again >= 0 ? again : 0);
}

int CKdUiMRUComboBox::SetCurSel(int row) {
    const QSignalBlocker quiet(widget());
    const int selected = CComboBox::SetCurSel(row);
    if (!isOther(selected)) m_lastSelection = selected;
    if (widget() != nullptr) widget()->update();
    return selected;
}

void CKdUiMRUComboBox::OnSelEndOk() {
    m_dropFlags &= ~kChoosing;
    const int row = GetCurSel();
    if (isOther(row)) {
        SelectOther(1);
    } else {
        m_lastSelection = row;
    }
}

void CKdUiMRUComboBox::OnCloseUp() {
    m_dropFlags &= ~kListOpen;
    if (GetDroppedState()) ShowDropDown(false);
}

CStdStr<wchar_t> CKdUiMRUComboBox::GetOtherName() const {
    return {};
}

bool CKdUiMRUComboBox::SelectOther(int flag) {
    if (m_asking) return false;
    m_asking = true;
    int row = m_lastSelection;
    const bool chosen = OnSelectOther(flag != 0, m_lastSelection, row);
    m_asking = false;
    SetCurSel(row);
    return chosen;
}

int CKdUiMRUComboBox::FindOtherItem(const wchar_t* text) const {
    const std::wstring wanted = text == nullptr ? L"" : text;
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        CStdStr<wchar_t> present;
        GetLBText(row, present);
        if (present == wanted) return row;
    }
    return -1;
}

bool CKdUiMRUComboBox::OnSelectOther(bool, int, int&) {
    return false;
}

void CKdUiMRUComboBox::DrawItemImage(int) {}

bool CKdUiMRUComboBox::isOther(int row) const {
    const CStdStr<wchar_t> other = GetOtherName();
    if (row < 0 || other.IsEmpty()) return false;
    CStdStr<wchar_t> text;
    GetLBText(row, text);
    return text == static_cast<const std::wstring&>(other);
}

CStdStr<wchar_t> CKdUiMRUComboBox::otherNameOr(const std::wstring& now) const {
    return m_otherName.IsEmpty() ? CStdStr<wchar_t>(now) : m_otherName;
}

void CKdUiMRUComboBox::chooseOtherOfUser() {
    OnSelEndOk();
    OnCloseUp();
}
