// LINE and ERASE.

#include "host/app/commands/drawcommands.h"

#include <optional>
#include <vector>

#include "host/app/commands/chosenobjects.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/words.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr Words kFirstPoint{L"\nFirst point: ", L"\n第一点: "};
constexpr Words kNextPoint{L"\nNext point or [Close/Undo]: ", L"\n下一点或 [闭合(C)/放弃(U)]: "};
constexpr Words kWords{L"Close Undo _Close Undo", L"闭合(C) 放弃(U) _Close Undo"};
constexpr Words kNotWritten{L"The drawing can't be written now.", L"现在无法修改图形。"};
constexpr Words kNothingToClose{L"\nTwo lines at least are needed to close.", L"\n至少需要两条直线才能闭合。"};
constexpr Words kNothingToUndo{L"\nThere is no line to take back.", L"\n没有可放弃的直线。"};
constexpr Words kErased{L"\n%1 erased.", L"\n已删除 %1 个对象。"};
constexpr Words kKept{L"\n%1 on locked layers or in use kept.", L"\n锁定图层上或正在使用的 %1 个对象未删除。"};

/// Lines drawn one behind the other, by one run of the command. Points are the user's.
class LineString {
public:
    LineString(Editor& editor, const KdGePoint3d& first) : m_editor(editor), m_points{first} {}

    const KdGePoint3d& last() const { return m_points.back(); }

    /// False, with the user told, when the drawing can't take the line.
    bool goTo(const KdGePoint3d& to) {
        auto line = std::make_unique<KdDbLine>(m_editor.toWorld(last()), m_editor.toWorld(to));
        line->setDatabaseDefaults(&m_editor.database());
        const KdDbLine* made = line.get();
        if (!appendToCurrentSpace(m_editor.database(), std::move(line))) {
            commandLine().fail(kNotWritten.text());
            return false;
        }
        m_lines.push_back(made->objectId());
        m_points.push_back(to);
        return true;
    }

    void takeBack() {
        if (m_lines.empty()) return commandLine().write(kNothingToUndo.text());
        if (const Opened<KdDbLine> line(m_lines.back(), KdDb::kForWrite); line) line->erase();
        m_lines.pop_back();
        m_points.pop_back();
        m_editor.lastPoint() = last();
    }

    /// False where there is nothing to close.
    bool close() {
        if (m_lines.size() >= 2) {
            goTo(m_points.front());
            return true;
        }
        commandLine().write(kNothingToClose.text());
        return false;
    }

private:
    Editor& m_editor;
    std::vector<KdGePoint3d> m_points;  ///< one more than there are lines
    std::vector<KdDbObjectId> m_lines;
};

/// False when that ends the command.
bool goOn(LineString& lines) {
    KdGePoint3d point;
    kdedInitGet(0, kWords.text());
    const int status = kdedGetPoint(&lines.last(), kNextPoint.text(), point);
    if (status == RTNORM) return lines.goTo(point);
    if (status != RTKWORD) return false;
    wchar_t word[132];
    kdedGetInput(word);
    if (std::wstring(word) == L"Close") return !lines.close();
    lines.takeBack();
    return true;
}

}  // namespace

void drawLines() {
    KdGePoint3d first;
    if (kdedGetPoint(nullptr, kFirstPoint.text(), first) != RTNORM) return;
    LineString lines(*currentEditor(), first);
    while (goOn(lines)) {
    }
}

void eraseObjects() {
    const std::vector<KdDbObjectId> ids = chosenObjects();
    if (ids.empty()) return;
    const int kept = eraseWhatMayGo(ids);
    commandLine().write(kErased.with(static_cast<int>(ids.size()) - kept));
    if (kept > 0) commandLine().write(kKept.with(kept));
    currentEditor()->pickFirst().clear();
}

}  // namespace kdhost
