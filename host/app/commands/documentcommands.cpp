// NEW, DOCUMENT, CLOSE, QUIT and SETVAR.

#include "host/app/commands/documentcommands.h"

#include "host/ad/application.h"
#include "host/app/commands/unsavedchanges.h"
#include "host/app/commands/valueprompts.h"
#include "host/ed/commandline.h"
#include "host/ed/commands.h"
#include "host/ed/variableprompt.h"
#include "host/rx/numbertext.h"

namespace kdhost {
namespace {

constexpr Words kNumber{L"\nNumber of the drawing: ", L"\n图形编号: "};
constexpr Words kNumberToClose{L"\nNumber of the drawing to close <current>: ", L"\n要关闭的图形编号 <当前>: "};
constexpr Words kNoDrawing{L"There is no drawing %1.", L"没有图形 %1。"};
constexpr Words kInUse{L"The drawing is in use.", L"图形正在使用。"};
constexpr Words kName{L"\nName of the variable or [?]: ", L"\n变量名或 [?]: "};
constexpr Words kNoVariable{L"There is no variable \"%1\".", L"没有变量“%1”。"};

/// Null, and told, when the text is no drawing's number.
Document* documentNumbered(const std::wstring& text) {
    Document* document = Application::current()->documents().at(wholeNumberFrom(text).value_or(0) - 1);
    if (document == nullptr) commandLine().fail(kNoDrawing.with(text));
    return document;
}

void close(DocumentManager& documents, Document& document) {
    if (!documents.holds(&document)) return;
    if (document.editor().isAsking()) return commandLine().fail(kInUse.text());
    if (!mayLoseChanges(document)) return;
    if (documents.documentCount() == 1) documents.openNew();
    documents.close(document);
}

void listVariables() {
    for (const VariableRecord& variable : variableRecords()) {
        const std::optional<VariableValue> value = readVariable(variable);
        commandLine().write(L"\n" + std::wstring(variable.name) + L" = " + (value ? variableText(*value) : L""));
    }
}

}  // namespace

void newDocument() {
    Application::current()->documents().openNew();
}

void switchDocument() {
    const std::wstring number = askForText(kNumber).value_or(L"");
    if (number.empty()) return;
    if (Document* document = documentNumbered(number)) Application::current()->documents().activate(*document);
}

void closeDocument() {
    const std::optional<std::wstring> number = askForText(kNumberToClose);
    if (!number) return;
    DocumentManager& documents = Application::current()->documents();
    Document* document = number->empty() ? documents.current() : documentNumbered(*number);
    if (document == nullptr) return;
    // The command's own drawing is in use until the command has ended.
    afterCommands([&documents, document] { close(documents, *document); });
}

void quit() {
    if (!mayLoseChanges(Application::current()->documents())) return;
    currentEditor()->input().clear();
    Application::current()->requestQuit();
}

void setVariable() {
    const std::wstring name = askForText(kName).value_or(L"");
    if (name.empty()) return;
    if (name == L"?") return listVariables();
    const VariableRecord* variable = findVariable(name);
    if (variable == nullptr) return commandLine().fail(kNoVariable.with(name));
    promptForVariable(*variable);
}

}  // namespace kdhost
