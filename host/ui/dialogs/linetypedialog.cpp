// The line type dialog, and the loading of standard patterns.

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/linetypes.h"
#include "host/ui/rowsamples.h"
#include "kd/db/database.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

QListWidget* listOf(QWidget* parent, const char* name) {
    auto* list = new QListWidget(parent);
    nameControl(list, name);
    list->setIconSize(sampleSize(*list, SampleStyle::Linetype));
    constexpr int characters = 60;
    constexpr int rows = 14;
    const QFontMetrics metrics = list->fontMetrics();
    list->setMinimumSize(metrics.averageCharWidth() * characters, metrics.height() * rows);
    return list;
}

void addRow(QListWidget& list, const std::wstring& shown, const LinetypeEntry& entry) {
    auto* item = new QListWidgetItem(linetypeSample(&list, entry.dashes), QString::fromStdWString(shown), &list);
    item->setToolTip(QString::fromStdWString(entry.comments));
}

/// Several patterns may be chosen at once.
class LoadDialog : public HostDialog {
public:
    explicit LoadDialog(QWidget* parent) : HostDialog("LinetypeLoadDialog", HostText::LinetypeLoadTitle, parent) {
        m_list = listOf(this, "IDC_LINETYPE_PATTERN_LIST");
        m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        for (const LinetypeEntry& pattern : standardLinetypes()) addRow(*m_list, pattern.name, pattern);
        m_list->setCurrentRow(0);
        connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
        content()->addWidget(labelFor(m_list, HostText::LinetypePatterns));
        content()->addWidget(m_list);
        addButtons();
        m_list->setFocus();
    }

    std::vector<LinetypeEntry> chosen() const {
        std::vector<LinetypeEntry> patterns;
        for (int row = 0; row < m_list->count(); ++row) {
            if (m_list->item(row)->isSelected()) patterns.push_back(standardLinetypes()[static_cast<std::size_t>(row)]);
        }
        return patterns;
    }

private:
    QListWidget* m_list;
};

/// Patterns that were loaded stay in the drawing when the dialog is cancelled.
class LinetypeDialog : public HostDialog {
public:
    LinetypeDialog(KdDbDatabase& database, KdDbObjectId shown, QWidget* parent)
        : HostDialog("LinetypeDialog", HostText::LinetypeTitle, parent), m_database(database) {
        m_list = listOf(this, "IDC_LINETYPE_LIST");
        connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
        content()->addWidget(labelFor(m_list, HostText::LinetypeList));
        content()->addWidget(m_list);
        auto* row = new QHBoxLayout;
        QPushButton* load = addButton(row, "IDC_LINETYPE_LOAD_BUTTON", HostText::LinetypeLoad);
        load->setAutoDefault(false);
        connect(load, &QPushButton::clicked, this, [this] { this->load(); });
        row->addStretch();
        content()->addLayout(row);
        addButtons();
        fill(shown);
        m_list->setFocus();
    }

    /// Null when no row is chosen.
    KdDbObjectId chosen() const {
        const int row = m_list->currentRow();
        return row < 0 ? KdDbObjectId() : m_entries[static_cast<std::size_t>(row)].id;
    }

private:
    void fill(KdDbObjectId shown) {
        m_entries = linetypesOf(&m_database);
        m_list->clear();
        for (const LinetypeEntry& entry : m_entries) addRow(*m_list, shownName(entry, m_database), entry);
        const auto at = std::find_if(m_entries.begin(), m_entries.end(),
                                     [&](const LinetypeEntry& entry) { return entry.id == shown; });
        m_list->setCurrentRow(at == m_entries.end() ? 0 : static_cast<int>(at - m_entries.begin()));
    }

    void load() {
        LoadDialog dialog(this);
        if (!dialog.run()) return;
        KdDbObjectId last = chosen();
        for (const LinetypeEntry& pattern : dialog.chosen()) {
            const KdDbObjectId loaded = loadLinetype(m_database, pattern);
            if (!loaded.isNull()) last = loaded;
        }
        fill(last);
        m_list->setFocus();
    }

    bool commit() override { return !chosen().isNull(); }

    KdDbDatabase& m_database;
    std::vector<LinetypeEntry> m_entries;
    QListWidget* m_list;
};

}  // namespace
}  // namespace kdhost

bool kdedLinetypeDialog(KdDbDatabase* database, KdDbObjectId& linetype) {
    if (database == nullptr) return false;
    kdhost::LinetypeDialog dialog(*database, linetype, kdhost::HostDialog::windowBelow());
    if (!dialog.run()) return false;
    linetype = dialog.chosen();
    return true;
}
