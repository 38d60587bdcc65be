// The input queue of a document: everything that prompts read. Keys, macros, strings sent to the document and
// script lines all end up here.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

namespace kdhost {

class InputQueue;

/// A rectangle of cells in one table.
struct CellsOfTable {
    KdDbObjectId table;
    KdCellRange range;
};

/// One thing that the user did.
struct InputItem {
    enum class Kind {
        Character,
        Cancel,   ///< cancels what runs; the selection stays
        Escape,   ///< the key: with nothing running it empties the selection
        Pick,     ///< of a world point
        AddPick,  ///< the same, added to what is selected
        Move,     ///< of the cursor over the drawing, while something is dragged
        Cells     ///< cells of a table dragged over
    };
    Kind kind = Kind::Character;
    wchar_t character = 0;
    KdGePoint3d point;
    CellsOfTable cells;
};

/// Where input comes from once the queue is empty.
class InputSource {
public:
    virtual ~InputSource() = default;
    /// Puts what comes next into the queue, waiting for it if need be. False when nothing will come any more.
    virtual bool feed(InputQueue& queue) = 0;
};

/// Text that the host or a module sends goes ahead of what the user typed; each kind keeps its order.
class InputQueue {
public:
    /// Each "^C" in the text cancels.
    void send(const std::wstring& text);
    /// A line as typed, its line end included. A "^C" cancels where it stands at the start.
    void type(const std::wstring& text);
    void put(InputItem::Kind kind, const KdGePoint3d& point = {});
    void put(const CellsOfTable& cells);

    bool isEmpty() const { return m_sent.empty() && m_typed.empty(); }
    void clear();

    /// Called whenever something comes into the queue, so that a source which waits can go on; empty for none. The one
    /// before is handed back.
    std::function<void()> setListener(std::function<void()> listener);

    /// The next item; the source is asked only when the queue is empty. None when nothing comes any more.
    std::optional<InputItem> next(InputSource* source);

private:
    void tell() const;

    std::function<void()> m_listener;
    std::deque<InputItem> m_sent;
    std::deque<InputItem> m_typed;
};

}  // namespace kdhost
