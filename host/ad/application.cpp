// Start and end of the application.

#include "host/ad/application.h"

#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/variables.h"
#include "host/rx/dynamiclinker.h"
#include "kd/ad/document.h"
#include "kd/db/table.h"
#include "tvx/exports.h"

namespace kdhost {
namespace {

Application* running = nullptr;

}  // namespace

Application::Application() : m_documents(m_services) {
    running = this;
    resetVariables();
    commandLine().clear();
    kddbSetHostApplicationServices(&m_services);
    addDatabaseListener(this);
    setCellSelectionListener(this);
    setOpenDocumentCount([this] { return m_documents.documentCount(); });
}

Application::~Application() {
    sendMessage(KdRx::kQuitMsg);
    while (Document* document = m_documents.at(m_documents.documentCount() - 1)) {
        if (!m_documents.close(*document)) break;
    }
    for (auto module = m_modules.rbegin(); module != m_modules.rend(); ++module) {
        dynamicLinker().unloadModule(module->c_str());
    }
    setOpenDocumentCount({});
    setCellSelectionListener(nullptr);
    removeDatabaseListener(this);
    kddbSetHostApplicationServices(nullptr);
    running = nullptr;
}

Application* Application::current() {
    return running;
}

std::wstring Application::loadModule(const std::wstring& path) {
    if (!dynamicLinker().loadModule(path.c_str())) return lastLoadError();
    m_modules.push_back(path);
    return {};
}

void Application::objectChanged(KdDbObjectId id) {
    queueForRedraw(id);
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) endSelectionIn(id);
    Document* document = table == nullptr ? nullptr : m_documents.documentOf(table->database());
    const bool isNew = document != nullptr && m_knownTables.insert(id).second;
    if (isNew) document->editor().pickFirst().setCurrentTable(id);
}

void Application::endSelectionIn(KdDbObjectId goneTable) {
    for (int index = 0; index < m_documents.documentCount(); ++index) {
        Document& document = *m_documents.at(index);
        if (document.data().m_tableId != goneTable) continue;
        document.data().m_tableId.setNull();
        if (&document == m_documents.current()) showTableToolBar(goneTable, false);
    }
}

/// A module that has a table toolbar exports this function.
void Application::showTableToolBar(KdDbObjectId table, bool show) {
    for (const std::wstring& module : m_modules) {
        const auto function = reinterpret_cast<decltype(&::showTableToolBar)>(findExport(module, "showTableToolBar"));
        if (function != nullptr) function(table, show);
    }
}

void Application::cellSelectionStarted(KdDbObjectId table) {
    m_documents.current()->data().m_tableId = table;
    showTableToolBar(table, true);
}

void Application::cellSelectionEnded(KdDbObjectId table) {
    m_documents.current()->data().m_tableId.setNull();
    showTableToolBar(table, false);
}

}  // namespace kdhost

KdApDocManager* kdDocManagerPtr() {
    kdhost::Application* application = kdhost::Application::current();
    return application == nullptr ? nullptr : &application->documents();
}
