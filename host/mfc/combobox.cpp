// Combo boxes over QComboBox or, in its place, QListWidget.

#include "mfc/combobox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>

#include "host/mfc/qttext.h"

namespace {

using kdhost::qtText;

constexpr const char* kEditHeight = "editHeight";
constexpr const char* kItemHeight = "itemHeight";

/// As names are compared: the letters A to Z alone have a case.
bool isAlike(const QString& a, const QString& b) {
    return CStdStr<wchar_t>(a.toStdWString()).CompareNoCase(b.toStdWString().c_str()) == 0;
}

/// The rows of either widget, behind one face.
class Rows {
public:
    explicit Rows(const CWnd& wnd) : m_combo(wnd.widgetAs<QComboBox>()), m_list(wnd.widgetAs<QListWidget>()) {}

    bool exist() const { return m_combo != nullptr || m_list != nullptr; }
    int count() const { return m_combo != nullptr ? m_combo->count() : m_list != nullptr ? m_list->count() : 0; }
    bool has(int row) const { return row >= 0 && row < count(); }

    int current() const {
        return m_combo != nullptr ? m_combo->currentIndex() : m_list != nullptr ? m_list->currentRow() : -1;
    }
    void setCurrent(int row) {
        if (m_combo != nullptr) m_combo->setCurrentIndex(row);
        if (m_list != nullptr) m_list->setCurrentRow(row);
    }

    QString text(int row) const { return m_combo != nullptr ? m_combo->itemText(row) : m_list->item(row)->text(); }

    QVariant data(int row) const {
        return m_combo != nullptr ? m_combo->itemData(row) : m_list->item(row)->data(Qt::UserRole);
    }
    void setData(int row, const QVariant& data) {
        if (m_combo != nullptr) m_combo->setItemData(row, data);
        if (m_list != nullptr) m_list->item(row)->setData(Qt::UserRole, data);
    }

    /// 0 leaves the height to the widget.
    void setHeight(int row, int height) {
        if (height <= 0) return;
        if (m_combo != nullptr) m_combo->setItemData(row, QSize(0, height), Qt::SizeHintRole);
        if (m_list != nullptr) m_list->item(row)->setSizeHint(QSize(0, height));
    }

    /// What stands in the edit part of a box that has one.
    QString typedText() const {
        return m_combo != nullptr && m_combo->isEditable() ? m_combo->currentText() : QString();
    }
    void setTypedText(const QString& text) {
        if (m_combo != nullptr && m_combo->isEditable()) m_combo->setEditText(text);
    }

    void insert(int row, const QString& text) {
        if (m_combo != nullptr) m_combo->insertItem(row, text);
        if (m_list != nullptr) m_list->insertItem(row, text);
    }
    void remove(int row) {
        if (m_combo != nullptr) m_combo->removeItem(row);
        if (m_list != nullptr) delete m_list->takeItem(row);
    }
    void clear() {
        if (m_combo != nullptr) m_combo->clear();
        if (m_list != nullptr) m_list->clear();
    }

    QWidget* widget() const { return m_combo != nullptr ? static_cast<QWidget*>(m_combo) : m_list; }

private:
    QComboBox* m_combo;
    QListWidget* m_list;
};

/// The first row behind `start`, around the end, whose text fits; -1 when none does.
template <class Fits>
int findRow(const Rows& rows, int start, Fits fits) {
    const int count = rows.count();
    const int from = std::clamp(start, -1, count - 1) + 1;
    for (int i = 0; i < count; ++i) {
        const int row = (from + i) % count;
        if (fits(rows.text(row))) return row;
    }
    return -1;
}

}  // namespace

int CComboBox::GetCount() const {
    return Rows(*this).count();
}

int CComboBox::GetCurSel() const {
    return Rows(*this).current();
}

int CComboBox::SetCurSel(int row) {
    Rows rows(*this);
    if (!rows.exist()) return -1;
    const int selected = rows.has(row) ? row : -1;
    rows.setCurrent(selected);
    return selected;
}

int CComboBox::AddString(const wchar_t* text) {
    return InsertString(-1, text);
}

int CComboBox::InsertString(int row, const wchar_t* text) {
    Rows rows(*this);
    if (!rows.exist()) return -1;
    const int place = row < 0 || row > rows.count() ? rows.count() : row;
    const int current = rows.current();
    // A box into which a first row comes shows no row until one is chosen; other rows keep their choice, and
    // an edit part what was typed.
    const QSignalBlocker quiet(rows.widget());
    const QString typed = rows.typedText();
    rows.insert(place, qtText(text));
    rows.setHeight(place, rows.widget()->property(kItemHeight).toInt());
    rows.setCurrent(current >= place ? current + 1 : current);
    rows.setTypedText(typed);
    return place;
}

int CComboBox::DeleteString(int row) {
    Rows rows(*this);
    if (!rows.has(row)) return -1;
    const int current = rows.current();
    const QSignalBlocker quiet(rows.widget());
    rows.remove(row);
    rows.setCurrent(current == row ? -1 : current > row ? current - 1 : current);
    return rows.count();
}

void CComboBox::ResetContent() {
    Rows rows(*this);
    if (!rows.exist()) return;
    const QSignalBlocker quiet(rows.widget());
    rows.clear();
}

int CComboBox::FindString(int start, const wchar_t* text) const {
    const QString wanted = qtText(text);
    return findRow(Rows(*this), start, [&](const QString& row) { return isAlike(row.left(wanted.size()), wanted); });
}

int CComboBox::FindStringExact(int start, const wchar_t* text) const {
    const QString wanted = qtText(text);
    return findRow(Rows(*this), start, [&](const QString& row) { return isAlike(row, wanted); });
}

void CComboBox::GetLBText(int row, CStdStr<wchar_t>& text) const {
    const Rows rows(*this);
    text = rows.has(row) ? rows.text(row).toStdWString() : std::wstring();
}

std::int64_t CComboBox::GetItemData(int row) const {
    const Rows rows(*this);
    return rows.has(row) ? rows.data(row).toLongLong() : 0;
}

void CComboBox::SetItemData(int row, std::int64_t data) {
    Rows rows(*this);
    if (rows.has(row)) rows.setData(row, QVariant::fromValue<qlonglong>(data));
}

void CComboBox::ShowDropDown(bool show) {
    auto* combo = widgetAs<QComboBox>();
    if (combo == nullptr) return;
    if (show) {
        combo->showPopup();
    } else {
        combo->hidePopup();
    }
}

bool CComboBox::GetDroppedState() const {
    const auto* combo = widgetAs<QComboBox>();
    return combo != nullptr && combo->view()->isVisible();
}

int CComboBox::SetItemHeight(int row, unsigned height) {
    Rows rows(*this);
    if (!rows.exist()) return -1;
    QWidget& box = *rows.widget();
    const int pixels = static_cast<int>(height);
    if (row < 0) {
        box.setProperty(kEditHeight, pixels);
        const int frame = box.style()->pixelMetric(QStyle::PM_ComboBoxFrameWidth, nullptr, &box);
        if (widgetAs<QComboBox>() != nullptr) box.setMinimumHeight(pixels + 2 * frame);
        return 0;
    }
    box.setProperty(kItemHeight, pixels);
    for (int each = 0; each < rows.count(); ++each) rows.setHeight(each, pixels);
    return 0;
}

unsigned CComboBox::GetItemHeight(int row) const {
    return widget() == nullptr ? 0 : widget()->property(row < 0 ? kEditHeight : kItemHeight).toUInt();
}
