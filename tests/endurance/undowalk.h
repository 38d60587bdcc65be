// All steps back and forth again: each drawing must be as it was when it was new or opened, then as it was at the end.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "tests/endurance/stand.h"

namespace endurance {

class UndoWalk {
public:
    explicit UndoWalk(const Stand& stand) : m_stand(stand) {}

    /// While nothing runs: notes how drawings begin that weren't there before, and forgets those that were closed.
    void watch();

    /// The next line of the walk through all drawings; none at its end, or with `failure` set.
    std::optional<std::wstring> next(std::string& failure);

private:
    enum class Stage { Leave, Go, Undo, Redo };

    std::string compare(const std::string& wanted, const char* way) const;

    const Stand& m_stand;
    std::map<const kdhost::Document*, std::string> m_begins;
    Stage m_stage = Stage::Leave;
    int m_document = 0;  ///< the one that the walk is in
    std::string m_end;   ///< of that drawing
    int m_steps = 0;     ///< that were taken back; more may wait to be redone
};

}  // namespace endurance
