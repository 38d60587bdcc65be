// The prompt behind SETVAR and behind a variable's own name.

#include "host/ed/variableprompt.h"

#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/words.h"

namespace kdhost {
namespace {

constexpr Words kReadOnly{L"\n%1 = %2 (read only)", L"\n%1 = %2 (只读)"};
constexpr Words kNewValue{L"\nNew value for %1 <%2>: ", L"\n%1 的新值 <%2>: "};
constexpr Words kNoValue{L"\"%1\" is no value for %2.", L"“%1”不是 %2 的有效值。"};

std::wstring shown(const VariableRecord& variable) {
    const std::optional<VariableValue> value = readVariable(variable);
    return value ? variableText(*value) : L"";
}

}  // namespace

void promptForVariable(const VariableRecord& variable) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    const std::wstring name = variable.name;
    if (variable.readOnly) {
        commandLine().write(kReadOnly.with(name, shown(variable)));
        return;
    }
    const std::wstring prompt = kNewValue.with(name, shown(variable));
    // Names of layers and styles may hold blanks.
    const Answer answer = editor->ask(PromptKind::Text, prompt, variable.type == RTSTR);
    if (answer.isCancel() || answer.text.empty()) return;
    const std::optional<VariableValue> value = parseVariable(variable, answer.text);
    if (!value || !writeVariable(variable, *value)) {
        commandLine().fail(kNoValue.with(answer.text, name));
    }
}

}  // namespace kdhost
