// Fields: a code, its children, and the text it shows.
//
// A code that begins with a backslash names an evaluator, as "\AcExpr (1+2)" does. Formulas are evaluated by
// whoever has registered for it; what else names an evaluator shows what it showed last, or "####". Any other
// code is text, in which marks `%<\_FldIdx n>%` stand for the children.

#include "kd/db/field.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/fieldevaluation.h"
#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "host/db/travellingcells.h"
#include "kd/ed/resbuf.h"

KDRX_DEFINE_MEMBERS(KdDbField, KdDbObject)

namespace {

using State = KdDbFieldState;

/// The fields from the one that was asked down to the present one; a field that hangs on itself ends there.
using Path = std::vector<const KdDbField*>;

/// Fields in fields are few; what goes deeper than this shows "####".
constexpr std::size_t kDeepest = 100;

bool leadsNowhere(const Path& path) {
    return path.size() > kDeepest || std::find(path.begin(), path.end() - 1, path.back()) != path.end() - 1;
}

Path longer(Path path, const KdDbField& field) {
    path.push_back(&field);
    return path;
}

/// The code with each mark of an existing child replaced by `textOf(child)`; other marks stay.
template <class TextOf>
std::wstring withChildren(const State& state, TextOf&& textOf) {
    std::wstring result;
    std::size_t at = 0;
    kdhost::ChildMark mark;
    for (std::size_t from = 0; kdhost::nextChildMark(state.code, from, mark); from = mark.at + 1) {
        const auto number = static_cast<std::size_t>(mark.child);
        const KdDbField* child = number < state.children.size() ? state.children[number].field() : nullptr;
        if (child == nullptr) continue;
        result.append(state.code, at, mark.at - at);
        result += textOf(*child);
        at = mark.at + mark.length;
    }
    return result.append(state.code, at);
}

std::wstring evaluatedAlong(const Path& path) {
    const State& state = stateOf<State>(*path.back());
    if (leadsNowhere(path)) return kdhost::kNoEvaluation;
    if (!state.code.starts_with(L'\\')) {
        return withChildren(state, [&](const KdDbField& child) { return evaluatedAlong(longer(path, child)); });
    }
    kdhost::FieldEvaluation* evaluation = kdhost::fieldEvaluation();
    if (state.isFollowed() && evaluation != nullptr) return evaluation->shownText(path);
    return state.evaluated.value_or(kdhost::kNoEvaluation);
}

std::wstring codeAlong(const Path& path) {
    const State& state = stateOf<State>(*path.back());
    if (leadsNowhere(path)) return state.code;
    return withChildren(state, [&](const KdDbField& child) { return codeAlong(longer(path, child)); });
}

/// Erases the children in the database that are the field's own and no longer among its children.
void eraseFormerChildren(const KdDbField& parent, const std::vector<KdDbFieldChild>& former) {
    const std::vector<KdDbFieldChild>& now = stateOf<State>(parent).children;
    for (const KdDbFieldChild& child : former) {
        const KdDbField* field = child.field();
        const bool isOwn = child.id().isValid() && field != nullptr && field->ownerId() == parent.objectId();
        if (!isOwn ||
            std::any_of(now.begin(), now.end(), [&](const auto& other) { return other.id() == child.id(); })) {
            continue;
        }
        KdDbField* open = nullptr;
        if (kdhost::openAs(open, child.id(), KdDb::kForWrite) != Kdad::eOk) continue;
        open->erase();
        open->close();
    }
}

/// What the field shows may have changed.
void touched(const KdDbField& field) {
    if (field.database() == nullptr) return;
    kdhost::tellFieldEvaluation([&](kdhost::FieldEvaluation& each) { each.fieldTouched(field.objectId()); });
}

}  // namespace

// ---- the state

void KdDbFieldState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    for (KdDbFieldChild& child : children) {
        if (child.inMemory() == nullptr) child.setId(map(child.id(), kdhost::IdRole::owned));
    }
    if (kdhost::isFormulaCode(code)) code = kdhost::withMappedTables(code, map);
    if (asWritten != nullptr) {
        kdhost::WrittenFormula mapped = *asWritten;
        mapped.code = kdhost::withMappedTables(mapped.code, map);
        asWritten = std::make_shared<const kdhost::WrittenFormula>(std::move(mapped));
    }
}

void KdDbFieldState::enterDatabase(KdDbObject& self) {
    KdDbObjectState::enterDatabase(self);
    if (const auto held = KdDbObjectAccess::openRecord(self).holder.lock()) {
        held->field.release();  // NOLINT(bugprone-unused-return-value): the database has it
        held->posted = self.objectId();
        KdDbObjectAccess::openRecord(self).holder.reset();
    }
    for (KdDbFieldChild& child : children) child.post(*self.database(), self.objectId());
    touched(static_cast<KdDbField&>(self));
}

bool KdDbFieldState::isFollowed() const {
    return evaluationOption != KdDbField::kDisable && kdhost::isFormulaCode(code);
}

// ---- the host's own ways

Kdad::ErrorStatus kdhost::setEvaluatedText(KdDbField& field, const std::wstring& text) {
    return changeState<State>(field, [&](State& state) { state.evaluated = text; });
}

std::wstring kdhost::evaluatedText(const KdDbField& field) {
    return evaluatedAlong({&field});
}

void kdhost::rewriteFieldCode(KdDbField& field, const std::wstring& code) {
    auto& state = static_cast<State&>(KdDbObjectAccess::stateForHost(field));
    state.code = code;
    if (!areCellsTravelling()) state.asWritten = nullptr;
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(field);
    if (record.isOpen()) record.changed = true;
}

// ---- the field

KdDbField::KdDbField() : KdDbObject(std::make_unique<State>()) {}

KdDbField::~KdDbField() {
    if (database() == nullptr) return;
    kdhost::tellFieldEvaluation([&](kdhost::FieldEvaluation& each) { each.fieldGone(objectId()); });
}

Kdad::ErrorStatus KdDbField::setFieldCode(const wchar_t* code, FieldCodeFlag, KdArray<KdDbField*>* children) {
    if (code == nullptr) return Kdad::eInvalidInput;
    if (kdhost::fieldFaultStrikes()) return Kdad::eInvalidContext;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    std::vector<KdDbFieldChild> taken;
    for (int i = 0; children != nullptr && i < children->length(); ++i) {
        KdDbField* child = (*children)[i];
        if (child != nullptr && child != this) taken.push_back(kdhost::takeField(*this, *child));
    }
    state->code = code;
    state->asWritten = nullptr;
    state->evaluated.reset();
    state->childrenSet = taken.size();
    std::swap(state->children, taken);
    if (database() != nullptr) eraseFormerChildren(*this, taken);
    touched(*this);
    return Kdad::eOk;
}

KdString KdDbField::getFieldCode(FieldCodeFlag flag, KdArray<KdDbField*>* children, KdDb::OpenMode mode) const {
    for (int i = 0; children != nullptr && i < childCount(); ++i) {
        KdDbField* child = nullptr;
        if (getChild(i, child, mode) == Kdad::eOk) children->append(child);
    }
    if ((flag & kEvaluatedText) != 0) return evaluatedAlong({this});
    if ((flag & kAddChildren) != 0) return codeAlong({this});
    return stateOf<State>(*this).code;
}

Kdad::ErrorStatus KdDbField::getFieldCode(wchar_t*& code, FieldCodeFlag flag, KdArray<KdDbField*>* children,
                                          KdDb::OpenMode mode) const {
    code = kdutNewString(getFieldCode(flag, children, mode).kwszPtr());
    return code == nullptr ? Kdad::eOutOfMemory : Kdad::eOk;
}

int KdDbField::childCount() const {
    return static_cast<int>(stateOf<State>(*this).children.size());
}

Kdad::ErrorStatus KdDbField::getChild(int index, KdDbField*& child, KdDb::OpenMode mode) const {
    child = nullptr;
    if (index < 0 || index >= childCount()) return Kdad::eInvalidIndex;
    return stateOf<State>(*this).children[static_cast<std::size_t>(index)].open(child, mode);
}

Kdad::ErrorStatus KdDbField::setEvaluationOption(EvalOption option) {
    std::wstring shown;
    const State& before = stateOf<State>(*this);
    // What a formula shows from now on is what it shows now.
    const bool freezes = option == kDisable && before.isFollowed();
    if (freezes) shown = evaluatedAlong({this});
    const Kdad::ErrorStatus status = changeState<State>(*this, [&](State& state) {
        state.evaluationOption = option;
        if (freezes) state.evaluated = shown;
    });
    if (status == Kdad::eOk) touched(*this);
    return status;
}

KdDbField::EvalOption KdDbField::evaluationOption() const {
    return stateOf<State>(*this).evaluationOption;
}

Kdad::ErrorStatus KdDbField::postInDatabase(KdDbDatabase* database) {
    if (database == nullptr) return Kdad::eInvalidInput;
    if (kdhost::fieldFaultStrikes()) return Kdad::eInvalidContext;
    KdDbObjectId id;
    return database->addKdDbObject(this, id);
}

KdDbField* KdDbField::clone() const {
    return kdhost::copyOfField(*this).release();
}

Kdad::ErrorStatus KdDbField::setField(const wchar_t* name, KdDbField* field) {
    if (name == nullptr || *name != L'\0') return KdDbObject::setField(name, field);
    if (field == nullptr || field == this) return Kdad::eNullObjectPointer;
    if (kdhost::fieldFaultStrikes()) return Kdad::eInvalidContext;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    const std::vector<KdDbFieldChild> former = state->children;
    KdDbFieldChild child = kdhost::takeField(*this, *field);
    if (state->childrenSet < state->children.size()) {
        state->children[state->childrenSet] = std::move(child);
    } else {
        state->children.push_back(std::move(child));
    }
    ++state->childrenSet;
    if (database() != nullptr) eraseFormerChildren(*this, former);
    touched(*this);
    return Kdad::eOk;
}
