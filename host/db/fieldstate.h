// What a field holds, and the host's own ways to it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/db/objectstate.h"
#include "kd/db/field.h"

namespace kdhost {

struct WrittenFormula;

/// What a field shows that has never been evaluated, or can't be.
inline constexpr const wchar_t* kNoEvaluation = L"####";

/// Sets the text that a field shows which the host doesn't evaluate; it holds until the code changes. Needs a
/// write open.
Kdad::ErrorStatus setEvaluatedText(KdDbField& field, const std::wstring& text);

/// The text that a field shows, without opening it.
std::wstring evaluatedText(const KdDbField& field);

/// A copy in memory, children included.
std::unique_ptr<KdDbField> copyOfField(const KdDbField& source);

/// The field "TEXT" of an object, without opening it; null when there is none.
const KdDbField* textFieldOf(const KdDbObject& object);

/// The code with the ids of the tables that it names put through `map`, as pointers.
std::wstring withMappedTables(const std::wstring& code, const IdMapper& map);
/// The same with a text in the place of each id.
std::wstring withTableTexts(const std::wstring& code, const std::function<std::wstring(KdDbObjectId)>& textOf);

/// The host rewrites a formula, whoever may have the field open: cells that it reads have moved.
void rewriteFieldCode(KdDbField& field, const std::wstring& code);

}  // namespace kdhost

/// A field in memory that hangs on another object, which owns it until the field is posted by itself.
struct KdDbHeldField {
    std::unique_ptr<KdDbField> field;
    KdDbObjectId posted;  ///< its id, once it is in a database
};

/// One field that hangs on another object: in a database known by its id, in memory owned.
class KdDbFieldChild {
public:
    KdDbFieldChild() = default;
    explicit KdDbFieldChild(KdDbObjectId child) : m_id(child) {}
    explicit KdDbFieldChild(std::unique_ptr<KdDbField> child);
    /// A field in memory is copied.
    KdDbFieldChild(const KdDbFieldChild& other);
    KdDbFieldChild(KdDbFieldChild&&) noexcept = default;
    KdDbFieldChild& operator=(KdDbFieldChild other) noexcept;
    ~KdDbFieldChild();

    /// Null while the field is in memory.
    KdDbObjectId id() const { return m_held == nullptr ? m_id : m_held->posted; }
    /// Null unless the field is in memory.
    KdDbField* inMemory() const { return m_held == nullptr ? nullptr : m_held->field.get(); }
    /// The field without opening it; null when it is gone.
    const KdDbField* field() const;
    /// The field, opened where it is in a database.
    Kdad::ErrorStatus open(KdDbField*& field, KdDb::OpenMode mode) const;

    /// The field goes into the database under that owner, where it isn't in one yet.
    void post(KdDbDatabase& database, KdDbObjectId owner);
    void setId(KdDbObjectId id);

private:
    KdDbObjectId m_id;
    std::shared_ptr<KdDbHeldField> m_held;
};

namespace kdhost {

/// What an object makes of a field that is to hang on it. One in a database is pointed at. One in memory
/// becomes the object's own, or is copied where it hangs on something already; where it enters the object's
/// database it stays open for write, as every object does that its maker puts there.
KdDbFieldChild takeField(KdDbObject& holder, KdDbField& field);

}  // namespace kdhost

struct KdDbFieldState : KdDbObjectState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbFieldState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;
    void enterDatabase(KdDbObject& self) override;

    /// Whether the field is a formula that shows what it comes to now.
    bool isFollowed() const;

    std::wstring code;
    std::vector<KdDbFieldChild> children;
    std::size_t childrenSet = 0;                              ///< by whoever clones children one by one
    std::optional<std::wstring> evaluated;                    ///< the text last shown, of a field that isn't evaluated
    std::shared_ptr<const kdhost::WrittenFormula> asWritten;  ///< of a formula that was cut off from what it reads
    KdDbField::EvalOption evaluationOption = KdDbField::kAutomatic;
};

/// A field attached to an object that is in no database.
struct KdDbAttachedField {
    std::wstring name;
    KdDbFieldChild field;
};
