// A plain slow model of tables with formulas: formulas are trees that nobody parses, every value is worked out anew
// by looking at all that it reads, and a reference follows a change of structure line by line.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace kdtest::slow {

struct Place {
    int table = 0;
    int row = 0;
    int column = 0;
    auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr): false alarm
};

/// A reference to cells; first and last along each direction.
struct Cells {
    int table = -1;  ///< that it names; none for the formula's own
    bool broken = false;
    bool isRange = false;
    int row[2] = {0, 0};
    int column[2] = {0, 0};
    bool fixedRow[2] = {false, false};
    bool fixedColumn[2] = {false, false};
};

struct Tree {
    enum class Kind { number, cells, minus, plus, binary, brackets, call };
    Kind kind = Kind::number;
    std::wstring written;  ///< of a number
    double number = 0.0;
    Cells cells;
    wchar_t sign = L'+';    ///< of a binary operation
    std::wstring function;  ///< of a call
    std::wstring blanks;    ///< before it
    std::vector<Tree> parts;
};

struct Value {
    enum class Kind { empty, number, text, error };
    Kind kind = Kind::empty;
    double number = 0.0;
    std::wstring text;
};

/// Something that a user types, and what it means to a formula.
struct Typed {
    std::wstring contents;
    Value value;
};

struct Cell {
    Typed typed;
    std::shared_ptr<const Tree> formula;  ///< null for a typed cell
};

struct Sheet {
    bool erased = false;
    std::vector<std::vector<Cell>> rows;

    int rowCount() const { return static_cast<int>(rows.size()); }
    int columnCount() const { return static_cast<int>(rows.front().size()); }
};

struct Sheets {
    std::vector<Sheet> tables;
    std::vector<std::uint64_t> ids;  ///< of the tables, as formulas name them

    Cell& at(const Place& place);
    const Cell& at(const Place& place) const;
    /// The formula as it is written, without an equals sign.
    std::wstring written(const Tree& tree) const;
    /// What the cell shows.
    std::wstring shown(const Place& place) const;

    void insertRows(int table, int at, int count);
    void deleteRows(int table, int at, int count);
    void insertColumns(int table, int at, int count);
    void deleteColumns(int table, int at, int count);

private:
    bool leadsToCells(const Cells& cells, int own) const;
    std::vector<Place> placesOf(const Cells& cells, int own) const;
    void collectReads(const Tree& tree, int own, std::set<Place>& reads) const;
    bool allLeadToCells(const Tree& tree, int own) const;
    bool readsItself(const Place& place) const;
    Value valueAt(const Place& place) const;
    Value valueOf(const Tree& tree, int own) const;
    Value valueOfCall(const Tree& tree, int own) const;
    template <class NewLine>
    void renumber(int table, bool rows, NewLine newLine);

    mutable std::map<Place, Value> m_known;
    mutable std::map<Place, std::set<Place>> m_reads;
};

/// Formulas and typed texts at random.
class Author {
public:
    explicit Author(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int times) { return below(times) == 0; }
    Typed typed();
    /// For a cell of that table.
    Tree formula(const Sheets& sheets, int table) { return expression(sheets, table, 4); }

private:
    Tree expression(const Sheets& sheets, int table, int depth);
    Tree operand(const Sheets& sheets, int table, int depth);
    Tree call(const Sheets& sheets, int table, int depth);
    Tree reference(const Sheets& sheets, int table, bool mayBeRange);
    Tree number();
    Tree bracketed(Tree inside);

    std::mt19937 m_random;
};

}  // namespace kdtest::slow
