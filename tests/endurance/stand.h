// How the program stands, for those who choose what is done next. It reads without opening.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"
#include "tests/support/random.h"

class KdDbTable;

namespace kdhost {
class Application;
class Document;
class Editor;
}  // namespace kdhost

namespace endurance {

using kdtest::Random;

class Stand {
public:
    explicit Stand(kdhost::Application& application) : m_application(application) {}

    kdhost::Application& application() const { return m_application; }
    kdhost::Document& document() const;
    kdhost::Editor& editor() const;
    int documents() const;

    /// Of the current drawing, in the order in which scripts count them.
    std::vector<const KdDbTable*> tables() const;
    int entities() const;
    /// The table that has selected cells; null for none.
    const KdDbTable* tableOfSelectedCells() const;
    /// The table that scripts mean when they name none; null when it is gone.
    const KdDbTable* currentTable() const;
    /// Of the current drawing; blocks without those of the host's own.
    std::vector<std::wstring> layers() const;
    std::vector<std::wstring> blocks() const;
    bool hasLockedLayer() const;
    std::vector<std::wstring> tableStyles() const;
    /// Of the first table's style, under the names that commands take.
    std::vector<std::wstring> cellStyles() const;
    bool canUndo() const;
    bool canRedo() const;
    /// Whether another open drawing has that file of the run's own folder, which then can't be written.
    bool isFileOfOther(const std::wstring& name) const;
    /// Files of that ending in the run's own folder, sorted.
    std::vector<std::wstring> files(const std::wstring& extension) const;

private:
    kdhost::Application& m_application;
};

/// "B2", "A1:C3", rows "2:3" or columns "B:C" of a table of that size.
std::wstring someCells(Random& random, int rows, int columns);
/// One cell.
std::wstring someCell(Random& random, int rows, int columns);
std::wstring columnName(int column);
/// A place within a cell of the table, "X,Y" in drawing units.
std::wstring placeIn(Random& random, const KdDbTable& table);
/// The same, where nothing else lies above the table; none when no such place was found.
std::optional<std::wstring> clearPlaceIn(Random& random, const Stand& stand, const KdDbTable& table);
/// "X,Y".
std::wstring placeText(const KdGePoint3d& place);
/// A place anywhere on the sheet.
std::wstring somePlace(Random& random);

}  // namespace endurance
