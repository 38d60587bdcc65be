// The prompt behind SETVAR and behind a variable's own name.

#include "host/ed/variableprompt.h"

#include "host/ed/commandline.h"
#include "host/ed/editor.h"

namespace kdhost {
namespace {

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
        commandLine().write(L"\n" + name + L" = " + shown(variable) + L" (read only)");
        return;
    }
    const std::wstring prompt = L"\nNew value for " + name + L" <" + shown(variable) + L">: ";
    // Names of layers and styles may hold blanks.
    const Answer answer = editor->ask(PromptKind::Text, prompt, variable.type == RTSTR);
    if (answer.isCancel() || answer.text.empty()) return;
    const std::optional<VariableValue> value = parseVariable(variable, answer.text);
    if (!value || !writeVariable(variable, *value)) {
        commandLine().fail(L"\"" + answer.text + L"\" is no value for " + name + L".");
    }
}

}  // namespace kdhost
