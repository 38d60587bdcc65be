// The engine as the database and modules know it.

#include "host/field/engine.h"

#include "kd/db/fieldengine.h"
#include "kd/db/formula.h"

KDRX_DEFINE_MEMBERS(KdFdFieldEnginePE, KdRxObject)
KDRX_DEFINE_MEMBERS(KdFdFieldEngine, KdRxObject)

namespace kdhost::field {

/// Never deleted: drawings may outlive whatever would delete it.
Engine& Engine::instance() {
    static Engine& engine = *new Engine;
    return engine;
}

namespace {

/// Formulas are evaluated from the start of the library on, and the engine hears of changes before anyone else.
const bool isRegistered = [] {
    setFieldEvaluation(&Engine::instance());
    addDatabaseListener(&Engine::instance());
    return true;
}();

class Extension final : public KdFdFieldEnginePE {
public:
    void setCellInEdit(KdDbObjectId table, int row, int column) override {
        Engine::instance().setCellInEdit(table, row, column);
    }
    KdDbObjectId cellInEdit(int& row, int& column) const override { return Engine::instance().cellInEdit(row, column); }
};

class EngineForModules final : public KdFdFieldEngine {
public:
    KdFdFieldEnginePE* extension() override { return &m_extension; }

private:
    Extension m_extension;
};

/// Full-width letters, digits and signs, as input methods make them, as plain ones.
std::wstring inHalfWidth(std::wstring text) {
    constexpr wchar_t kFirst = 0xFF01;
    constexpr wchar_t kLast = 0xFF5E;
    constexpr wchar_t kDistance = kFirst - L'!';
    for (wchar_t& character : text) {
        if (character >= kFirst && character <= kLast) character -= kDistance;
    }
    return text;
}

}  // namespace
}  // namespace kdhost::field

using namespace kdhost::field;

KdFdFieldEngine* kddbGetFieldEngine() {
    static EngineForModules engine;
    return &engine;
}

bool kdadConvertExprToFieldCode(const KdString& expression, KdString& code) {
    const std::wstring plain = inHalfWidth(expression.str());
    const Expression parsed = parseExpression(plain);
    code = parsed.valid ? KdString(rewritten(plain, parsed)) : expression;
    return parsed.valid;
}
