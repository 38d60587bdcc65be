// Asking before changes are lost.

#include "host/app/commands/unsavedchanges.h"

#include "host/ad/application.h"
#include "host/app/commands/filecommands.h"
#include "host/ed/display.h"
#include "host/ed/words.h"
#include "mfc/messagebox.h"

namespace kdhost {
namespace {

constexpr Words kSaveChanges{L"Save changes to %1?", L"是否将更改保存到 %1?"};

}  // namespace

bool mayLoseChanges(Document& document) {
    Application& application = *Application::current();
    if (!application.isAttended() || !document.isChanged()) return true;
    application.documents().activate(document);
    updateDisplay();
    const int answer = AfxMessageBox(kSaveChanges.with(document.title()).c_str(), MB_YESNOCANCEL | MB_ICONWARNING);
    return answer == IDYES ? saveDrawing(document) : answer == IDNO;
}

bool mayLoseChanges(const DocumentManager& documents) {
    for (int index = 0; index < documents.documentCount(); ++index) {
        if (!mayLoseChanges(*documents.at(index))) return false;
    }
    return true;
}

}  // namespace kdhost
