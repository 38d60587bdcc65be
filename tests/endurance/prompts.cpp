// Answers to prompts.

#include "tests/endurance/prompts.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>

#include "host/app/window/promptwords.h"
#include "kd/db/table.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

using kdhost::PromptKind;

constexpr const wchar_t* kCancel = L"@key ESC";

/// What is typed for the words that a prompt shows between brackets.
std::vector<std::wstring> wordsOf(const std::wstring& prompt) {
    const QString text = QString::fromStdWString(prompt);
    const int open = text.indexOf(QLatin1Char('['));
    const int close = text.indexOf(QLatin1Char(']'), open + 1);
    std::vector<std::wstring> words;
    if (open < 0 || close < 0) return words;
    for (const QString& word : text.mid(open + 1, close - open - 1).split(QLatin1Char('/'))) {
        words.push_back(kdhost::typedFor(word).toStdWString());
    }
    return words;
}

std::wstring chooseWord(Random& random, const Stand&, const kdhost::Editor& editor) {
    const std::vector<std::wstring> words = wordsOf(editor.promptText());
    if (words.empty() || random.chance(3)) return kCancel;
    return random.oneOf(words);
}

/// Only cell styles are asked for without a text of their own.
std::wstring giveText(Random& random, const Stand& stand, const kdhost::Editor&) {
    const std::vector<std::wstring> styles = stand.cellStyles();
    if (styles.empty() || random.chance(10)) return kCancel;
    return random.chance(10) ? L"No such style" : random.oneOf(styles);
}

std::wstring givePlace(Random& random, const Stand&, const kdhost::Editor&) {
    if (random.chance(10)) return kCancel;
    return L"@pick " + somePlace(random);
}

std::wstring giveEntity(Random& random, const Stand& stand, const kdhost::Editor&) {
    if (!hasTable(stand) || random.chance(10)) return kCancel;
    return L"@pick " + (random.chance(10) ? somePlace(random) : placeIn(random, someTable(random, stand)));
}

std::wstring giveObjects(Random& random, const Stand& stand, const kdhost::Editor& editor) {
    return random.chance(50) ? L"" : giveEntity(random, stand, editor);
}

std::wstring giveCells(Random& random, const Stand& stand, const kdhost::Editor&) {
    if (!hasTable(stand) || random.chance(10)) return kCancel;
    return selectSomeCells(random, stand).text;
}

std::wstring drag(Random& random, const Stand& stand, const kdhost::Editor& editor) {
    return random.chance(40) ? L"@move " + somePlace(random) : givePlace(random, stand, editor);
}

struct Habit {
    PromptKind kind;
    std::wstring (*answer)(Random&, const Stand&, const kdhost::Editor&);
};

constexpr std::array habits = {
    Habit{PromptKind::Keyword, chooseWord},  Habit{PromptKind::Text, giveText},
    Habit{PromptKind::Point, givePlace},     Habit{PromptKind::Entity, giveEntity},
    Habit{PromptKind::Objects, giveObjects}, Habit{PromptKind::Cell, giveCells},
    Habit{PromptKind::Cells, giveCells},     Habit{PromptKind::Drag, drag},
};

}  // namespace

void Prompts::forget() {
    m_answersLeft = m_random.between(2, 12);
}

std::wstring Prompts::next(const kdhost::Editor& editor) {
    if (--m_answersLeft < 0) return kCancel;
    const auto* habit =
        std::find_if(habits.begin(), habits.end(), [&](const Habit& each) { return each.kind == editor.promptKind(); });
    return habit == habits.end() ? kCancel : habit->answer(m_random, m_stand, editor);
}

}  // namespace endurance
