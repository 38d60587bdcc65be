// Fields: a code, its children, and the text it shows.
//
// A code that begins with a backslash names an evaluator, as "\AcExpr (1+2)" does; it shows "####" until it
// has been evaluated. Any other code is text, in which marks `%<\_FldIdx n>%` stand for the children.

#include "kd/db/field.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "kd/ed/resbuf.h"

KDRX_DEFINE_MEMBERS(KdDbField, KdDbObject)

namespace {

using State = KdDbFieldState;

constexpr std::wstring_view kMarkBegin = L"%<\\_FldIdx ";
constexpr std::wstring_view kMarkEnd = L">%";

/// The fields from the one that was asked down to the present one; a field that hangs on itself ends there.
using Path = std::vector<const KdDbField*>;

bool comesBack(const Path& path) {
    return std::find(path.begin(), path.end() - 1, path.back()) != path.end() - 1;
}

Path longer(Path path, const KdDbField& field) {
    path.push_back(&field);
    return path;
}

/// A mark's number, or -1 when the text between the marks' ends is no number.
int numberIn(std::wstring_view digits) {
    int number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9' || number > 99'999) return -1;
        number = number * 10 + (digit - L'0');
    }
    return digits.empty() ? -1 : number;
}

/// The code with each mark of an existing child replaced by `textOf(child)`; other marks stay.
template <class TextOf>
std::wstring withChildren(const State& state, TextOf&& textOf) {
    const std::wstring_view code = state.code;
    std::wstring result;
    std::size_t at = 0;
    for (std::size_t mark = code.find(kMarkBegin); mark != code.npos; mark = code.find(kMarkBegin, mark + 1)) {
        const std::size_t digits = mark + kMarkBegin.size();
        const std::size_t end = code.find(kMarkEnd, digits);
        if (end == code.npos) break;
        const int number = numberIn(code.substr(digits, end - digits));
        if (number < 0 || static_cast<std::size_t>(number) >= state.children.size()) continue;
        const KdDbField* child = state.children[static_cast<std::size_t>(number)].field();
        if (child == nullptr) continue;
        result += code.substr(at, mark - at);
        result += textOf(*child);
        at = end + kMarkEnd.size();
    }
    result += code.substr(at);
    return result;
}

std::wstring evaluatedAlong(const Path& path) {
    const State& state = stateOf<State>(*path.back());
    if (state.evaluated) return *state.evaluated;
    if (comesBack(path) || state.code.starts_with(L'\\')) return kdhost::kNoEvaluation;
    return withChildren(state, [&](const KdDbField& child) { return evaluatedAlong(longer(path, child)); });
}

std::wstring codeAlong(const Path& path) {
    const State& state = stateOf<State>(*path.back());
    if (comesBack(path)) return state.code;
    return withChildren(state, [&](const KdDbField& child) { return codeAlong(longer(path, child)); });
}

/// A field in memory of its own that holds what `source` holds.
std::unique_ptr<KdDbField> copyOf(const KdDbField& source) {
    auto copy = std::make_unique<KdDbField>();
    std::unique_ptr<KdDbObjectState> state = KdDbObjectAccess::state(source).clone();
    state->takePlaceOf(KdDbObjectAccess::state(*copy));
    KdDbObjectAccess::giveState(*copy, std::move(state));
    return copy;
}

/// Puts a field in memory under the field `owner` of a database.
KdDbObjectId post(std::unique_ptr<KdDbField> field, KdDbDatabase& database, KdDbObjectId owner) {
    return KdDbDatabaseAccess::insert(database, std::move(field), owner);
}

/// What a field makes of a child that it is given. One in a database is pointed at. One in memory becomes
/// the field's own, or is copied where it is another field's; it stays open for write where it enters a
/// database, as every object does that its maker puts there.
KdDbFieldChild takeChild(KdDbField& parent, KdDbField& child) {
    if (child.database() != nullptr) return KdDbFieldChild(child.objectId());
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(child);
    if (parent.database() == nullptr) {
        if (record.held) return KdDbFieldChild(copyOf(child));
        record.held = true;
        return KdDbFieldChild(std::unique_ptr<KdDbField>(&child));
    }
    if (record.held) return KdDbFieldChild(post(copyOf(child), *parent.database(), parent.objectId()));
    KdDbObjectId id;
    parent.database()->addKdDbObject(&child, id, parent.objectId());
    return KdDbFieldChild(id);
}

/// Erases the children in the database that are the field's own and no longer among its children.
void eraseFormerChildren(const KdDbField& parent, const std::vector<KdDbFieldChild>& former) {
    const std::vector<KdDbFieldChild>& now = stateOf<State>(parent).children;
    for (const KdDbFieldChild& child : former) {
        const KdDbField* field = child.field();
        const bool isOwn = child.id.isValid() && field != nullptr && field->ownerId() == parent.objectId();
        if (!isOwn || std::any_of(now.begin(), now.end(), [&](const auto& other) { return other.id == child.id; })) {
            continue;
        }
        KdDbField* open = nullptr;
        if (kdhost::openAs(open, child.id, KdDb::kForWrite) != Kdad::eOk) continue;
        open->erase();
        open->close();
    }
}

}  // namespace

KdDbFieldChild::KdDbFieldChild(const KdDbFieldChild& other)
    : id(other.id), own(other.own == nullptr ? nullptr : copyOf(*other.own)) {
    if (own != nullptr) KdDbObjectAccess::openRecord(*own).held = true;
}

KdDbFieldChild& KdDbFieldChild::operator=(KdDbFieldChild other) noexcept {
    id = other.id;
    own = std::move(other.own);
    return *this;
}

KdDbFieldChild::~KdDbFieldChild() = default;

const KdDbField* KdDbFieldChild::field() const {
    return own != nullptr ? own.get() : kdhost::peek<KdDbField>(id);
}

void KdDbFieldState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    for (KdDbFieldChild& child : children) {
        if (child.own == nullptr) child.id = map(child.id, kdhost::IdRole::owned);
    }
}

void KdDbFieldState::enterDatabase(KdDbObject& self) {
    for (KdDbFieldChild& child : children) {
        if (child.own == nullptr) continue;
        KdDbObjectAccess::openRecord(*child.own).held = false;
        child.id = post(std::move(child.own), *self.database(), self.objectId());
    }
}

Kdad::ErrorStatus kdhost::setEvaluatedText(KdDbField& field, const std::wstring& text) {
    return changeState<State>(field, [&](State& state) { state.evaluated = text; });
}

std::wstring kdhost::evaluatedText(const KdDbField& field) {
    return evaluatedAlong({&field});
}

KdDbField::KdDbField() : KdDbObject(std::make_unique<State>()) {}

Kdad::ErrorStatus KdDbField::setFieldCode(const wchar_t* code, FieldCodeFlag, KdArray<KdDbField*>* children) {
    if (code == nullptr) return Kdad::eInvalidInput;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    std::vector<KdDbFieldChild> taken;
    for (int i = 0; children != nullptr && i < children->length(); ++i) {
        KdDbField* child = (*children)[i];
        if (child != nullptr && child != this) taken.push_back(takeChild(*this, *child));
    }
    state->code = code;
    state->evaluated.reset();
    std::swap(state->children, taken);
    if (database() != nullptr) eraseFormerChildren(*this, taken);
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
    const KdDbFieldChild& held = stateOf<State>(*this).children[static_cast<std::size_t>(index)];
    if (held.own == nullptr) return kdhost::openAs(child, held.id, mode);
    child = held.own.get();
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbField::setEvaluationOption(EvalOption option) {
    return changeState<State>(*this, [&](State& state) { state.evaluationOption = option; });
}

KdDbField::EvalOption KdDbField::evaluationOption() const {
    return stateOf<State>(*this).evaluationOption;
}

Kdad::ErrorStatus KdDbField::postInDatabase(KdDbDatabase* database) {
    if (database == nullptr) return Kdad::eInvalidInput;
    KdDbObjectId id;
    return database->addKdDbObject(this, id);
}
