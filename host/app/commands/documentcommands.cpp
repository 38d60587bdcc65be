// NEW, DOCUMENT, QUIT and SETVAR.

#include "host/app/commands/documentcommands.h"

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/variableprompt.h"
#include "kd/ed/prompts.h"

namespace kdhost {

bool activateDocument(int number) {
    DocumentManager& documents = Application::current()->documents();
    Document* document = documents.at(number - 1);
    if (document != nullptr) documents.activate(*document);
    return document != nullptr;
}

void newDocument() {
    Application::current()->documents().openNew();
}

void switchDocument() {
    wchar_t text[1024];
    if (kdedGetString(0, L"\nNumber of the drawing: ", text) != RTNORM || text[0] == L'\0') return;
    wchar_t* end = nullptr;
    const long number = std::wcstol(text, &end, 10);
    if (*end != L'\0' || number < 1 || number > Application::current()->documents().documentCount() ||
        !activateDocument(static_cast<int>(number))) {
        commandLine().fail(std::wstring(L"There is no drawing ") + text + L".");
    }
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
