// The host as one running application: its services, its documents and the modules it has loaded. There is
// one at a time.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "host/ad/appinterface.h"
#include "host/ad/documents.h"
#include "host/ad/mainapp.h"
#include "host/ad/services.h"
#include "host/db/access.h"
#include "host/ed/picking.h"

namespace kdhost {

class Application : private DatabaseListener, private CellSelectionListener {
public:
    /// Starts without a document. Host variables are as a session starts with.
    Application();
    /// Closes the documents, then unloads the modules in the reverse order of loading.
    ~Application() override;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Null while none runs.
    static Application* current();

    HostServices& services() { return m_services; }
    DocumentManager& documents() { return m_documents; }
    MainAppService& mainAppService() { return m_mainAppService; }
    ApplicationInterface& applicationInterface() { return m_applicationInterface; }

    /// The window that dialogs and message boxes belong to; null before there is one. It stays its maker's.
    QWidget* mainWindow() const { return m_mainWindow; }
    void setMainWindow(QWidget* window) { m_mainWindow = window; }

    /// Loads a module; a name without a folder is looked for in the plug-in folder. Empty on success, else
    /// what is wrong.
    std::wstring loadModule(const std::wstring& path);
    /// The modules loaded, in the order of loading.
    const std::vector<std::wstring>& modules() const { return m_modules; }

    /// Whether a person works in the main window, who is asked before something is lost. Not so at first, nor while a
    /// script runs.
    bool isAttended() const { return m_attended; }
    void setAttended(bool attended) { m_attended = attended; }

    /// Asks the program to end once the running command is done.
    void requestQuit() { m_quitRequested = true; }
    bool isQuitRequested() const { return m_quitRequested; }

private:
    void objectChanged(KdDbObjectId id) override;
    void cellSelectionStarted(KdDbObjectId table) override;
    void cellSelectionEnded(KdDbObjectId table) override;
    /// A table that is gone has no selected cells any more.
    void endSelectionIn(KdDbObjectId goneTable);
    void showTableToolBar(KdDbObjectId table, bool show);

    HostServices m_services;
    MainAppService m_mainAppService;
    ApplicationInterface m_applicationInterface;
    QWidget* m_mainWindow = nullptr;
    DocumentManager m_documents;
    std::vector<std::wstring> m_modules;
    std::unordered_set<KdDbObjectId> m_knownTables;
    bool m_attended = false;
    bool m_quitRequested = false;
};

}  // namespace kdhost
