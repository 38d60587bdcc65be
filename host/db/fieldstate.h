// What a field holds, and the way in for whoever evaluates fields.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/db/objectstate.h"
#include "kd/db/field.h"

namespace kdhost {

/// What a field shows that has never been evaluated, or can't be.
inline constexpr const wchar_t* kNoEvaluation = L"####";

/// Sets the text that a field shows; it holds until the code changes. Needs a write open.
Kdad::ErrorStatus setEvaluatedText(KdDbField& field, const std::wstring& text);

/// The text that a field shows, without opening it.
std::wstring evaluatedText(const KdDbField& field);

}  // namespace kdhost

/// One child: in a database known by its id, in memory owned by the field that it hangs on.
struct KdDbFieldChild {
    KdDbFieldChild() = default;
    explicit KdDbFieldChild(KdDbObjectId child) : id(child) {}
    explicit KdDbFieldChild(std::unique_ptr<KdDbField> child) : own(std::move(child)) {}
    KdDbFieldChild(const KdDbFieldChild& other);
    KdDbFieldChild(KdDbFieldChild&&) noexcept = default;
    KdDbFieldChild& operator=(KdDbFieldChild other) noexcept;
    ~KdDbFieldChild();

    /// The child without opening it; null when it is gone.
    const KdDbField* field() const;

    KdDbObjectId id;
    std::unique_ptr<KdDbField> own;
};

struct KdDbFieldState : KdDbObjectState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbFieldState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;
    void enterDatabase(KdDbObject& self) override;

    std::wstring code;
    std::vector<KdDbFieldChild> children;
    std::optional<std::wstring> evaluated;  ///< as an evaluator gave it
    KdDbField::EvalOption evaluationOption = KdDbField::kAutomatic;
};
