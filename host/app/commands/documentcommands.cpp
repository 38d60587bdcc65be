// NEW, DOCUMENT, CLOSE, QUIT and SETVAR.

#include "host/app/commands/documentcommands.h"

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/commands.h"
#include "host/ed/variableprompt.h"
#include "host/ed/words.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr Words kNumber{L"\nNumber of the drawing: ", L"\n图形编号: "};
constexpr Words kNumberToClose{L"\nNumber of the drawing to close <current>: ", L"\n要关闭的图形编号 <当前>: "};
constexpr Words kNoDrawing{L"There is no drawing %1.", L"没有图形 %1。"};
constexpr Words kInUse{L"The drawing is in use.", L"图形正在使用。"};
constexpr Words kName{L"\nName of the variable or [?]: ", L"\n变量名或 [?]: "};
constexpr Words kNoVariable{L"There is no variable \"%1\".", L"没有变量“%1”。"};

/// Null, and told, when the text is no drawing's number.
Document* documentNumbered(const wchar_t* text) {
    DocumentManager& documents = Application::current()->documents();
    wchar_t* end = nullptr;
    const long number = std::wcstol(text, &end, 10);
    const bool isNumber = *end == L'\0' && number >= 1 && number <= documents.documentCount();
    Document* document = isNumber ? documents.at(static_cast<int>(number) - 1) : nullptr;
    if (document == nullptr) commandLine().fail(kNoDrawing.with(std::wstring(text)));
    return document;
}

void close(DocumentManager& documents, Document& document) {
    if (!documents.holds(&document)) return;
    if (document.editor().isAsking()) return commandLine().fail(kInUse.text());
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
    wchar_t text[1024];
    if (kdedGetString(0, kNumber.text(), text) != RTNORM || text[0] == L'\0') return;
    if (Document* document = documentNumbered(text)) Application::current()->documents().activate(*document);
}

void closeDocument() {
    wchar_t text[1024];
    if (kdedGetString(0, kNumberToClose.text(), text) != RTNORM) return;
    DocumentManager& documents = Application::current()->documents();
    Document* document = text[0] == L'\0' ? documents.current() : documentNumbered(text);
    if (document == nullptr) return;
    // The command's own drawing is in use until the command has ended.
    afterCommands([&documents, document] { close(documents, *document); });
}

void quit() {
    currentEditor()->input().clear();
    Application::current()->requestQuit();
}

void setVariable() {
    wchar_t name[1024];
    if (kdedGetString(0, kName.text(), name) != RTNORM || name[0] == L'\0') return;
    if (name == std::wstring_view(L"?")) return listVariables();
    const VariableRecord* variable = findVariable(name);
    if (variable == nullptr) return commandLine().fail(kNoVariable.with(std::wstring(name)));
    promptForVariable(*variable);
}

}  // namespace kdhost
