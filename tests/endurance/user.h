// The user who does anything that is valid: chooses actions by their weights, answers what they open, checks what has
// to hold, and keeps the journal of it.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>

#include "host/ad/application.h"
#include "host/app/windowfeeder.h"
#include "host/ed/commandline.h"
#include "host/ed/inputqueue.h"
#include "tests/endurance/journal.h"
#include "tests/endurance/prompts.h"
#include "tests/endurance/road.h"
#include "tests/endurance/undowalk.h"
#include "tests/endurance/windows.h"
#include "tests/support/random.h"

namespace endurance {

class RandomUser : private kdhost::InputSource, private kdhost::WindowUser, private kdhost::CommandLineListener {
public:
    RandomUser(kdhost::Application& application, kdhost::WindowFeeder& windows, Journal& journal, std::uint64_t seed);
    ~RandomUser() override;
    RandomUser(const RandomUser&) = delete;
    RandomUser& operator=(const RandomUser&) = delete;

    /// A journal again in the place of actions of its own.
    void play(const std::string& journal);

    /// That many actions, the thorough checks in between, then all steps back and forth again in each drawing. Empty,
    /// or what went wrong.
    std::string run(int actions);

    int actionsDone() const { return m_done; }
    /// How often each action was chosen, by "road: action".
    const std::map<std::string, int>& counts() const { return m_counts; }

private:
    bool feed(kdhost::InputQueue& queue) override;
    bool useWindow() override;
    void written(const std::wstring& text) override;
    void failed(const std::wstring& message) override;
    void fail(const std::wstring& message) override;

    void fail(const std::string& message);
    bool isOver() const { return !m_failure.empty() || m_isDone; }
    bool isIdle() const;
    void endAction();
    /// False when there is none any more.
    bool beginAction();
    void beginSomeAction();
    std::optional<std::wstring> nextLine();
    std::optional<std::wstring> nextPlayed();
    std::wstring lineForWindow();
    void give(kdhost::InputQueue& queue, const std::wstring& line);
    void note(const std::wstring& line);

    kdhost::WindowFeeder& m_feeder;
    Journal& m_journal;
    Random m_random;
    Stand m_stand;
    Windows m_windows;
    Prompts m_prompts;
    UndoWalk m_walk;
    std::deque<Line> m_lines;           ///< of the action, not given yet
    std::deque<std::wstring> m_played;  ///< of a journal, not given yet
    std::map<std::string, int> m_counts;
    std::string m_failure;
    int m_wanted = 0;
    int m_done = 0;
    int m_linesOfAction = 0;
    bool m_isDone = false;
    bool m_plays = false;
    bool m_walks = false;  ///< all actions are done
};

}  // namespace endurance
