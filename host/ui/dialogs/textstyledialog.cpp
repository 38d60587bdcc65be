// The text style dialog. Making, renaming, deleting and setting current act at once; the values of a style are
// written when another one is shown, with Apply and with OK. Cancel leaves what was not written yet.

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "host/db/names.h"
#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/dialogs/textstyles.h"
#include "kd/db/database.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

// Widths in characters.
constexpr int kNarrowestList = 24;
constexpr int kWidestList = 60;
constexpr int kNameWidth = 36;

/// Asks for the name of a style; what it may not be is told while the dialog stays open.
class NameDialog : public HostDialog {
public:
    using Attempt = std::function<TextStyles::Refusal(const std::wstring&)>;

    NameDialog(HostText title, const std::wstring& proposal, Attempt attempt, QWidget* parent)
        : HostDialog("TextStyleNameDialog", title, parent), m_attempt(std::move(attempt)) {
        setWindowTitle(withoutMnemonic(hostText(title)).remove(QStringLiteral("...")));
        m_edit = new QLineEdit(QString::fromStdWString(proposal), this);
        nameControl(m_edit, "IDC_TEXTSTYLE_NAME_EDIT");
        m_edit->selectAll();
        m_edit->setMinimumWidth(fontMetrics().averageCharWidth() * kNameWidth);
        auto* form = new QFormLayout;
        form->addRow(labelFor(m_edit, HostText::TextStyleName), m_edit);
        content()->addLayout(form);
        addButtons();
        m_edit->setFocus();
    }

    std::wstring name() const { return m_edit->text().trimmed().toStdWString(); }

private:
    bool commit() override {
        const TextStyles::Refusal refusal = m_attempt(name());
        if (refusal) refuse(*refusal, m_edit);
        return !refusal;
    }

    Attempt m_attempt;
    QLineEdit* m_edit;
};

class TextStyleDialog : public HostDialog {
public:
    TextStyleDialog(KdDbDatabase& database, const std::wstring& shown, QWidget* parent)
        : HostDialog("TextStyleDialog", HostText::TextStyleTitle, parent), m_styles(database) {
        m_current = new QLabel(this);
        nameControl(m_current, "IDC_TEXTSTYLE_CURRENT_STATIC");
        m_list = new QListWidget(this);
        nameControl(m_list, "IDC_TEXTSTYLE_LIST");
        auto* columns = new QGridLayout;
        columns->addWidget(labelFor(m_list, HostText::TextStyleList), 0, 0);
        columns->addWidget(m_list, 1, 0);
        columns->addLayout(valuesColumn(), 1, 1);
        columns->addLayout(buttonsColumn(), 1, 2);
        columns->setHorizontalSpacing(2 * columns->horizontalSpacing());
        columns->setColumnStretch(1, 1);
        content()->addWidget(m_current);
        content()->addLayout(columns);
        addButtons();
        fill(m_styles.find(shown).isNull() ? m_styles.current() : shown);
        connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) { rowChanged(row); });
        m_list->setFocus();
    }

    /// The style that is shown.
    const std::wstring& shown() const { return m_shown; }

private:
    QFormLayout* valuesColumn() {
        auto* form = new QFormLayout;
        m_font = new QComboBox(this);
        m_font->setEditable(true);
        m_font->addItems(QFontDatabase().families());
        m_bold = new QCheckBox(hostText(HostText::TextStyleBold), this);
        m_italic = new QCheckBox(hostText(HostText::TextStyleItalic), this);
        m_height = new QLineEdit(this);
        m_width = new QLineEdit(this);
        m_sample = new QLabel(hostText(HostText::TextStyleSample), this);
        m_sample->setMinimumHeight(fontMetrics().height() * 3);
        m_sample->setAlignment(Qt::AlignCenter);
        m_sample->setFrameShape(QFrame::StyledPanel);
        m_sample->setBackgroundRole(QPalette::Base);
        m_sample->setAutoFillBackground(true);
        nameControl(m_font, "IDC_TEXTSTYLE_FONT_COMBOBOX");
        nameControl(m_bold, "IDC_TEXTSTYLE_BOLD_CHECK", withoutMnemonic(m_bold->text()));
        nameControl(m_italic, "IDC_TEXTSTYLE_ITALIC_CHECK", withoutMnemonic(m_italic->text()));
        nameControl(m_height, "IDC_TEXTSTYLE_HEIGHT_EDIT");
        nameControl(m_width, "IDC_TEXTSTYLE_WIDTH_EDIT");
        nameControl(m_sample, "IDC_TEXTSTYLE_SAMPLE_STATIC", m_sample->text());
        form->addRow(labelFor(m_font, HostText::TextStyleFont), m_font);
        form->addRow(QString(), m_bold);
        form->addRow(QString(), m_italic);
        form->addRow(labelFor(m_height, HostText::TextStyleHeight), m_height);
        form->addRow(labelFor(m_width, HostText::TextStyleWidth), m_width);
        form->addRow(m_sample);
        connect(m_font, &QComboBox::currentTextChanged, this, [this] { showSample(); });
        connect(m_bold, &QCheckBox::toggled, this, [this] { showSample(); });
        connect(m_italic, &QCheckBox::toggled, this, [this] { showSample(); });
        connect(m_width, &QLineEdit::textChanged, this, [this] { showSample(); });
        return form;
    }

    QVBoxLayout* buttonsColumn() {
        struct Action {
            const char* name;
            HostText text;
            void (TextStyleDialog::*act)();
        };
        static constexpr Action kActions[] = {
            {"IDC_TEXTSTYLE_SETCURRENT_BUTTON", HostText::TextStyleSetCurrent, &TextStyleDialog::setCurrent},
            {"IDC_TEXTSTYLE_NEW_BUTTON", HostText::TextStyleNew, &TextStyleDialog::create},
            {"IDC_TEXTSTYLE_RENAME_BUTTON", HostText::TextStyleRename, &TextStyleDialog::rename},
            {"IDC_TEXTSTYLE_DELETE_BUTTON", HostText::TextStyleDelete, &TextStyleDialog::remove},
            {"IDC_TEXTSTYLE_APPLY_BUTTON", HostText::Apply, &TextStyleDialog::apply},
        };
        auto* column = new QVBoxLayout;
        for (const Action& action : kActions) {
            auto* row = new QHBoxLayout;
            QPushButton* button = addButton(row, action.name, action.text);
            button->setAutoDefault(false);
            connect(button, &QPushButton::clicked, this, [this, act = action.act] { (this->*act)(); });
            column->addLayout(row);
        }
        column->addStretch();
        return column;
    }

    void fill(const std::wstring& shown) {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        int shownRow = 0;
        for (const std::wstring& name : m_styles.names()) {
            if (sameName(name, shown)) shownRow = m_list->count();
            m_list->addItem(QString::fromStdWString(name));
        }
        showWholeNames();
        m_list->setCurrentRow(shownRow);
        show(m_list->currentItem() == nullptr ? std::wstring() : m_list->currentItem()->text().toStdWString());
    }

    /// The list is as wide as its names, up to a width that leaves room for the rest of the screen.
    void showWholeNames() {
        const int character = fontMetrics().averageCharWidth();
        const int frame = 2 * m_list->frameWidth() + m_list->verticalScrollBar()->sizeHint().width();
        m_list->setFixedWidth(
            std::clamp(m_list->sizeHintForColumn(0) + frame, character * kNarrowestList, character * kWidestList));
    }

    void show(const std::wstring& name) {
        m_shown = name;
        const TextStyleValues values = m_styles.values(name).value_or(TextStyleValues{});
        m_font->setCurrentText(QString::fromStdWString(values.font));
        m_bold->setChecked(values.bold);
        m_italic->setChecked(values.italic);
        m_height->setText(QString::number(values.height, 'g', 12));
        m_width->setText(QString::number(values.widthFactor, 'g', 12));
        m_current->setText(hostText(HostText::TextStyleCurrent).arg(QString::fromStdWString(m_styles.current())));
        showSample();
    }

    /// A text that is no number counts as one that is refused.
    TextStyleValues typed() const {
        const auto number = [](const QLineEdit& edit) {
            bool read = false;
            const double value = edit.text().trimmed().toDouble(&read);
            return read ? value : -1.0;
        };
        return {m_font->currentText().trimmed().toStdWString(), m_bold->isChecked(), m_italic->isChecked(),
                number(*m_height), number(*m_width)};
    }

    void showSample() {
        const TextStyleValues values = typed();
        QFont font(QString::fromStdWString(values.font));
        font.setBold(values.bold);
        font.setItalic(values.italic);
        font.setPointSizeF(this->font().pointSizeF() * 1.6);
        if (values.widthFactor > 0.0) font.setStretch(std::clamp(static_cast<int>(values.widthFactor * 100), 1, 4000));
        m_sample->setFont(font);
    }

    bool write() {
        if (m_shown.empty()) return true;
        const TextStyles::Refusal refusal = m_styles.set(m_shown, typed());
        if (refusal) refuse(*refusal, m_height);
        return !refusal;
    }

    void rowChanged(int row) {
        if (row < 0) return;
        const std::wstring wanted = m_list->item(row)->text().toStdWString();
        fill(write() ? wanted : m_shown);
    }

    void setCurrent() {
        if (!write()) return;
        m_styles.setCurrent(m_shown);
        show(m_shown);
    }

    void create() {
        if (!write()) return;
        NameDialog dialog(
            HostText::TextStyleNew, m_styles.proposal(),
            [this](const std::wstring& name) { return m_styles.create(name, m_shown); }, this);
        if (dialog.run()) fill(dialog.name());
    }

    void rename() {
        if (!write()) return;
        NameDialog dialog(
            HostText::TextStyleRename, m_shown,
            [this](const std::wstring& name) { return m_styles.rename(m_shown, name); }, this);
        if (dialog.run()) fill(dialog.name());
    }

    void remove() {
        const TextStyles::Refusal refusal = m_styles.remove(m_shown);
        if (refusal) {
            refuse(*refusal, m_list);
        } else {
            fill(m_styles.current());
        }
    }

    void apply() {
        if (write()) show(m_shown);
    }

    bool commit() override { return write(); }

    TextStyles m_styles;
    std::wstring m_shown;
    QListWidget* m_list = nullptr;
    QComboBox* m_font = nullptr;
    QCheckBox* m_bold = nullptr;
    QCheckBox* m_italic = nullptr;
    QLineEdit* m_height = nullptr;
    QLineEdit* m_width = nullptr;
    QLabel* m_sample = nullptr;
    QLabel* m_current = nullptr;
};

}  // namespace
}  // namespace kdhost

bool invokeTextStyleDialog(KdDbDatabase* database, CStdStr<wchar_t>* name) {
    if (database == nullptr) return false;
    kdhost::TextStyleDialog dialog(*database, name == nullptr ? std::wstring() : std::wstring(*name),
                                   kdhost::HostDialog::windowBelow());
    const bool confirmed = dialog.run();
    if (name != nullptr) *name = dialog.shown().c_str();
    return confirmed;
}
