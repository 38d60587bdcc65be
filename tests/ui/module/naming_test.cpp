// The dialogs that name new table styles and cell styles: proposals, refusals and ways out, by keys alone.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <memory>
#include <random>
#include <set>

#include "host/ui/help.h"
#include "mfc/messagebox.h"
#include "module/core/resources.h"
#include "module/style/createcellstyledlg.h"
#include "module/style/createtablestyledlg.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

using Names = std::vector<std::wstring>;

/// One of the two dialogs with what its caller gives it and reads from it.
class Naming {
public:
    virtual ~Naming() = default;
    virtual KdUiBaseDialog& dialog() = 0;
    virtual void add(const std::wstring& name) = 0;
    virtual void startWith(const std::wstring& name) = 0;
    virtual std::wstring newName() const = 0;
    virtual std::wstring startName() const = 0;
};

class TableNaming : public Naming {
public:
    KdUiBaseDialog& dialog() override { return m_dialog; }
    void add(const std::wstring& name) override { m_dialog.AddTableStyleNameToArray(name); }
    void startWith(const std::wstring& name) override { m_dialog.SetStartWithName(name); }
    std::wstring newName() const override {
        CStdStr<wchar_t> name;
        m_dialog.GetTableStyleName(name);
        return name;
    }
    std::wstring startName() const override { return m_dialog.StartWithName(); }

private:
    CVqTableCreateTableStyleDlg m_dialog;
};

class CellNaming : public Naming {
public:
    KdUiBaseDialog& dialog() override { return m_dialog; }
    void add(const std::wstring& name) override { m_dialog.AddCellStyleNameToArray(name); }
    void startWith(const std::wstring& name) override { m_dialog.SetStartWithName(name); }
    std::wstring newName() const override {
        CStdStr<wchar_t> name;
        m_dialog.GetCellStyleName(name);
        return name;
    }
    std::wstring startName() const override {
        CStdStr<wchar_t> name;
        m_dialog.GetFromCellStyleName(name);
        return name;
    }

private:
    CVqTableCreateCellStyleDlg m_dialog;
};

template <class T>
std::unique_ptr<Naming> make() {
    return std::make_unique<T>();
}

struct Kind {
    const char* name;
    std::unique_ptr<Naming> (*make)();
    const char* edit;
    const char* box;
    unsigned emptyText;
    unsigned existsText;
    unsigned invalidText;
    unsigned tooLongText;  ///< 0: any length passes
};

const Kind kinds[] = {
    {"TableStyle", make<TableNaming>, "IDC_CREATETABLESTYLE_NEWNAME_EDIT", "IDC_CREATETABLESTYLE_STARTWITH_COMBOBOX",
     2017, 2018, 2017, 0},
    {"CellStyle", make<CellNaming>, "IDC_CREATECELLSTYLE_NEWNAME_EDIT", "IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX", 2190,
     2136, 2135, 2189},
};

/// As test names show it.
void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

class StyleNaming : public ModuleResources, public ::testing::WithParamInterface<Kind> {
protected:
    const Kind& kind = GetParam();

    std::unique_ptr<Naming> naming(const Names& names, const std::wstring& start) const {
        auto made = kind.make();
        for (const std::wstring& name : names) made->add(name);
        made->startWith(start);
        return made;
    }
    QLineEdit& edit(Naming& naming) const {
        return *qobject_cast<QLineEdit*>(naming.dialog().getWidgetsFromOrignal(kind.edit));
    }
    QComboBox& box(Naming& naming) const {
        return *qobject_cast<QComboBox*>(naming.dialog().getWidgetsFromOrignal(kind.box));
    }
    /// The name that the dialog proposes when it opens.
    std::wstring proposal(const Names& names, const std::wstring& start) const {
        const auto opened = naming(names, start);
        EXPECT_EQ(opened->dialog().OnInitDialog(), 1);
        return edit(*opened).text().toStdWString();
    }
    /// Replaces the edit's text as a user does.
    void retype(const std::wstring& text) const {
        pressKey(Qt::Key_A, Qt::ControlModifier);
        pressKey(Qt::Key_Delete);
        typeText(QString::fromStdWString(text));
    }
};

INSTANTIATE_TEST_SUITE_P(Both, StyleNaming, ::testing::ValuesIn(kinds),
                         [](const auto& info) { return std::string(info.param.name); });

struct Proposal {
    Names names;
    std::wstring start;
    std::wstring proposed;
};

const Proposal proposals[] = {
    {{L"Standard"}, L"Standard", L"Copy of Standard"},
    {{L"Standard", L"Other"}, L"Other", L"Copy of Other"},
    {{L"Standard"}, L"STANDARD", L"Copy of Standard"},
    {{L"X", L"Copy of X"}, L"X", L"Copy (2) of X"},
    {{L"X", L"Copy of X", L"Copy (2) of X"}, L"X", L"Copy (3) of X"},
    {{L"X", L"Copy of X", L"Copy (3) of X"}, L"X", L"Copy (2) of X"},
    {{L"X", L"COPY OF x"}, L"X", L"Copy (2) of X"},
    {{L"Copy of X"}, L"Copy of X", L"Copy (2) of X"},
    {{L"Copy of X", L"Copy (2) of X"}, L"Copy of X", L"Copy (3) of X"},
    {{L"Copy of X", L"Copy (2) of X", L"copy (3) OF x"}, L"Copy of X", L"Copy (4) of X"},
    {{L"Copy of "}, L"Copy of ", L"Copy (2) of "},
    {{L"Copy of ", L"Copy (2) of "}, L"Copy of ", L"Copy (3) of "},
    {{L"My Copy of X"}, L"My Copy of X", L"Copy of My Copy of X"},
    {{L"Copy (2) of X"}, L"Copy (2) of X", L"Copy of Copy (2) of X"},
    {{L"copy of X"}, L"copy of X", L"Copy of copy of X"},
    {{L"Standard"}, L"Missing", L"Copy of "},
    {{}, L"", L"Copy of "},
};

TEST_P(StyleNaming, Proposes_the_first_free_copy_of_the_start_style) {
    for (const Proposal& row : proposals) {
        EXPECT_EQ(proposal(row.names, row.start), row.proposed) << QString::fromStdWString(row.start).toStdString();
    }
}

TEST_P(StyleNaming, Numbers_of_copies_have_no_bound) {
    Names names = {L"X", L"Copy of X"};
    for (int number = 2; number <= 1200; ++number) names.push_back(L"Copy (" + std::to_wstring(number) + L") of X");
    EXPECT_EQ(proposal(names, L"X"), L"Copy (1201) of X");
}

/// The proposal by a plain model: all candidates in order, the first that no listed name equals.
std::wstring modelProposal(const Names& names, const std::wstring& start) {
    std::set<std::wstring> taken;
    const auto lower = [](std::wstring text) {
        for (wchar_t& c : text) c = c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
        return text;
    };
    for (const std::wstring& name : names) taken.insert(lower(name));
    const bool isCopy = start.compare(0, 8, L"Copy of ") == 0;
    const std::wstring base = isCopy ? start.substr(8) : start;
    Names candidates;
    if (!isCopy) candidates.push_back(L"Copy of " + start);
    for (int number = 2; number < 20; ++number) {
        candidates.push_back(L"Copy (" + std::to_wstring(number) + L") of " + base);
    }
    for (const std::wstring& candidate : candidates) {
        if (!taken.contains(lower(candidate))) return candidate;
    }
    return {};
}

TEST_P(StyleNaming, Proposals_agree_with_a_plain_model_on_random_lists) {
    std::mt19937 random(11);
    const Names prefixes = {L"", L"", L"Copy of ", L"Copy (2) of ", L"Copy (3) of ", L"COPY OF ", L"x Copy of "};
    for (int i = 0; i < 150; ++i) {
        Names names = {L"Standard"};
        for (auto count = random() % 12; count > 0; --count) {
            names.push_back(prefixes[random() % prefixes.size()] + std::wstring(1, L"Aab"[random() % 3]));
        }
        // Rows that differ only in case are found by the first behind row 0; take a name as it is listed so.
        const std::wstring asked = names[random() % names.size()];
        const auto opened = naming(names, asked);
        opened->dialog().OnInitDialog();
        const std::wstring start = box(*opened).currentText().toStdWString();
        ASSERT_EQ(edit(*opened).text().toStdWString(), modelProposal(names, start)) << i;
    }
}

TEST_P(StyleNaming, Chinese_copies_are_numbered_as_English_ones_are) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    const std::wstring copy = loadText(2042);
    EXPECT_NE(copy, L"Copy of ");
    EXPECT_EQ(proposal({L"X"}, L"X"), copy + L"X");
    const std::wstring second = proposal({copy + L"X"}, copy + L"X");
    EXPECT_NE(second.find(L'2'), std::wstring::npos);
    EXPECT_EQ(proposal({second}, second), copy + second);
}

TEST_P(StyleNaming, Opens_with_the_names_in_order_and_the_focus_in_the_name) {
    const auto opened = naming({L"b", L"a", L"C"}, L"a");
    QStringList rows;
    std::vector<std::string> tour;
    const int closed = runModal(opened->dialog(), [&] {
        for (int row = 0; row < box(*opened).count(); ++row) rows << box(*opened).itemText(row);
        EXPECT_EQ(box(*opened).currentText(), QStringLiteral("a"));
        for (int i = 0; i < 6; ++i) {
            tour.push_back(focusName());
            pressKey(Qt::Key_Tab);
        }
        pressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(closed, 2);
    EXPECT_EQ(rows, (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("C")}));
    EXPECT_EQ(tour, (std::vector<std::string>{kind.edit, kind.box, "IDOK", "IDCANCEL", "IDHELP", kind.edit}));
}

TEST_P(StyleNaming, The_start_is_the_row_of_the_whole_name) {
    const auto opened = naming({L"Standard", L"Notes on doors", L"Notes"}, L"Notes");
    opened->dialog().OnInitDialog();
    EXPECT_EQ(box(*opened).currentText(), QStringLiteral("Notes"));
}

TEST_P(StyleNaming, Mnemonics_lead_to_the_edit_and_the_box) {
    const auto opened = naming({L"a", L"b"}, L"a");
    runModal(opened->dialog(), [&] {
        pressKey(Qt::Key_S, Qt::AltModifier);
        EXPECT_EQ(focusName(), kind.box);
        pressKey(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(focusName(), kind.edit);
        pressKey(Qt::Key_Escape);
    });
}

TEST_P(StyleNaming, Before_typing_the_proposal_follows_the_start_box) {
    const auto opened = naming({L"a", L"b", L"Copy of b"}, L"a");
    const int closed = runModal(opened->dialog(), [&] {
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("Copy of a"));
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Down);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("Copy (2) of b"));
        pressKey(Qt::Key_Up);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("Copy of a"));
        pressKey(Qt::Key_Down);
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"Copy (2) of b");
    EXPECT_EQ(opened->startName(), L"b");
}

TEST_P(StyleNaming, A_typed_name_stays_when_the_start_box_changes) {
    const auto opened = naming({L"a", L"b"}, L"a");
    const int closed = runModal(opened->dialog(), [&] {
        retype(L"mine");
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Down);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("mine"));
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"mine");
    EXPECT_EQ(opened->startName(), L"b");
}

TEST_P(StyleNaming, Typing_counts_even_when_the_proposal_is_typed_back) {
    const auto opened = naming({L"a", L"b"}, L"a");
    runModal(opened->dialog(), [&] {
        pressKey(Qt::Key_End);
        typeText(QStringLiteral("x"));
        pressKey(Qt::Key_Backspace);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("Copy of a"));
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Down);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("Copy of a"));
        pressKey(Qt::Key_Escape);
    });
}

TEST_P(StyleNaming, Typing_after_a_change_of_the_start_box_counts) {
    const auto opened = naming({L"a", L"b"}, L"a");
    runModal(opened->dialog(), [&] {
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Down);
        pressKey(Qt::Key_Tab, Qt::ShiftModifier);
        retype(L"mine");
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Up);
        EXPECT_EQ(edit(*opened).text(), QStringLiteral("mine"));
        pressKey(Qt::Key_Escape);
    });
}

TEST_P(StyleNaming, Blanks_around_the_name_are_stripped) {
    const auto opened = naming({L"a"}, L"a");
    const int closed = runModal(opened->dialog(), [&] {
        retype(L" \t new name ");
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"new name");
}

TEST_P(StyleNaming, White_space_of_any_script_is_stripped) {
    const auto opened = naming({L"a"}, L"a");
    const int closed = runModal(opened->dialog(), [&] {
        edit(*opened).setText(QStringLiteral("\u3000\u2003new\u3000name\u3000"));
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"new\u3000name");
}

TEST_P(StyleNaming, Only_latin_letters_without_marks_are_alike_in_both_cases) {
    const auto opened = naming({L"\u00C4pfel"}, L"\u00C4pfel");
    const int closed = runModal(opened->dialog(), [&] {
        retype(L"\u00C4PFEL");
        EXPECT_EQ(pressForBox(opened->dialog(), Qt::Key_Return).text, loadText(kind.existsText));
        retype(L"\u00E4pfel");
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"\u00E4pfel");
}

TEST_P(StyleNaming, Cancel_by_button_gives_2) {
    const auto opened = naming({L"a"}, L"a");
    const int closed = runModal(opened->dialog(), [&] {
        for (int i = 0; i < 3; ++i) pressKey(Qt::Key_Tab);
        EXPECT_EQ(focusName(), "IDCANCEL");
        pressKey(Qt::Key_Space);
    });
    EXPECT_EQ(closed, 2);
}

struct Refusal {
    std::wstring typed;
    unsigned Kind::*text;
};

std::vector<Refusal> refusals() {
    std::vector<Refusal> rows = {
        {L"", &Kind::emptyText},
        {L"   ", &Kind::emptyText},
        {L"Standard", &Kind::existsText},
        {L"sTANDARD", &Kind::existsText},
        {L" standard ", &Kind::existsText},
        {L"a*b", &Kind::existsText},  // listed as it is: that it exists is told first
    };
    for (const wchar_t c : std::wstring(L"<>/\\\":;?*|,=`'"))
        rows.push_back({L"x" + std::wstring(1, c), &Kind::invalidText});
    return rows;
}

TEST_P(StyleNaming, Refuses_names_with_a_message_and_selects_the_edit) {
    const auto opened = naming({L"Standard", L"A*B"}, L"Standard");
    const int closed = runModal(opened->dialog(), [&] {
        for (const Refusal& row : refusals()) {
            retype(row.typed);
            pressKey(Qt::Key_Tab);
            const SeenBox shown = pressForBox(opened->dialog(), Qt::Key_Return);
            const std::wstring expected = loadText(kind.*row.text);
            EXPECT_FALSE(expected.empty());
            EXPECT_EQ(shown.text, expected);
            EXPECT_EQ(shown.caption, GetOemProductName());
            EXPECT_EQ(shown.icon, QMessageBox::Warning);
            EXPECT_EQ(shown.buttons, QMessageBox::Ok);
            EXPECT_TRUE(opened->dialog().isVisible());
            EXPECT_EQ(focusName(), kind.edit);
            EXPECT_EQ(edit(*opened).selectedText(), edit(*opened).text());
            EXPECT_EQ(edit(*opened).text().toStdWString(), row.typed);
        }
        pressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(closed, 2);
}

TEST_P(StyleNaming, Takes_another_name_after_a_refusal) {
    const auto opened = naming({L"Standard"}, L"Standard");
    const int closed = runModal(opened->dialog(), [&] {
        retype(L"standard");
        pressForBox(opened->dialog(), Qt::Key_Return);
        typeText(QStringLiteral("other"));  // over the selection
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"other");
}

TEST_P(StyleNaming, Only_cell_styles_refuse_more_than_255_characters) {
    for (const std::size_t length : {255U, 256U, 300U}) {
        const std::wstring name(length, L'n');
        const bool refused = kind.tooLongText != 0 && length > 255;
        const auto opened = naming({L"Standard"}, L"Standard");
        const int closed = runModal(opened->dialog(), [&] {
            edit(*opened).setText(QString::fromStdWString(name));
            if (!refused) {
                pressKey(Qt::Key_Return);
                return;
            }
            EXPECT_EQ(pressForBox(opened->dialog(), Qt::Key_Return).text, std::wstring(loadText(2189)));
            EXPECT_EQ(edit(*opened).selectedText().toStdWString(), name);
            pressKey(Qt::Key_Escape);
        });
        EXPECT_EQ(closed, refused ? 2 : 1) << length;
        if (!refused) {
            EXPECT_EQ(opened->newName(), name);
        }
    }
}

TEST_P(StyleNaming, A_name_that_the_caller_did_not_list_passes) {
    const auto opened = naming({L"Standard"}, L"Standard");
    const int closed = runModal(opened->dialog(), [&] {
        retype(L"Last");
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->newName(), L"Last");
}

TEST_P(StyleNaming, Without_a_chosen_start_style_the_start_name_is_empty) {
    const auto opened = naming({L"a"}, L"missing");
    const int closed = runModal(opened->dialog(), [&] {
        EXPECT_EQ(box(*opened).currentIndex(), -1);
        retype(L"new");
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(opened->startName(), L"");
}

TEST_P(StyleNaming, All_texts_have_room_in_both_languages_and_sizes) {
    const QFont plain = QApplication::font();
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        for (const int scale : {1, 2, 3}) {
            QFont font = plain;
            font.setPointSizeF(plain.pointSizeF() * scale);
            QApplication::setFont(font);
            const auto opened = naming({L"Standard", L"Schedule of doors"}, L"Standard");
            runModal(opened->dialog(), [&] {
                EXPECT_EQ(cutControls(opened->dialog()), Faults());
                pressKey(Qt::Key_Escape);
            });
        }
    }
    QApplication::setFont(plain);
}

TEST(StyleNamingWithoutResources, Opens_nothing_and_names_nothing) {
    for (const Kind& kind : kinds) {
        const auto opened = kind.make();
        opened->add(L"a");
        opened->startWith(L"a");
        EXPECT_EQ(opened->dialog().DoModal(), -1);
        EXPECT_EQ(opened->newName(), L"");
    }
}

/// The page's text in the help window that the help button opens over a dialog; empty without a window.
QString helpShownBy(KdUiBaseDialog& dialog) {
    const QTemporaryDir pages;
    QFile page(pages.filePath(QStringLiteral("Tablestyle.md")));
    EXPECT_TRUE(page.open(QIODevice::WriteOnly));
    page.write("About table styles");
    page.close();
    kdhost::setHelpFolder(pages.path());
    QString shown;
    const int closed = runModal(dialog, [&] {
        for (int i = 0; i < 4; ++i) pressKey(Qt::Key_Tab);
        EXPECT_EQ(focusName(), "IDHELP");
        pressKey(Qt::Key_Space);
        const auto* window = dialog.findChild<QDialog*>(QStringLiteral("HelpWindow"));
        if (window != nullptr) shown = window->findChild<QTextBrowser*>()->toPlainText();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(closed, 2);
    kdhost::setHelpFolder({});
    return shown;
}

TEST_F(ModuleResources, Help_of_table_style_naming_shows_the_page_on_table_styles) {
    CVqTableCreateTableStyleDlg dialog;
    EXPECT_EQ(helpShownBy(dialog), QStringLiteral("About table styles"));
}

TEST_F(ModuleResources, Help_of_cell_style_naming_does_nothing) {
    CVqTableCreateCellStyleDlg dialog;
    EXPECT_EQ(helpShownBy(dialog), QString());
}

TEST_F(ModuleResources, The_start_style_of_table_styles_is_told_without_OK_as_given_and_with_it_as_chosen) {
    CVqTableCreateTableStyleDlg dialog;
    dialog.SetStartWithName(L"A");
    EXPECT_EQ(std::wstring(dialog.StartWithName()), L"A");
    dialog.AddTableStyleNameToArray(L"a");
    dialog.OnInitDialog();
    EXPECT_EQ(std::wstring(dialog.StartWithName()), L"a");
}

}  // namespace
}  // namespace kdtest
