// The field engine: it knows every formula of every drawing, which cells each of them reads, and what has to be
// calculated anew when something changes.
//
// A change is followed in two halves. When an open ends that changed a table or a field, or an undo puts one back,
// whatever depends on the changed cells, directly or not, is marked as out of date; that takes time by what is
// marked, and nothing is calculated. What a formula comes to is worked out when somebody asks for it. Results are
// no part of what fields hold: undo need not keep them, and they can't be stale after it.
#pragma once

#include <deque>
#include <memory>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/tablestate.h"
#include "host/field/calculation.h"
#include "host/field/formula.h"
#include "kd/db/table.h"

namespace kdhost::field {

class Engine final : public FieldEvaluation, public DatabaseListener {
public:
    static Engine& instance();

    void setCellInEdit(KdDbObjectId table, int row, int column);
    KdDbObjectId cellInEdit(int& row, int& column) const;

    // From the database.
    std::wstring shownText(const std::vector<const KdDbField*>& path) override;
    void fieldTouched(KdDbObjectId field) override;
    void fieldGone(KdDbObjectId field) override;
    void fieldPlaced(const KdDbTable& table) override;
    void objectChanged(KdDbObjectId id) override;
    std::wstring movedCode(const std::wstring& code, int rows, int columns) override;
    void beforeStructureChange(const KdDbTable& table, const StructureChange& change) override;
    void afterStructureChange(const KdDbTable& table, const StructureChange& change) override;

private:
    class Reading;
    class Walk;
    class Read;
    class ReadInMemory;
    /// A merge loses the cell that its content stands in; the content moves on to a cell that stays.
    struct Survivor {
        int row;
        int column;
        int newRow;  ///< after the change
        int newColumn;
    };

    // Knowing what there is (registration.cpp).
    void catchUp();
    void touch(KdDbObjectId field);
    void build(int number);
    void collect(const KdDbField& field, int number, std::vector<KdDbObjectId>& formulas, std::size_t depth);
    void forget(int number);
    int cellFieldOf(KdDbObjectId field);
    void setUpFormula(const KdDbField& field, int number);
    void resolve(Formula& formula, const KdDbDatabase* database);
    void enterReaders(int number);
    void leaveReaders(Formula& formula);
    void removeFormula(int number);
    Sheet* sheetOfTable(KdDbObjectId table) const;
    Sheet& makeSheet(KdDbObjectId table);
    Sheet* ownSheet(const CellField& cellField);
    void pruneSheets();

    // Following tables (sheets.cpp).
    void look(Sheet& sheet);
    void lookAtAll(Sheet& sheet, const TableState& state);
    void lookAtRow(Sheet& sheet, const TableState& state, int row);
    void lookAtCell(Sheet& sheet, const TableState& state, int row, int column);
    Slot slotOf(const TableState& state, int row, int column);
    bool isFormula(int cellField) const { return m_cellFields[static_cast<std::size_t>(cellField)].isFormula; }
    void fieldCame(Sheet& sheet, int cellField, int row, int column);
    void fieldWent(Sheet& sheet, int cellField, int row, int column);
    void shiftCells(Sheet& sheet, const TableState& state, const StructureChange& change);
    void shiftPlaces(Sheet& sheet, const StructureChange& change);
    void shiftReaders(Sheet& sheet, const StructureChange& change);
    bool rewriteReferences(Formula& formula, const Sheet& sheet, const StructureChange& change) const;
    Reference follow(const Reference& reference, const StructureChange& change) const;

    // Marking (marking.cpp).
    void cellChanged(const Place& place) { m_changes.push_back(place); }
    void markReaders(Sheet& sheet);
    void markOutOfDate(int formula);
    void markMixed(const KdDbDatabase* database);
    void spread();
    void noteRedraw(const CellField& cellField);
    void tellOthers(KdDbObjectId told);

    // Evaluating (evaluation.cpp).
    bool isClean(int formula) const { return m_formulas[static_cast<std::size_t>(formula)].clean; }
    void evaluate(int formula);
    Value resultOf(const Formula& formula);
    Value valueOfMixed(const CellField& cellField);
    std::wstring textOf(Formula& formula, const KdDbDatabase& database);
    CellWriting writingOf(const Place& place) const;
    std::wstring textInMemory(const std::vector<const KdDbField*>& path);
    Value valueInMemory(const std::vector<const KdDbField*>& path, FormulaCode* parts);
    void checkUnits(const KdDbDatabase& database);

    std::deque<Formula> m_formulas;
    std::vector<int> m_freeFormulas;
    std::unordered_map<KdDbObjectId, int> m_formulaOf;
    std::deque<CellField> m_cellFields;
    std::vector<int> m_freeCellFields;
    std::unordered_map<KdDbObjectId, int> m_cellFieldOf;
    std::unordered_multimap<KdDbObjectId, int> m_membership;  ///< of fields in cell fields
    std::unordered_map<KdDbObjectId, std::unique_ptr<Sheet>> m_sheets;

    std::vector<KdDbObjectId> m_touched;                             ///< fields that came, went or changed
    std::vector<int> m_waiting;                                      ///< cell fields to be built
    std::vector<Sheet*> m_unseen;                                    ///< sheets to be looked at for the first time
    std::unordered_set<KdDbObjectId> m_placedIn;                     ///< tables whose cells got fields
    std::vector<Place> m_changes;                                    ///< cells whose readers are to be marked
    std::set<KdDbObjectId> m_redraw;                                 ///< what shows another text than before
    std::unordered_map<const KdDbDatabase*, KdDbHeaderVar> m_units;  ///< by which mixed texts were written
    std::vector<Survivor> m_survivors;                               ///< of the change of structure that is under way
    bool m_fieldsWent = false;

    KdDbObjectId m_tableInEdit;
    int m_rowInEdit = -1;
    int m_columnInEdit = -1;
};

}  // namespace kdhost::field
