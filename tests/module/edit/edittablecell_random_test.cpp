// EDITTABLECELL in the hands of a user who types anything.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <random>
#include <sstream>

#include "module/edit/menutexts.h"
#include "tests/module/edit/commandrun.h"

namespace kdtest {
namespace {

constexpr int replyCount = 10000;
/// A table that grew beyond this many cells is left alone.
constexpr int largestTable = 400;

class RandomUser : public CommandRun {
protected:
    void SetUp() override {
        CommandRun::SetUp();
        m_boxes.setInterval(0);
        QObject::connect(&m_boxes, &QTimer::timeout, [this] { answerBox(); });
        m_boxes.start();
        const ResourceScope resources;
        for (const MenuTexts* menu :
             {&menutexts::mainMenu, &menutexts::operation, &menutexts::merge, &menutexts::formula, &menutexts::content,
              &menutexts::format, &menutexts::alignment, &menutexts::style}) {
            m_lists.emplace_back(loadText(menu->prompt), wordsOf(loadText(menu->keywords)));
        }
    }

    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    template <class List>
    const auto& anyOf(const List& list) {
        return list[m_random() % std::size(list)];
    }

    KdDbObjectId edited;
    int replies = 0;
    const unsigned seed = std::random_device{}();

private:
    static std::vector<std::wstring> wordsOf(const std::wstring& list) {
        std::wistringstream stream(list);
        std::vector<std::wstring> words;
        for (std::wstring word; stream >> word;) words.push_back(word);
        return words;
    }

    bool feed(kdhost::InputQueue& queue) override {
        if (++replies > replyCount) return false;
        const std::wstring answer = reply(host.editor().promptText());
        queue.type(answer == esc ? esc : answer + L"\n");
        return true;
    }

    std::wstring reply(const std::wstring& prompt) {
        static const wchar_t* const anything[] = {
            L"", L"7", L"255,0,0", L"Title", L"No style", L"1,-1", L"101,-1", L"500,500", L"甲", L"_", L"^C", L"((",
        };
        static const wchar_t* const references[] = {
            L"A1", L"B2:C3", L"c4:a1", L"1", L"2:3", L"B", L"A:B", L"99:1", L"ZZZZZZZZZZ1", L":", L"1A", L"A1:", L"",
        };
        if (isTooLarge()) return esc;
        const int chance = below(20);
        if (chance == 0) return esc;
        if (chance == 1) return anyOf(anything);
        if (prompt == text(menutexts::pickTable.resourceText)) return below(4) != 0 ? L"1,-1" : L"101,-1";
        if (prompt == text(menutexts::enterCells.resourceText)) return anyOf(references);
        for (const auto& [listPrompt, words] : m_lists) {
            if (prompt == listPrompt && chance > 4) return word(words);
        }
        return word(anyOf(m_lists).second);
    }

    /// A word of a list; the way out is taken less often than the others.
    std::wstring word(const std::vector<std::wstring>& words) {
        const std::wstring& chosen = anyOf(words);
        const bool leads = chosen.find(L"Quit") == chosen.npos && chosen.find(L"BAck") == chosen.npos;
        return leads || below(3) == 0 ? chosen : anyOf(words);
    }

    bool isTooLarge() const {
        const auto* table = static_cast<const KdDbTable*>(kdhost::peekObject(edited, true));
        return table != nullptr && table->numRows() * table->numColumns() > largestTable;
    }

    void answerBox() {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        auto* const box = qobject_cast<QMessageBox*>(dialog);
        if (box != nullptr) {
            box->buttons().at(below(box->buttons().size()))->click();
        } else if (dialog != nullptr) {
            dialog->reject();
        }
    }

    std::mt19937 m_random{seed};
    std::vector<std::pair<std::wstring, std::vector<std::wstring>>> m_lists;
    QTimer m_boxes;
};

TEST_F(RandomUser, leaves_nothing_open_and_a_locked_layer_untouched_and_every_run_ends) {
    SCOPED_TRACE(seed);
    const KdDbObjectId locked =
        add(TableBuilder(4, 3).merge("A1:B1").fill().select("A1:B3").build(), {100.0, 0.0, 0.0});
    lockLayerOf(locked);
    const std::string before = describeTable(locked);
    const ResourceScope resources;
    using Gui = EditTableCellGUI;
    constexpr Menu menus[] = {&Gui::editCell_Operation, &Gui::editCell_Merge,  &Gui::editCell_Formula,
                              &Gui::editCell_Content,   &Gui::editCell_Format, &Gui::editCell_Alignment,
                              &Gui::editCell_Style};
    int commands = 0;
    int changed = 0;
    while (replies < replyCount) {
        edited = add(TableBuilder(5, 4).merge("B2:C2").text("A1", L"x").text("C4", L"y").build());
        const std::string fresh = describeTable(edited);
        for (int i = 0; i < 5; ++i) Gui().entry();
        Gui gui;
        (gui.*anyOf(menus))(locked);
        Gui again;
        (again.*anyOf(menus))(KdDbObjectId::kNull);
        ++commands;

        ASSERT_TRUE(kdhost::openObjects().empty());
        ASSERT_EQ(describeTable(locked), before);
        if (describeTable(edited) != fresh) ++changed;
        change(edited, [](KdDbTable& table) { table.erase(); });
    }
    EXPECT_GT(commands, 10);
    EXPECT_GT(changed, commands / 4) << "the user gets something done";
}

}  // namespace
}  // namespace kdtest
