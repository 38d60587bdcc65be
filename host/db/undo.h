// Undo of one drawing: what each change touched is kept from before it, and put back.
//
// Changes gather in a record: that of the innermost transaction, else that of the step that is being made. A step
// is made by a command, or by a mark; a mark directly inside a command has a step of its own, so that the command's
// other changes make steps before and after it. Marks inside marks join them, and so do marks inside a transaction,
// since the transaction may yet be aborted. A step in which nothing was touched is none.
//
// What changes outside of all this (a late recomputation, say) belongs to the step before it.
//
// There is no limit on the number of steps: all of them are kept until the drawing is closed. A step costs what it
// changed, since rows that it left alone stay shared with the states around it: about 9 KB for a row inserted into
// a table of 10,000 rows by 8 columns, 31 KB into one of 100,000 rows, and 3.5 bytes a cell for a property of every
// cell, 350 KB for 100,000 of them (`bench/undo` measures it). A thousand steps of editing by hand are some megabytes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/db/changerecord.h"
#include "host/db/transaction.h"

namespace kdhost {

/// Name of the step of a change that nobody has named.
inline constexpr const wchar_t* kUnnamedStep = L"EDIT";

class UndoHistory {
public:
    explicit UndoHistory(KdDbDatabase& database);
    ~UndoHistory();
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// A command's time, or that of anything else that is to be undone like one. A command inside a command
    /// joins it. What it leaves open of marks and transactions ends with it, and is noted as a breach.
    void beginCommand(const std::wstring& name);
    void endCommand();

    /// `title` is what the user reads. Without an open mark the end does nothing.
    void beginMark(const std::wstring& name, const std::wstring& title);
    void endMark();

    Transaction& startTransaction();
    /// Both eInvalidContext when none is open.
    Kdad::ErrorStatus endTransaction();
    Kdad::ErrorStatus abortTransaction();
    /// Null when none is open.
    Transaction* topTransaction() const { return m_transactions.empty() ? nullptr : m_transactions.back().get(); }
    int transactionCount() const { return static_cast<int>(m_transactions.size()); }

    /// Puts back what the last step changed; redo is the exact reverse, until the next change. eNotApplicable
    /// when there is no step, eInvalidContext while a mark or a transaction is open or the running command has
    /// changed something, eWasOpenForRead or eWasOpenForWrite while an object of the step is open: then nothing
    /// is changed.
    Kdad::ErrorStatus undo();
    Kdad::ErrorStatus redo();

    /// The names of the steps, the oldest first.
    std::vector<std::wstring> undoSteps() const;
    /// The next one to be redone last.
    std::vector<std::wstring> redoSteps() const;
    /// What the user reads of the step that undo or redo would take: its title, else its name; empty without one.
    std::wstring undoTitle() const { return titleOfLast(m_undo); }
    std::wstring redoTitle() const { return titleOfLast(m_redo); }

    /// The drawing is as it stands in its file now.
    void noteSaved();
    /// Whether it may differ from its file: not when undo or redo leads back to what was saved.
    bool isChangedSinceSave() const;

    /// The object is about to change. Called at each write: nothing is done for one that is kept already.
    void keep(KdDbObject& object) {
        ChangeRecord* record = recording();
        if (record != nullptr && KdDbObjectAccess::openRecord(object).keptIn != record->number()) record->keep(object);
    }
    void keepMade(KdDbObject& object);
    void keepSettings();

private:
    struct Step {
        std::wstring name;
        std::wstring title;
        ChangeRecord changes;
    };
    using Steps = std::vector<Step>;
    enum class FrameKind { Command, Mark, Transactions };
    /// A command, a mark, or the transactions outside of both.
    struct Frame {
        FrameKind kind;
        std::wstring name;
        std::wstring title;
        std::size_t transactions;  ///< that were open when it began
        bool hasStep;              ///< changes inside make a step of its name
    };

    void beginFrame(FrameKind kind, const std::wstring& name, const std::wstring& title);
    void endFrame(std::size_t place);
    void endLastFrame(FrameKind kind);
    bool isMarkOpen() const;
    void beginStep(const Frame& frame);
    void finishStep();
    /// Null for changes that are older than every step.
    ChangeRecord* recording() {
        if (!m_transactions.empty()) return &m_transactions.back()->changes();
        if (m_told != nullptr) return m_told;
        if (m_step) [[likely]]
            return &m_step->changes;
        return recordingOutsideSteps();
    }
    ChangeRecord* recordingOutsideSteps();
    Kdad::ErrorStatus take(Steps& from, Steps& to);
    static std::wstring titleOfLast(const Steps& steps);
    /// 0 without a step.
    std::uint64_t numberOfLastStep() const { return m_undo.empty() ? 0 : m_undo.back().changes.number(); }

    KdDbDatabase& m_database;
    std::vector<Frame> m_frames;  ///< the outermost first
    std::optional<Step> m_step;   ///< being made
    std::vector<std::unique_ptr<Transaction>> m_transactions;
    Steps m_undo;
    Steps m_redo;
    std::uint64_t m_savedStep = 0;       ///< the last one when the drawing was saved
    bool m_changedOutsideSteps = false;  ///< since then
    /// The step that has just been undone or redone, while that is told.
    ChangeRecord* m_told = nullptr;
};

/// Null for a drawing that keeps no undo.
inline std::shared_ptr<UndoHistory> undoHistory(KdDbDatabase& database) {
    return KdDbDatabaseAccess::contents(database).undo;
}

/// The object is about to change; called at each write.
inline void keepForUndo(KdDbObject& object) {
    KdDbDatabase* const database = KdDbObjectAccess::openRecord(object).database;
    if (database == nullptr) return;
    if (UndoHistory* history = KdDbDatabaseAccess::contents(*database).undo.get()) history->keep(object);
}

/// Ways to a drawing's settings for those who change them.
CurrentSettings& currentForWrite(KdDbDatabase& database);
KdDbHeaderVar& headerForWrite(KdDbDatabase& database);

/// Makes what happens in a scope undone like a command.
class UndoCommandScope {
public:
    /// Null for no drawing.
    UndoCommandScope(KdDbDatabase* database, const std::wstring& name);
    ~UndoCommandScope();
    UndoCommandScope(const UndoCommandScope&) = delete;
    UndoCommandScope& operator=(const UndoCommandScope&) = delete;

private:
    std::weak_ptr<UndoHistory> m_history;
};

}  // namespace kdhost
