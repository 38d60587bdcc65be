// Fields that hang on other objects: on a field as its children, on any object as attached ones. In memory an
// object owns what hangs on it; once it is in a database the database does.

#include <algorithm>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/dictionarystate.h"
#include "host/db/fieldevaluation.h"
#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "kd/db/dictionary.h"

// ---- one field on something

KdDbFieldChild::KdDbFieldChild(std::unique_ptr<KdDbField> child)
    : m_held(std::make_shared<KdDbHeldField>(KdDbHeldField{std::move(child), {}})) {
    KdDbObjectAccess::openRecord(*m_held->field).holder = m_held;
}

KdDbFieldChild::KdDbFieldChild(const KdDbFieldChild& other) : m_id(other.id()) {
    if (other.inMemory() != nullptr) *this = KdDbFieldChild(kdhost::copyOfField(*other.inMemory()));
}

KdDbFieldChild& KdDbFieldChild::operator=(KdDbFieldChild other) noexcept {
    m_id = other.m_id;
    m_held = std::move(other.m_held);
    return *this;
}

KdDbFieldChild::~KdDbFieldChild() = default;

const KdDbField* KdDbFieldChild::field() const {
    return inMemory() != nullptr ? inMemory() : kdhost::peek<KdDbField>(id());
}

Kdad::ErrorStatus KdDbFieldChild::open(KdDbField*& field, KdDb::OpenMode mode) const {
    field = inMemory();
    return field != nullptr ? Kdad::eOk : kdhost::openAs(field, id(), mode);
}

void KdDbFieldChild::post(KdDbDatabase& database, KdDbObjectId owner) {
    if (inMemory() == nullptr) return;
    const std::shared_ptr<KdDbHeldField> held = m_held;
    KdDbDatabaseAccess::insert(database, std::move(held->field), owner);
    setId(held->posted);
}

void KdDbFieldChild::setId(KdDbObjectId id) {
    m_id = id;
    m_held.reset();
}

KdDbFieldChild kdhost::takeField(KdDbObject& holder, KdDbField& field) {
    if (field.database() != nullptr) return KdDbFieldChild(field.objectId());
    const bool hangsElsewhere = !KdDbObjectAccess::openRecord(field).holder.expired();
    KdDbFieldChild child(hangsElsewhere ? copyOfField(field) : std::unique_ptr<KdDbField>(&field));
    if (holder.database() == nullptr) return child;
    child.post(*holder.database(), holder.objectId());
    if (hangsElsewhere) return child;
    beginOpen(field, KdDb::kForWrite);  // NOLINT(clang-analyzer-cplusplus.NewDelete): the child has it
    KdDbObjectAccess::openRecord(field).changed = true;
    return child;
}

namespace {

/// `path` leads down to the field; one that hangs on itself is left out where it comes again.
std::unique_ptr<KdDbField> copyAlong(std::vector<const KdDbField*>& path) {
    std::unique_ptr<KdDbObjectState> copied = KdDbObjectAccess::state(*path.back()).clone();
    auto& state = static_cast<KdDbFieldState&>(*copied);
    state.owner.setNull();
    state.erased = false;
    state.extensionDictionary.setNull();
    state.childrenSet = 0;
    for (KdDbFieldChild& child : state.children) {
        const KdDbField* field = child.inMemory() == nullptr ? child.field() : nullptr;
        if (field == nullptr || std::find(path.begin(), path.end(), field) != path.end()) continue;
        path.push_back(field);
        child = KdDbFieldChild(copyAlong(path));
        path.pop_back();
    }
    auto copy = std::make_unique<KdDbField>();
    KdDbObjectAccess::giveState(*copy, std::move(copied));
    return copy;
}

}  // namespace

std::unique_ptr<KdDbField> kdhost::copyOfField(const KdDbField& source) {
    std::vector<const KdDbField*> path{&source};
    return copyAlong(path);
}

// ---- the tables that a formula names

std::wstring kdhost::withMappedTables(const std::wstring& code, const IdMapper& map) {
    return withTableTexts(code, [&](KdDbObjectId id) { return std::to_wstring(map(id, IdRole::pointer).asInteger()); });
}

std::wstring kdhost::withTableTexts(const std::wstring& code, const std::function<std::wstring(KdDbObjectId)>& textOf) {
    constexpr std::wstring_view kTable = L"table(";
    const auto lower = [](wchar_t letter) {
        return letter >= L'A' && letter <= L'Z' ? letter + (L'a' - L'A') : letter;
    };
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t at = 0; at + kTable.size() < code.size(); ++at) {
        std::size_t matched = 0;
        while (matched < kTable.size() && lower(code[at + matched]) == static_cast<wchar_t>(kTable[matched])) ++matched;
        if (matched < kTable.size()) continue;
        const std::size_t digits = at + matched;
        std::size_t end = digits;
        std::uint64_t number = 0;
        while (end < code.size() && end < digits + 19 && code[end] >= L'0' && code[end] <= L'9') {
            number = number * 10 + static_cast<std::uint64_t>(code[end++] - L'0');
        }
        const bool tooLong = end < code.size() && code[end] >= L'0' && code[end] <= L'9';
        if (end == digits || tooLong) continue;
        result.append(code, done, digits - done).append(textOf(KdDbObjectId(number)));
        done = end;
    }
    return result.append(code, done);
}

// ---- fields on an object as a whole

namespace {

/// Where the extension dictionary keeps the fields of the object as a whole.
constexpr const wchar_t* kFieldsEntry = L"ACAD_FIELD";
constexpr const wchar_t* kTextField = L"TEXT";

KdDbObjectId entryOf(KdDbObjectId dictionary, const wchar_t* name) {
    KdDbObjectId id;
    const auto* found = kdhost::peek<KdDbDictionary>(dictionary);
    if (found != nullptr) found->getAt(name, id);
    return id;
}

KdDbObjectId fieldsOf(const KdDbObject& object) {
    return entryOf(object.extensionDictionary(), kFieldsEntry);
}

/// The dictionary of that name in the extension dictionary, made when it isn't there.
Kdad::ErrorStatus makeFieldsDictionary(KdDbObjectId extension, KdDbObjectId& fields) {
    fields = entryOf(extension, kFieldsEntry);
    if (fields.isValid()) return Kdad::eOk;
    KdDbDictionary* dictionary = nullptr;
    Kdad::ErrorStatus status = kdhost::openAs(dictionary, extension, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    auto made = std::make_unique<KdDbDictionary>();
    status = dictionary->setAt(kFieldsEntry, made.get(), fields);
    if (status == Kdad::eOk) made.release()->close();
    dictionary->close();
    return status;
}

Kdad::ErrorStatus attachInMemory(KdDbObject& object, const wchar_t* name, KdDbField& field) {
    KdDbAttachedFields& attached = KdDbObjectAccess::stateForMaker(object).attached;
    KdDbFieldChild taken = kdhost::takeField(object, field);
    if (KdDbAttachedField* former = attached.find(name)) {
        former->field = std::move(taken);
    } else {
        attached.list().push_back({name, std::move(taken)});
    }
    return Kdad::eOk;
}

}  // namespace

KdDbAttachedFields::KdDbAttachedFields() = default;
KdDbAttachedFields::~KdDbAttachedFields() = default;
KdDbAttachedFields::KdDbAttachedFields(const KdDbAttachedFields& other)
    : m_list(other.m_list == nullptr ? nullptr : std::make_unique<std::vector<KdDbAttachedField>>(*other.m_list)) {}
KdDbAttachedFields& KdDbAttachedFields::operator=(const KdDbAttachedFields& other) {
    KdDbAttachedFields copy(other);
    m_list.swap(copy.m_list);
    return *this;
}

bool KdDbAttachedFields::isListEmpty() const {
    return m_list->empty();
}

std::vector<KdDbAttachedField>& KdDbAttachedFields::list() {
    if (m_list == nullptr) m_list = std::make_unique<std::vector<KdDbAttachedField>>();
    return *m_list;
}

KdDbAttachedField* KdDbAttachedFields::find(const std::wstring& name) const {
    if (isEmpty()) return nullptr;
    const auto found =
        std::find_if(m_list->begin(), m_list->end(), [&](const auto& each) { return each.name == name; });
    return found == m_list->end() ? nullptr : &*found;
}

/// The object has got its place: the fields that hang on it in memory go into dictionaries of its own.
void KdDbObjectState::enterDatabase(KdDbObject& self) {
    if (attached.isEmpty()) return;
    KdDbDatabase& database = *self.database();
    const auto make = [&](KdDbObjectId owner) {
        return KdDbDatabaseAccess::insert(database, std::make_unique<KdDbDictionary>(), owner);
    };
    const auto entries = [](KdDbObjectId dictionary) -> KdDbDictionaryState& {
        return static_cast<KdDbDictionaryState&>(KdDbObjectAccess::stateForMaker(*kdhost::findObject(dictionary)));
    };
    extensionDictionary = make(self.objectId());
    const KdDbObjectId fields = make(extensionDictionary);
    entries(extensionDictionary).put(kFieldsEntry, fields);
    for (KdDbAttachedField& each : attached.list()) {
        each.field.post(database, fields);
        entries(fields).put(each.name.c_str(), each.field.id());
    }
    attached = {};
}

bool KdDbObject::hasFields() const {
    if (database() == nullptr) return !m_state->attached.isEmpty();
    const auto* fields = kdhost::peek<KdDbDictionary>(fieldsOf(*this));
    return fields != nullptr && fields->numEntries() > 0;
}

Kdad::ErrorStatus KdDbObject::getField(const wchar_t* name, KdDbField*& field, KdDb::OpenMode mode) const {
    field = nullptr;
    if (name == nullptr) return Kdad::eKeyNotFound;
    if (database() == nullptr) {
        const KdDbAttachedField* attached = m_state->attached.find(name);
        return attached == nullptr ? Kdad::eKeyNotFound : attached->field.open(field, mode);
    }
    const KdDbObjectId id = entryOf(fieldsOf(*this), name);
    return id.isNull() ? Kdad::eKeyNotFound : kdhost::openAs(field, id, mode);
}

Kdad::ErrorStatus KdDbObject::getField(KdDbField*& field, KdDb::OpenMode mode) const {
    return getField(kTextField, field, mode);
}

Kdad::ErrorStatus KdDbObject::setField(const wchar_t* name, KdDbField* field) {
    if (field == nullptr) return Kdad::eNullObjectPointer;
    if (name == nullptr || *name == L'\0') return Kdad::eInvalidKey;
    if (field->database() != nullptr) return Kdad::eAlreadyInDatabase;
    if (kdhost::fieldFaultStrikes()) return Kdad::eInvalidContext;
    if (database() == nullptr) return attachInMemory(*this, name, *field);
    if (KdDbObjectAccess::stateForWrite(*this) == nullptr) return Kdad::eNotOpenForWrite;
    Kdad::ErrorStatus status = createExtensionDictionary();
    KdDbObjectId fields;
    if (status == Kdad::eOk) status = makeFieldsDictionary(extensionDictionary(), fields);
    KdDbDictionary* dictionary = nullptr;
    if (status == Kdad::eOk) status = kdhost::openAs(dictionary, fields, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    KdDbObjectId id;
    status = dictionary->setAt(name, field, id);
    dictionary->close();
    return status;
}

Kdad::ErrorStatus KdDbObject::setField(KdDbField* field) {
    return setField(kTextField, field);
}

Kdad::ErrorStatus KdDbObject::removeField(const wchar_t* name) {
    KdDbField* field = nullptr;
    Kdad::ErrorStatus status = getField(name, field, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    KdDbObjectState* state = KdDbObjectAccess::stateForWrite(*this);
    if (state == nullptr) status = Kdad::eNotOpenForWrite;
    if (status == Kdad::eOk && database() != nullptr) status = field->erase();
    field->close();
    // In memory the field goes with its entry.
    if (status == Kdad::eOk && database() == nullptr) {
        std::erase_if(state->attached.list(), [&](const auto& each) { return each.name == name; });
    }
    return status;
}

const KdDbField* kdhost::textFieldOf(const KdDbObject& object) {
    if (object.database() != nullptr) return peek<KdDbField>(entryOf(fieldsOf(object), kTextField));
    const KdDbAttachedField* attached = KdDbObjectAccess::state(object).attached.find(kTextField);
    return attached == nullptr ? nullptr : attached->field.field();
}
