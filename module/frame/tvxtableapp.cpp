// The module comes to life with message 1 and leaves nothing behind after message 2.

#include "module/frame/tvxtableapp.h"

#include <array>
#include <cwchar>

#include "kd/db/table.h"
#include "kd/ed/uicontext.h"
#include "kd/rx/kdstring.h"
#include "kd/rx/service.h"
#include "module/core/resources.h"
#include "module/edit/contextmenu/tableuicontext.h"
#include "module/edit/tabletoolbar.h"
#include "module/frame/docmanagerreactor.h"
#include "module/frame/registryentry.h"
#include "module/preview/demandregen.h"

namespace {

constexpr const wchar_t* kServiceName = L"TVXTABLE_SERVICE";
constexpr unsigned kCommandLineTableName = 2009;

/// The resource module is named by the product's prefix, where the product has one. A module that can't be
/// loaded is no error: texts are then empty.
HINSTANCE loadResourceModule() {
    std::array<wchar_t, 1024> prefix{};
    std::array<wchar_t, 1024> name{};
    if (GetKdadProductPreName(prefix.data()) != 0) {
        std::swprintf(name.data(), name.size(), L"%lsTableRes.dll", prefix.data());
    } else {
        std::wcscpy(name.data(), L"TvxTableRes.dll");
    }
    return LoadResourceDll(name.data());
}

}  // namespace

TvxTableApp::TvxTableApp() {
    hLibModule = loadResourceModule();
    _hdllInstance = hLibModule;
}

TvxTableApp::~TvxTableApp() = default;

int TvxTableApp::On_kInitAppMsg(void* applicationId) {
    const int result = KdRxTvxApp::On_kInitAppMsg(applicationId);
    // By itself: the frame's table of classes stays empty.
    KdGsDemandRegenGiDrawable::rxInit();

    KdString localName;
    localName.loadString(hLibModule, kCommandLineTableName);
    commandStack().addCommand(kTableCommandGroup, L"-TABLE", localName.kwszPtr(), KdEdCommandFlag::kUsePickSet,
                              TVX_TABLE_COMMANDSTABLE_CMDLINE, nullptr, -1, nullptr, nullptr);

    dropContextMenu();
    m_contextMenu = std::make_unique<CVqTableUIContext>();
    kdedAddObjectContextMenu(KdDbTable::desc(), m_contextMenu.get(), applicationId);

    if (!kdrxServiceIsRegistered(kServiceName)) kdrxRegisterService(kServiceName);
    if (m_documentReactor == nullptr) m_documentReactor = std::make_unique<VqTableDocManagerReactor>();
    return result;
}

int TvxTableApp::On_kUnloadAppMsg(void* argument) {
    const int result = KdRxTvxApp::On_kUnloadAppMsg(argument);
    KdGsDemandRegenGiDrawable::rxExit();

    // Takes "-TABLE" away, which the command table doesn't know.
    commandStack().removeGroup(kTableCommandGroup);

    // The floating toolbar is not destroyed here: its pointer alone is given up.
    gpTableditMiniFrameWnd = nullptr;

    dropContextMenu();
    if (auto* services = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ServiceDictionary"))) {
        delete services->remove(kServiceName);
    }
    m_documentReactor.reset();

    if (hLibModule == nullptr) return result;
    FreeLibrary(hLibModule);
    hLibModule = nullptr;
    return 0;
}

void TvxTableApp::dropContextMenu() {
    if (m_contextMenu == nullptr) return;
    kdedRemoveObjectContextMenu(KdDbTable::desc(), m_contextMenu.get());
    m_contextMenu.reset();
}
