// Formatted texts in the in-place editor: what isn't edited comes out as it went in.

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <random>

#include "host/ui/inplaceeditor/richdocument.h"
#include "kd/db/field.h"
#include "tests/ui/inplaceeditor/fixture.h"

namespace kdtest {
namespace {

using kdhost::EditorPanel;
using kdhost::text::Format;
using kdhost::text::Ink;
using kdhost::text::Piece;

class InPlaceEditorFormats : public InPlaceEditorTest {
protected:
    /// Types a character at a place and leaves; the contents afterwards.
    std::wstring typedAt(const wchar_t* contents, int place, const QString& typed = QStringLiteral("x")) {
        text.setContents(contents);
        edit([&](EditorPanel& panel) {
            select(panel, place, place);
            kdhost::typeKeys(typed);
            tab();
        });
        return text.contents();
    }
};

TEST_F(InPlaceEditorFormats, a_text_left_as_it_was_keeps_its_codes_as_they_were_written) {
    for (const wchar_t* contents : {L"\\LAll\\l of it", L"one\ntwo\n", L"\\U+0041", L"%%d", L"{\\H2x;{\\Lab}}"}) {
        text.setContents(contents);
        EXPECT_EQ(edit([](EditorPanel&) { tab(); }).status, RTNORM);
        EXPECT_EQ(text.contents(), std::wstring(contents));
    }
}

TEST_F(InPlaceEditorFormats, every_code_survives_an_edit_elsewhere) {
    struct Row {
        const wchar_t* before;
        const wchar_t* after;
    };
    const Row rows[] = {
        {L"a{\\H8;b}", L"xa{\\H8;b}"},
        {L"a{\\fDejaVu Serif|b1|i1;b}", L"xa{\\fDejaVu Serif|b1|i1;b}"},
        {L"a{\\C1;b}", L"xa{\\C1;b}"},
        {L"a{\\c255;b}", L"xa{\\c255;b}"},
        {L"a{\\Lb}{\\Oc}{\\Kd}", L"xa{\\Lb}{\\Oc}{\\Kd}"},
        {L"a\\S1/2;b", L"xa\\S1/2;b"},
        {L"a\\S1#2;\\S+1^-2;", L"xa\\S1#2;\\S+1^-2;"},
        {L"a\\Pb\\Pc", L"xa\\Pb\\Pc"},
        {L"a\tb", L"xa\tb"},
        {L"a{\\T2;b}", L"xa{\\T2;b}"},
        {L"a{\\Q15;b}", L"xa{\\Q15;b}"},
        {L"a{\\W0.5;b}", L"xa{\\W0.5;b}"},
        {L"a{\\A1;b}", L"xa{\\A1;b}"},
        {L"a\\~b", L"xa\\~b"},
    };
    for (const Row& row : rows) EXPECT_EQ(typedAt(row.before, 0), row.after);
}

TEST_F(InPlaceEditorFormats, paragraphs_keep_their_indents_and_tabs) {
    const std::wstring after = typedAt(L"a\\P{\\pi1,l2,r0,qc,t3,4;b}", 0);
    EXPECT_EQ(after, L"xa\\P{\\pi1,l2,r0,qc,t3,4;b}");
}

TEST_F(InPlaceEditorFormats, what_is_typed_beside_formatted_characters_has_their_format) {
    EXPECT_EQ(typedAt(L"a{\\Lb}c", 2), L"a{\\Lbx}c");
}

TEST_F(InPlaceEditorFormats, a_stack_is_removed_as_one_character) {
    text.setContents(L"a\\S1/2;b");
    edit([](EditorPanel& panel) {
        EXPECT_EQ(panel.plainText(), L"a1/2b");
        select(panel, 2, 2);
        press(Qt::Key_Backspace);
        EXPECT_EQ(panel.plainText(), L"ab");
        tab();
    });
    EXPECT_EQ(contents(), L"ab");
}

TEST_F(InPlaceEditorFormats, characters_that_no_line_can_hold_stay_where_they_are) {
    const std::wstring odd = {L'a', 0x2028, 0x2029, 0xFFFC, 0xFDD0, 0x1, L'b'};
    EXPECT_EQ(typedAt(odd.c_str(), 0), L"x" + odd);
}

// ---- properties

class RandomPieces {
public:
    RandomPieces(std::mt19937& random, const Format& base) : m_random(random), m_base(base) {}

    /// As a text with codes gives them.
    std::vector<Piece> make() {
        std::vector<Piece> pieces;
        for (int count = pick(12); count > 0; --count) pieces.push_back(piece());
        return kdhost::text::pieces(kdhost::text::write(pieces, m_base), m_base);
    }

private:
    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    bool sometimes() { return pick(4) == 0; }

    Format format() {
        Format format = m_base;
        if (sometimes()) format.font.family = L"DejaVu Serif";
        format.font.bold = sometimes();
        format.font.italic = sometimes();
        if (sometimes()) format.font.widthFactor = 0.5 + pick(4);
        if (sometimes()) format.font.obliqueAngle = 0.1 * pick(5);
        if (sometimes()) format.height = 1.0 + pick(9);
        if (sometimes()) format.tracking = 1.0 + 0.5 * pick(3);
        if (sometimes()) format.ink = {Ink::Kind::index, pick(257)};
        if (sometimes()) format.ink = {Ink::Kind::bgr, pick(0x1000000)};
        format.underline = sometimes();
        format.overline = sometimes();
        format.strike = sometimes();
        if (sometimes()) format.alignment = pick(3);
        if (sometimes()) format.paragraph = {0.5 * pick(3), 1.0 * pick(3), 0.0, L'c', {2.0, 5.5}, {}};
        return format;
    }

    Piece piece() {
        static const std::wstring texts[] = {
            L"a", L"word ", L"\t", L"中文", L"{\\}", L"%%d", L"\u00A0", L"x\u2028y", std::wstring(1, wchar_t{0x1F529})};
        switch (pick(6)) {
            case 0:
                return {Piece::Kind::LineBreak, format(), {}, {}, 0};
            case 1:
                return {Piece::Kind::Stack, format(), L"1", L"2", L"/#^"[pick(3)]};
            default:
                return {Piece::Kind::Characters, format(), texts[pick(static_cast<int>(std::size(texts)))], {}, 0};
        }
    }

    std::mt19937& m_random;
    Format m_base;
};

class InPlaceEditorDocument : public InPlaceEditorTest {
protected:
    kdhost::TextLooks looks{text, Qt::white};
    kdhost::RichDocument document{looks, [](wchar_t) { return std::wstring(L"####"); }};
};

TEST_F(InPlaceEditorDocument, random_formatted_texts_go_in_and_out_equal) {
    std::mt19937 random(11);
    RandomPieces texts(random, looks.base());
    for (int round = 0; round < 400; ++round) {
        const std::vector<Piece> pieces = texts.make();
        document.load(pieces);
        ASSERT_EQ(document.pieces(), pieces)
            << round << ": " << QString::fromStdWString(kdhost::text::write(pieces, looks.base())).toStdString();
    }
}

/// Characters, stacks and breaks, each with its format.
struct Unit {
    Piece::Kind kind;
    Format format;
    std::wstring text;

    friend bool operator==(const Unit&, const Unit&) = default;
};

std::vector<Unit> unitsOf(const std::vector<Piece>& pieces) {
    std::vector<Unit> units;
    for (const Piece& piece : pieces) {
        if (piece.kind != Piece::Kind::Characters) {
            units.push_back({piece.kind, piece.format, piece.text + piece.separator + piece.lower});
            continue;
        }
        for (const wchar_t c : piece.text) units.push_back({piece.kind, piece.format, std::wstring(1, c)});
    }
    return units;
}

/// The places before and behind each unit, in 16-bit characters.
std::vector<int> placesOf(const std::vector<Unit>& units) {
    std::vector<int> places = {0};
    for (const Unit& unit : units) {
        const bool isPair = unit.kind == Piece::Kind::Characters && unit.text[0] > 0xFFFF;
        places.push_back(places.back() + (isPair ? 2 : 1));
    }
    return places;
}

TEST_F(InPlaceEditorDocument, removing_and_writing_anywhere_leaves_all_else_as_it_was) {
    std::mt19937 random(12);
    RandomPieces texts(random, looks.base());
    for (int round = 0; round < 400; ++round) {
        const std::vector<Piece> pieces = texts.make();
        document.load(pieces);
        std::vector<Unit> units = unitsOf(pieces);
        const std::vector<int> places = placesOf(units);
        const std::size_t from = random() % places.size();
        const std::size_t to = from + random() % (places.size() - from);
        QTextCursor cursor(&document.document());
        cursor.setPosition(places[from]);
        cursor.setPosition(places[to], QTextCursor::KeepAnchor);
        document.insert(cursor, {{Piece::Kind::Characters, looks.base(), L"new", {}, 0}});

        units.erase(units.begin() + static_cast<std::ptrdiff_t>(from), units.begin() + static_cast<std::ptrdiff_t>(to));
        const std::vector<Unit> written = unitsOf({{Piece::Kind::Characters, looks.base(), L"new", {}, 0}});
        units.insert(units.begin() + static_cast<std::ptrdiff_t>(from), written.begin(), written.end());
        ASSERT_EQ(unitsOf(document.pieces()), units) << round;
    }
}

TEST_F(InPlaceEditorDocument, a_change_of_format_touches_what_is_selected_alone) {
    std::mt19937 random(13);
    RandomPieces texts(random, looks.base());
    for (int round = 0; round < 400; ++round) {
        const std::vector<Piece> pieces = texts.make();
        document.load(pieces);
        std::vector<Unit> before = unitsOf(pieces);
        if (before.empty()) continue;
        const std::vector<int> places = placesOf(before);
        const std::size_t from = random() % before.size();
        QTextCursor cursor(&document.document());
        cursor.setPosition(places[from]);
        cursor.setPosition(places.back(), QTextCursor::KeepAnchor);
        document.change(cursor, [](Format& format) { format.height = 77.0; });
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (i >= from && before[i].kind != Piece::Kind::LineBreak) before[i].format.height = 77.0;
        }
        ASSERT_EQ(unitsOf(document.pieces()), before) << round;
    }
}

// ---- fields

class InPlaceEditorFields : public InPlaceEditorTest {
protected:
    /// Gives the text "before", a formula, and "behind".
    void giveField() {
        auto* child = new KdDbField;
        child->setFieldCode(L"\\AcExpr (1+2)");
        auto* field = new KdDbField;
        KdArray<KdDbField*> children;
        children.append(child);
        field->setFieldCode(L"before %<\\_FldIdx 0>% behind", KdDbField::kTextField, &children);
        ASSERT_EQ(text.setField(L"TEXT", field), Kdad::eOk);
    }
    std::wstring fieldCode(KdDbField::FieldCodeFlag flag = KdDbField::kFieldCode) {
        KdDbField* field = nullptr;
        if (text.getField(L"TEXT", field, KdDb::kForRead) != Kdad::eOk) return L"(none)";
        const std::wstring code = field->getFieldCode(flag).str();
        field->close();
        return code;
    }
};

TEST_F(InPlaceEditorFields, a_field_is_shown_evaluated_and_survives_an_edit_beside_it) {
    giveField();
    edit([](EditorPanel& panel) {
        EXPECT_EQ(panel.plainText(), L"before 3 behind");
        select(panel, 0, 0);
        kdhost::typeKeys(QStringLiteral("x"));
        tab();
    });
    EXPECT_EQ(fieldCode(), L"xbefore %<\\_FldIdx 0>% behind");
    EXPECT_EQ(fieldCode(KdDbField::kAddChildren), L"xbefore \\AcExpr (1+2) behind");
    EXPECT_EQ(contents(), L"xbefore 3 behind");
}

TEST_F(InPlaceEditorFields, a_text_left_as_it_was_keeps_its_very_field) {
    giveField();
    KdDbField* before = nullptr;
    ASSERT_EQ(text.getField(L"TEXT", before, KdDb::kForRead), Kdad::eOk);
    before->close();
    edit([](EditorPanel&) { tab(); });
    KdDbField* after = nullptr;
    ASSERT_EQ(text.getField(L"TEXT", after, KdDb::kForRead), Kdad::eOk);
    after->close();
    EXPECT_EQ(before, after);
}

TEST_F(InPlaceEditorFields, a_text_whose_field_is_removed_is_plain) {
    giveField();
    edit([](EditorPanel&) {
        kdhost::typeKeys(QStringLiteral("plain"));
        tab();
    });
    EXPECT_FALSE(text.hasFields());
    EXPECT_EQ(contents(), L"plain");
}

TEST_F(InPlaceEditorFields, a_text_that_is_one_field_as_a_whole_can_be_written_around) {
    auto* field = new KdDbField;
    field->setFieldCode(L"\\AcExpr (2*3)");
    ASSERT_EQ(text.setField(L"TEXT", field), Kdad::eOk);
    edit([](EditorPanel& panel) {
        EXPECT_EQ(panel.plainText(), L"6");
        select(panel, 1, 1);
        kdhost::typeKeys(QStringLiteral(" mm"));
        tab();
    });
    EXPECT_EQ(fieldCode(), L"%<\\_FldIdx 0>% mm");
    EXPECT_EQ(contents(), L"6 mm");
}

TEST_F(InPlaceEditorFields, formatting_ahead_of_a_field_names_no_evaluator) {
    giveField();
    edit([](EditorPanel& panel) {
        select(panel, 0, 0);
        press(Qt::Key_Return, Qt::AltModifier);
        tab();
    });
    EXPECT_EQ(contents(), L"{\\Pbefore 3 behind}");
}

TEST_F(InPlaceEditorFields, the_bar_puts_a_formula_in) {
    text.setContents(L"sum: ");
    edit(
        [](EditorPanel& panel) {
            auto& formula = in<QLineEdit>(panel, "EditorFormula");
            formula.setFocus();
            kdhost::typeKeys(QStringLiteral("=1+1"));
            press(Qt::Key_Return);
            EXPECT_FALSE(panel.hasEnded());
            EXPECT_TRUE(panel.hasFocus());
            EXPECT_EQ(panel.plainText(), L"sum: =1+1");
            kdhost::typeKeys(QStringLiteral("!"));
            tab();
        },
        kMTextEditorCaretAtEnd);
    EXPECT_EQ(fieldCode(KdDbField::kAddChildren), L"sum: \\AcExpr (1+1)!");
    EXPECT_EQ(contents(), L"sum: 2!");
}

TEST_F(InPlaceEditorFields, a_formula_that_is_none_stays_in_the_bar) {
    edit([](EditorPanel& panel) {
        auto& formula = in<QLineEdit>(panel, "EditorFormula");
        formula.setFocus();
        kdhost::typeKeys(QStringLiteral("=1+"));
        press(Qt::Key_Return);
        EXPECT_TRUE(formula.hasFocus());
        EXPECT_EQ(panel.plainText(), L"");
        press(Qt::Key_Escape);
        EXPECT_TRUE(panel.hasFocus());
        press(Qt::Key_Escape);
    });
    EXPECT_FALSE(text.hasFields());
}

// ---- the clipboard

TEST_F(InPlaceEditorFormats, copied_text_keeps_its_formatting_when_it_is_pasted) {
    text.setContents(L"a{\\Lb}\\S1/2;");
    edit([](EditorPanel& panel) {
        panel.text().selectAll();
        press(Qt::Key_C, Qt::ControlModifier);
        panel.text().moveToEnd();
        press(Qt::Key_V, Qt::ControlModifier);
        tab();
    });
    EXPECT_EQ(contents(), L"a{\\Lb}\\S1/2;a{\\Lb}\\S1/2;");
}

TEST_F(InPlaceEditorFormats, cut_text_goes_to_the_clipboard_as_it_is_read) {
    text.setContents(L"a{\\Lb}\\S1/2;");
    edit([](EditorPanel&) {
        press(Qt::Key_X, Qt::ControlModifier);
        tab();
    });
    EXPECT_EQ(contents(), L"");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("ab1/2"));
}

TEST_F(InPlaceEditorFormats, the_context_menu_cuts_copies_pastes_and_undoes) {
    text.setContents(L"a{\\Lb}");
    edit([](EditorPanel& panel) {
        const auto choose = [&](const char* item, bool enabled = true) {
            QTimer::singleShot(0, qApp, [item, enabled] {
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                ASSERT_NE(menu, nullptr);
                auto* action = menu->findChild<QAction*>(QString::fromLatin1(item));
                ASSERT_NE(action, nullptr) << item;
                EXPECT_EQ(action->isEnabled(), enabled) << item;
                action->trigger();
                menu->close();
            });
            const QPoint place = panel.box().center().toPoint();
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, panel.viewport()->mapToGlobal(place));
            QApplication::sendEvent(panel.viewport(), &event);
            EXPECT_FALSE(panel.hasEnded());
        };
        choose("EditorUndo", false);
        choose("EditorCut");
        EXPECT_EQ(panel.plainText(), L"");
        choose("EditorCopy", false);
        choose("EditorPaste");
        choose("EditorPaste");
        EXPECT_EQ(panel.plainText(), L"abab");
        choose("EditorUndo");
        EXPECT_EQ(panel.plainText(), L"ab");
        choose("EditorRedo");
        choose("EditorSelectAll");
        EXPECT_EQ(panel.text().textCursor().selectedText(), QStringLiteral("abab"));
        tab();
    });
    EXPECT_EQ(contents(), L"a{\\Lb}a{\\Lb}");
}

TEST_F(InPlaceEditorFormats, text_of_other_programs_is_pasted_without_their_formatting) {
    auto* data = new QMimeData;
    data->setText(QStringLiteral("one\r\ntwo"));
    data->setHtml(QStringLiteral("<b>one</b><p>two</p>"));
    QApplication::clipboard()->setMimeData(data);
    text.setContents(L"{\\La}");
    edit(
        [](EditorPanel&) {
            press(Qt::Key_V, Qt::ControlModifier);
            tab();
        },
        kMTextEditorCaretAtEnd);
    EXPECT_EQ(contents(), L"{\\Laone\\Ptwo}");
}

}  // namespace
}  // namespace kdtest
