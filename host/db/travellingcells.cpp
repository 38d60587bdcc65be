// Formulas that remember how they were written.

#include "host/db/travellingcells.h"

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/opening.h"
#include "host/db/tableaccess.h"

namespace kdhost {
namespace {

/// Fields in fields are few; what goes deeper, or in a circle, ends here.
constexpr int kDeepest = 100;

bool travelling = false;

void visitFields(KdDbObjectId id, const std::function<void(const KdDbField&)>& visit, int depth) {
    const auto* field = peek<KdDbField>(id);
    if (field == nullptr || depth > kDeepest) return;
    visit(*field);
    for (const KdDbFieldChild& child : stateOf<KdDbFieldState>(*field).children)
        visitFields(child.id(), visit, depth + 1);
}

void remember(const KdDbField& field, int row, int column) {
    const auto& state = stateOf<KdDbFieldState>(field);
    if (state.asWritten != nullptr || !isFormulaCode(state.code)) return;
    auto* changed = static_cast<KdDbField*>(findObject(field.objectId()));
    static_cast<KdDbFieldState&>(KdDbObjectAccess::stateForHost(*changed)).asWritten =
        std::make_shared<const WrittenFormula>(WrittenFormula{state.code, row, column});
}

}  // namespace

bool areCellsTravelling() {
    return travelling;
}

void setCellsTravelling(bool now) {
    travelling = now;
}

void rememberFormulas(const KdDbTable& table) {
    const TableState& state = tableState(table);
    for (int row = 0; row < state.rowCount(); ++row) {
        for (int column = 0; column < state.columnCount(); ++column) {
            forEachFieldIn(state.content(row, column).field(),
                           [&](const KdDbField& field) { remember(field, row, column); });
        }
    }
}

void forEachFieldIn(KdDbObjectId field, const std::function<void(const KdDbField&)>& visit) {
    if (!field.isNull()) visitFields(field, visit, 0);
}

}  // namespace kdhost
