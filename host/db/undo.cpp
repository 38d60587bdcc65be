// The history of a drawing: how changes become steps, and how steps are undone and redone.

#include "host/db/undo.h"

#include <algorithm>
#include <utility>

#include "host/db/opening.h"
#include "host/db/openrecord.h"

namespace kdhost {

UndoHistory::UndoHistory(KdDbDatabase& database) : m_database(database) {}

UndoHistory::~UndoHistory() {
    if (isMarkOpen()) noteBreach(L"a mark was left open when its drawing was deleted");
    for (; !m_transactions.empty(); m_transactions.pop_back()) {
        noteBreach(L"a transaction was left open when its drawing was deleted");
        m_transactions.back()->releaseHolds();
    }
}

// ---- commands and marks

void UndoHistory::beginCommand(const std::wstring& name) {
    beginFrame(FrameKind::Command, name, {});
}

void UndoHistory::endCommand() {
    endLastFrame(FrameKind::Command);
}

void UndoHistory::beginMark(const std::wstring& name, const std::wstring& title) {
    beginFrame(FrameKind::Mark, name, title);
}

void UndoHistory::endMark() {
    endLastFrame(FrameKind::Mark);
}

bool UndoHistory::isMarkOpen() const {
    return std::any_of(m_frames.begin(), m_frames.end(),
                       [](const Frame& frame) { return frame.kind == FrameKind::Mark; });
}

void UndoHistory::beginFrame(FrameKind kind, const std::wstring& name, const std::wstring& title) {
    const bool joins = m_told != nullptr || !m_transactions.empty() || isMarkOpen() ||
                       (kind == FrameKind::Command && !m_frames.empty());
    m_frames.push_back({kind, name, title, m_transactions.size(), !joins});
    if (joins) return;
    finishStep();
    beginStep(m_frames.back());
}

void UndoHistory::endLastFrame(FrameKind kind) {
    for (std::size_t place = m_frames.size(); place-- > 0;) {
        if (m_frames[place].kind != kind) continue;
        // A command takes along the marks that were begun in it.
        while (kind == FrameKind::Command && m_frames.size() > place + 1) {
            if (m_frames.back().kind == FrameKind::Mark)
                noteBreach(L"the mark " + m_frames.back().name + L" was left open");
            endFrame(m_frames.size() - 1);
        }
        endFrame(place);
        return;
    }
}

void UndoHistory::endFrame(std::size_t place) {
    while (m_transactions.size() > m_frames[place].transactions && m_frames[place].kind != FrameKind::Transactions) {
        noteBreach(L"a transaction was left open in " + m_frames[place].name);
        endTransaction();
    }
    const bool hadStep = m_frames[place].hasStep;
    m_frames.erase(m_frames.begin() + static_cast<std::ptrdiff_t>(place));
    if (!hadStep) return;
    finishStep();
    if (m_frames.empty()) return;
    const auto owner =
        std::find_if(m_frames.rbegin(), m_frames.rend(), [](const Frame& frame) { return frame.hasStep; });
    if (owner == m_frames.rend()) m_frames.front().hasStep = true;
    beginStep(owner == m_frames.rend() ? m_frames.front() : *owner);
}

void UndoHistory::beginStep(const Frame& frame) {
    m_step = Step{frame.name, frame.title, {}};
}

void UndoHistory::finishStep() {
    if (!m_step) return;
    Step step = *std::exchange(m_step, std::nullopt);
    step.changes.dropUnchangedSettings(KdDbDatabaseAccess::contents(m_database));
    if (step.changes.isEmpty()) return;
    m_redo.clear();
    m_undo.push_back(std::move(step));
}

// ---- keeping

ChangeRecord* UndoHistory::recordingOutsideSteps() {
    m_changedOutsideSteps = true;
    m_redo.clear();
    return m_undo.empty() ? nullptr : &m_undo.back().changes;
}

void UndoHistory::keepMade(KdDbObject& object) {
    if (ChangeRecord* record = recording()) record->keepMade(object);
}

void UndoHistory::keepSettings() {
    if (ChangeRecord* record = recording()) record->keepSettings(KdDbDatabaseAccess::contents(m_database));
}

// ---- saving

void UndoHistory::noteSaved() {
    m_savedStep = numberOfLastStep();
    m_changedOutsideSteps = false;
}

bool UndoHistory::isChangedSinceSave() const {
    const bool isChanging = m_step && !m_step->changes.isEmpty();
    return isChanging || m_changedOutsideSteps || numberOfLastStep() != m_savedStep;
}

namespace {

DatabaseContents& settingsForWrite(KdDbDatabase& database) {
    DatabaseContents& contents = KdDbDatabaseAccess::contents(database);
    if (contents.undo != nullptr) contents.undo->keepSettings();
    return contents;
}

}  // namespace

CurrentSettings& currentForWrite(KdDbDatabase& database) {
    return settingsForWrite(database).current;
}

KdDbHeaderVar& headerForWrite(KdDbDatabase& database) {
    return settingsForWrite(database).header;
}

// ---- transactions

Transaction& UndoHistory::startTransaction() {
    if (m_frames.empty()) beginFrame(FrameKind::Transactions, kUnnamedStep, {});
    m_transactions.push_back(std::make_unique<Transaction>(m_database));
    return *m_transactions.back();
}

Kdad::ErrorStatus UndoHistory::endTransaction() {
    if (m_transactions.empty()) return Kdad::eInvalidContext;
    const std::unique_ptr<Transaction> ended = std::move(m_transactions.back());
    m_transactions.pop_back();
    recording()->join(std::move(ended->changes()));
    if (Transaction* outer = topTransaction()) {
        ended->passHoldsTo(*outer);
        return Kdad::eOk;
    }
    // What listeners change when they are told belongs to the same step.
    tellChanges(ended->releaseHolds());
    endLastFrame(FrameKind::Transactions);
    return Kdad::eOk;
}

Kdad::ErrorStatus UndoHistory::abortTransaction() {
    if (m_transactions.empty()) return Kdad::eInvalidContext;
    const std::unique_ptr<Transaction> aborted = std::move(m_transactions.back());
    m_transactions.pop_back();
    aborted->changes().exchange(KdDbDatabaseAccess::contents(m_database));
    const std::vector<KdDbObject*> released = aborted->releaseHolds();
    tellChanges(aborted->changes().objects());
    tellChanges(released);
    if (m_transactions.empty()) endLastFrame(FrameKind::Transactions);
    return Kdad::eOk;
}

// ---- undo and redo

Kdad::ErrorStatus UndoHistory::undo() {
    return take(m_undo, m_redo);
}

Kdad::ErrorStatus UndoHistory::redo() {
    return take(m_redo, m_undo);
}

Kdad::ErrorStatus UndoHistory::take(Steps& from, Steps& to) {
    if (m_told != nullptr || !m_transactions.empty() || isMarkOpen()) return Kdad::eInvalidContext;
    if (m_step && !m_step->changes.isEmpty()) return Kdad::eInvalidContext;
    if (from.empty()) return Kdad::eNotApplicable;
    const std::vector<KdDbObject*> objects = from.back().changes.objects();
    for (const KdDbObject* object : objects) {
        const Kdad::ErrorStatus conflict = openConflict(*object, KdDb::kForWrite);
        if (conflict != Kdad::eOk) return conflict;
    }
    from.back().changes.exchange(KdDbDatabaseAccess::contents(m_database));
    to.push_back(std::move(from.back()));
    from.pop_back();
    m_told = &to.back().changes;
    tellChanges(objects);
    m_told = nullptr;
    return Kdad::eOk;
}

namespace {

template <class Steps>
std::vector<std::wstring> namesOf(const Steps& steps) {
    std::vector<std::wstring> names;
    names.reserve(steps.size());
    for (const auto& step : steps) names.push_back(step.name);
    return names;
}

}  // namespace

std::vector<std::wstring> UndoHistory::undoSteps() const {
    return namesOf(m_undo);
}

std::vector<std::wstring> UndoHistory::redoSteps() const {
    return namesOf(m_redo);
}

std::wstring UndoHistory::titleOfLast(const Steps& steps) {
    if (steps.empty()) return {};
    return steps.back().title.empty() ? steps.back().name : steps.back().title;
}

// ---- scopes

UndoCommandScope::UndoCommandScope(KdDbDatabase* database, const std::wstring& name) {
    if (database == nullptr) return;
    const std::shared_ptr<UndoHistory> history = undoHistory(*database);
    if (history == nullptr) return;
    history->beginCommand(name);
    m_history = history;
}

UndoCommandScope::~UndoCommandScope() {
    if (const std::shared_ptr<UndoHistory> history = m_history.lock()) history->endCommand();
}

}  // namespace kdhost
