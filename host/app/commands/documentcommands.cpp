// NEW, DOCUMENT, CLOSE, QUIT and SETVAR.

#include "host/app/commands/documentcommands.h"

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/commands.h"
#include "host/ed/variableprompt.h"
#include "kd/ed/prompts.h"

namespace kdhost {

void newDocument() {
    Application::current()->documents().openNew();
}

namespace {

/// Null, and told, when the text is no drawing's number.
Document* documentNumbered(const wchar_t* text) {
    DocumentManager& documents = Application::current()->documents();
    wchar_t* end = nullptr;
    const long number = std::wcstol(text, &end, 10);
    const bool isNumber = *end == L'\0' && number >= 1 && number <= documents.documentCount();
    Document* document = isNumber ? documents.at(static_cast<int>(number) - 1) : nullptr;
    if (document == nullptr) commandLine().fail(std::wstring(L"There is no drawing ") + text + L".");
    return document;
}

void close(DocumentManager& documents, Document& document) {
    if (!documents.holds(&document)) return;
    if (document.editor().isAsking()) return commandLine().fail(L"The drawing is in use.");
    if (documents.documentCount() == 1) documents.openNew();
    documents.close(document);
}

}  // namespace

void switchDocument() {
    wchar_t text[1024];
    if (kdedGetString(0, L"\nNumber of the drawing: ", text) != RTNORM || text[0] == L'\0') return;
    if (Document* document = documentNumbered(text)) Application::current()->documents().activate(*document);
}

void closeDocument() {
    wchar_t text[1024];
    if (kdedGetString(0, L"\nNumber of the drawing to close <current>: ", text) != RTNORM) return;
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
    if (kdedGetString(0, L"\nName of the variable: ", name) != RTNORM || name[0] == L'\0') return;
    if (const VariableRecord* variable = findVariable(name)) {
        promptForVariable(*variable);
    } else {
        commandLine().fail(std::wstring(L"There is no variable \"") + name + L"\".");
    }
}

}  // namespace kdhost
