// The editor of one document: its input, its prompts, what is selected, its coordinates and its view.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/ed/inputqueue.h"
#include "host/ed/keywords.h"
#include "host/ed/lispfunctions.h"
#include "host/ed/pickfirst.h"
#include "host/ed/view.h"
#include "kd/ge/matrix3d.h"

class KdDbDatabase;

namespace kdhost {

enum class PromptKind { Command, Keyword, Text, Point, Entity, Objects, Cell, Cells, Drag };

/// What the user answered to a prompt.
struct Answer {
    enum class Kind { Text, Pick, AddPick, Move, Cells, Cancel, Escape, End };
    Kind kind = Kind::Text;
    std::wstring text;  ///< empty for Enter
    KdGePoint3d point;  ///< of a pick, in world coordinates
    CellsOfTable cells = {};

    bool isPick() const { return kind == Kind::Pick || kind == Kind::AddPick; }
    /// Cancelled, also because nothing comes any more.
    bool isCancel() const { return kind == Kind::Cancel || kind == Kind::Escape || kind == Kind::End; }
};

class Editor;

/// Told of what waits for the user, whenever that changes.
class PromptListener {
public:
    virtual ~PromptListener() = default;
    virtual void prompted(const Editor& editor) = 0;
};
/// Null for none. The listener stays the caller's.
void setPromptListener(PromptListener* listener);

class Editor {
public:
    explicit Editor(KdDbDatabase& database);

    KdDbDatabase& database() const { return m_database; }
    InputQueue& input() { return m_input; }
    PickFirst& pickFirst() { return m_pickFirst; }
    const PickFirst& pickFirst() const { return m_pickFirst; }
    View& view() { return m_view; }
    const View& view() const { return m_view; }
    /// Shows all that stands in the current space; the sheet of a new drawing where nothing does.
    void zoomToDrawing();
    LispFunctions& lispFunctions() { return m_lispFunctions; }

    /// Shows the prompt and reads the answer: up to a blank or a line end, or up to the line end where the
    /// prompt takes blanks. A pick that the prompt doesn't take is passed over.
    Answer ask(PromptKind kind, const std::wstring& prompt, bool takesBlanks = false);

    /// What waits now, or asked last. A prompt may wait inside another one, of what a click on a window sets off
    /// meanwhile; when it has its answer, the outer one waits again.
    PromptKind promptKind() const { return m_prompt.kind; }
    const std::wstring& promptText() const { return m_prompt.text; }
    bool promptTakesBlanks() const { return m_prompt.takesBlanks; }
    bool isAsking() const { return m_asking > 0; }

    /// Keywords and flags for the next prompt; taking them leaves none.
    struct Announcement {
        int flags = 0;
        KeywordList keywords;
        bool refusesEnter() const { return (flags & 1) != 0; }
    };
    void announce(int flags, const std::wstring& keywords) { m_announcement = {flags, KeywordList(keywords)}; }
    Announcement takeAnnouncement();
    /// The word of the last prompt that ended with a keyword.
    std::wstring& chosenKeyword() { return m_chosenKeyword; }

    /// From user to world coordinates, by the system of the current space.
    KdGeMatrix3d ucs() const;
    /// Of the matrix the origin and the directions of its x and y axis count. False, with nothing changed, when
    /// they make no system.
    bool setUcs(const KdGeMatrix3d& ucs);
    KdGePoint3d toWorld(const KdGePoint3d& user) const { return ucs() * user; }
    KdGePoint3d toUser(const KdGePoint3d& world) const { return ucs().inverse() * world; }
    /// The point entered last, in user coordinates; relative coordinates without a base start there.
    KdGePoint3d& lastPoint() { return m_lastPoint; }

private:
    struct Prompt {
        PromptKind kind = PromptKind::Command;
        std::wstring text;
        bool takesBlanks = false;
    };
    /// Shows one prompt for the time of its waiting.
    class Asking;

    Answer readAnswer();

    KdDbDatabase& m_database;
    InputQueue m_input;
    PickFirst m_pickFirst;
    View m_view;
    LispFunctions m_lispFunctions;
    Prompt m_prompt;
    int m_asking = 0;
    Announcement m_announcement;
    std::wstring m_chosenKeyword;
    KdGePoint3d m_lastPoint;
};

/// The editor of the active document; null when no drawing is open.
Editor* currentEditor();
void setCurrentEditor(Editor* editor);

/// Where all editors' input comes from; null for none. The source stays the caller's.
InputSource* inputSource();
void setInputSource(InputSource* source);

}  // namespace kdhost
