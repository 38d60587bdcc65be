// What the random user does next.

#include "tests/endurance/user.h"

#include <numeric>
#include <sstream>
#include <utility>

#include "host/app/scriptactions.h"
#include "host/ed/commands.h"
#include "host/ed/editor.h"
#include "host/rx/encoding.h"
#include "host/ui/automation/automation.h"
#include "tests/endurance/checks.h"

namespace endurance {
namespace {

/// No action takes as many lines.
constexpr int mostLines = 400;
constexpr int actionsBetweenSoundness = 10;
constexpr int actionsBetweenFiles = 250;

struct Chance {
    const Road* road;
    const Action* action;
};

std::vector<Chance> validActions(const Stand& stand) {
    std::vector<Chance> valid;
    for (const Road* road : roads()) {
        for (const Action& action : road->actions) {
            if (action.may == nullptr || action.may(stand)) valid.push_back({road, &action});
        }
    }
    return valid;
}

Chance choose(Random& random, const std::vector<Chance>& valid) {
    const int all = std::accumulate(valid.begin(), valid.end(), 0,
                                    [](int sum, const Chance& chance) { return sum + chance.action->weight; });
    int place = random.below(all);
    auto chosen = valid.begin();
    while (place >= chosen->action->weight) place -= (chosen++)->action->weight;
    return *chosen;
}

}  // namespace

RandomUser::RandomUser(kdhost::Application& application, kdhost::WindowFeeder& windows, Journal& journal,
                       std::uint64_t seed)
    : m_feeder(windows),
      m_journal(journal),
      m_random(seed),
      m_stand(application),
      m_windows(m_random, m_stand),
      m_prompts(m_random, m_stand),
      m_walk(m_stand) {
    kdhost::setInputSource(this);
    m_feeder.setUser(this);
    kdhost::commandLine().setListener(this);
}

RandomUser::~RandomUser() {
    kdhost::commandLine().setListener(nullptr);
    m_feeder.setUser(nullptr);
    kdhost::setInputSource(nullptr);
}

std::string RandomUser::run(int actions) {
    m_wanted = actions;
    kdhost::runCommands();
    kdhost::WindowFeeder::waitUntilClosed();
    return m_failure;
}

void RandomUser::play(const std::string& journal) {
    m_plays = true;
    std::istringstream stream(journal);
    for (std::string line; std::getline(stream, line);) {
        if (line.find(kBehindActions) == 2) break;
        if (line.rfind(';', 0) != 0) m_played.push_back(kdhost::fromUtf8(line));
    }
}

bool RandomUser::isIdle() const {
    return m_stand.editor().promptKind() == kdhost::PromptKind::Command && kdhost::runningCommandNames().empty();
}

std::optional<std::wstring> RandomUser::nextPlayed() {
    if (m_played.empty()) return std::nullopt;
    std::wstring line = m_played.front();
    m_played.pop_front();
    return line;
}

void RandomUser::endAction() {
    std::string wrong = nothingIsOpen(m_stand);
    m_walk.watch();
    const bool isLast = m_plays ? m_played.empty() : m_done == m_wanted;
    if (!m_walks && wrong.empty() && (isLast || m_done % actionsBetweenSoundness == 0)) wrong = tablesAreSound(m_stand);
    if (!m_walks && wrong.empty() && (isLast || m_done % actionsBetweenFiles == 0)) wrong = comesBackFromFile(m_stand);
    if (!wrong.empty()) fail(wrong);
}

void RandomUser::beginSomeAction() {
    const Chance chosen = choose(m_random, validActions(m_stand));
    const std::string name = std::string(chosen.road->name) + ": " + chosen.action->name;
    ++m_counts[name];
    m_journal.remark("action " + std::to_string(++m_done) + ", " + name);
    const Lines lines = chosen.action->begin(m_random, m_stand);
    m_lines.assign(lines.begin(), lines.end());
}

bool RandomUser::beginAction() {
    m_linesOfAction = 0;
    m_windows.forget();
    m_prompts.forget();
    if (!m_played.empty()) {
        ++m_done;
        m_lines.push_back(command(*nextPlayed()));
        return true;
    }
    if (!m_plays && m_done < m_wanted) {
        beginSomeAction();
        return true;
    }
    if (!std::exchange(m_walks, true)) m_journal.remark(kBehindActions);
    std::string wrong;
    const auto line = m_walk.next(wrong);
    if (!wrong.empty()) fail(wrong);
    if (line) m_lines.push_back(command(*line));
    return line.has_value();
}

std::optional<std::wstring> RandomUser::nextLine() {
    const kdhost::PromptKind kind = m_stand.editor().promptKind();
    if (!m_lines.empty() && m_lines.front().at != kind) m_lines.clear();
    // A window that stands beside the prompt has opened a list.
    if (kdhost::automation::isBlocked()) return lineForWindow();
    if (m_lines.empty() && isIdle()) {
        endAction();
        if (!m_failure.empty() || !beginAction()) return std::nullopt;
    }
    if (m_lines.empty() && m_plays && !isIdle()) return nextPlayed().value_or(L"@key ESC");
    if (m_lines.empty()) return m_prompts.next(m_stand.editor());
    std::wstring line = m_lines.front().text;
    m_lines.pop_front();
    return line;
}

void RandomUser::note(const std::wstring& line) {
    if (!line.empty() && line.front() == L'@') {
        m_journal.acted(line.substr(1));
    } else {
        m_journal.typed(line);
    }
    if (++m_linesOfAction > mostLines) fail("the action comes to no end");
}

void RandomUser::give(kdhost::InputQueue& queue, const std::wstring& line) {
    note(line);
    if (line.empty() || line.front() != L'@') return queue.type(line + L"\n");
    const std::wstring error = kdhost::actOnPrompt(m_stand.editor(), line.substr(1));
    if (!error.empty()) fail(kdhost::toUtf8(error));
}

bool RandomUser::feed(kdhost::InputQueue& queue) {
    while (!isOver() && queue.isEmpty()) {
        const auto line = nextLine();
        if (line) {
            give(queue, *line);
        } else {
            m_isDone = true;
        }
    }
    return !isOver();
}

std::wstring RandomUser::lineForWindow() {
    return m_plays ? nextPlayed().value_or(L"@close") : m_windows.next();
}

bool RandomUser::useWindow() {
    if (isOver()) {
        m_feeder.dismissAll(m_failure);
        return true;
    }
    const std::wstring line = lineForWindow();
    note(line);
    const std::wstring error = kdhost::actOnWindow(line.substr(1));
    if (!error.empty()) fail(kdhost::toUtf8(error));
    return true;
}

void RandomUser::written(const std::wstring& text) {
    if (text.find(L"internal") != std::wstring::npos) fail(kdhost::toUtf8(text));
}

void RandomUser::failed(const std::wstring& message) {
    fail(message);
}

void RandomUser::fail(const std::wstring& message) {
    fail(kdhost::toUtf8(message));
}

void RandomUser::fail(const std::string& message) {
    if (!m_failure.empty()) return;
    m_failure = message;
    m_feeder.dismissAll(message);
    if (kdhost::Editor* asking = kdhost::currentEditor()) asking->input().clear();
}

}  // namespace endurance
