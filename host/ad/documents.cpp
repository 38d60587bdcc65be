// Opening, activating and closing of documents, and the order in which reactors learn of it.

#include "host/ad/documents.h"

#include <QFileInfo>
#include <algorithm>

#include "host/ad/services.h"
#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/commands.h"
#include "host/rx/dynamiclinker.h"

KdApDocManagerReactor::~KdApDocManagerReactor() = default;
void KdApDocManagerReactor::documentCreated(KdApDocument*) {}
void KdApDocManagerReactor::documentToBeActivated(KdApDocument*) {}
void KdApDocManagerReactor::documentActivated(KdApDocument*) {}
void KdApDocManagerReactor::documentToBeDeactivated(KdApDocument*) {}
void KdApDocManagerReactor::documentToBeDestroyed(KdApDocument*) {}
void KdApDocManagerReactor::documentDestroyed(const wchar_t*) {}
KdApDocument::~KdApDocument() = default;
KdApDocManager::~KdApDocManager() = default;

namespace kdhost {
namespace {

/// A file has one name, from whatever folder it is looked at.
std::wstring wholePath(const std::wstring& path) {
    return path.empty() ? path : QFileInfo(QString::fromStdWString(path)).absoluteFilePath().toStdWString();
}

}  // namespace

Document::Document(std::wstring fileName) : Document(std::move(fileName), std::make_unique<KdDbDatabase>()) {
    m_hasFile = false;
}

Document::Document(std::wstring path, std::unique_ptr<KdDbDatabase> read)
    : m_fileName(std::move(path)),
      m_hasFile(true),
      m_database(std::move(read)),
      m_transactionManager(*m_database),
      m_editor(*m_database) {}

Document::~Document() = default;

std::wstring Document::title() const {
    return m_hasFile ? m_fileName.substr(m_fileName.rfind(L'/') + 1) : m_fileName;
}

Kdad::ErrorStatus Document::saveAs(const std::wstring& given) {
    const std::wstring path = wholePath(given);
    const Kdad::ErrorStatus status = m_database->saveAs(path.c_str());
    if (status != Kdad::eOk) return status;
    m_fileName = path;
    m_hasFile = true;
    noteSaved();
    if (m_saveListener) m_saveListener();
    return status;
}

bool Document::isChanged() const {
    return undoHistory(*m_database)->isChangedSinceSave();
}

void Document::noteSaved() {
    undoHistory(*m_database)->noteSaved();
}

DocumentManager::DocumentManager(HostServices& services) : m_services(services) {}

DocumentManager::~DocumentManager() {
    while (!m_documents.empty() && close(*m_documents.back())) {
    }
}

void DocumentManager::addReactor(KdApDocManagerReactor* reactor) {
    if (reactor == nullptr || std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end()) return;
    m_reactors.push_back(reactor);
}

void DocumentManager::removeReactor(KdApDocManagerReactor* reactor) {
    std::erase(m_reactors, reactor);
}

/// A reactor may come or go while the others are told.
template <class... Parameters, class... Arguments>
void DocumentManager::tell(void (KdApDocManagerReactor::*operation)(Parameters...), Arguments... arguments) {
    const std::vector<KdApDocManagerReactor*> toTell = m_reactors;
    for (KdApDocManagerReactor* reactor : toTell) {
        const bool stillThere = std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end();
        if (stillThere) (reactor->*operation)(arguments...);
    }
}

Kdad::ErrorStatus DocumentManager::sendStringToExecute(KdApDocument* document, const wchar_t* text, bool toFront, bool,
                                                       bool echo) {
    if (!holds(document) || text == nullptr) return Kdad::eInvalidInput;
    Document& receiver = static_cast<Document&>(*document);
    if (toFront) activate(receiver);
    if (echo) commandLine().echo(text);
    receiver.editor().input().send(text);
    return Kdad::eOk;
}

bool DocumentManager::holds(const KdApDocument* document) const {
    return std::any_of(m_documents.begin(), m_documents.end(),
                       [&](const auto& candidate) { return candidate.get() == document; });
}

Document* DocumentManager::at(int index) const {
    return index >= 0 && index < documentCount() ? m_documents[static_cast<std::size_t>(index)].get() : nullptr;
}

Document* DocumentManager::documentOf(const KdDbDatabase* database) const {
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& document) { return document->database() == database; });
    return found == m_documents.end() ? nullptr : found->get();
}

Document* DocumentManager::documentOfFile(const std::wstring& given) const {
    const std::wstring path = wholePath(given);
    const auto found = std::find_if(m_documents.begin(), m_documents.end(), [&](const auto& document) {
        return document->hasFile() && document->fileName() == path;
    });
    return found == m_documents.end() ? nullptr : found->get();
}

Document& DocumentManager::openNew() {
    return enter(std::make_unique<Document>(L"Drawing" + std::to_wstring(++m_lastNumber)));
}

Kdad::ErrorStatus DocumentManager::openFile(const std::wstring& given) {
    if (Document* known = documentOfFile(given)) {
        activate(*known);
        return Kdad::eOk;
    }
    const std::wstring path = wholePath(given);
    auto database = std::make_unique<KdDbDatabase>(false);
    const Kdad::ErrorStatus status = database->readDwgFile(path.c_str());
    if (status != Kdad::eOk) return status;
    auto document = std::make_unique<Document>(path, std::move(database));
    document->editor().zoomToDrawing();
    enter(std::move(document));
    return status;
}

Document& DocumentManager::enter(std::unique_ptr<Document> entered) {
    m_documents.push_back(std::move(entered));
    Document& document = *m_documents.back();
    document.setSaveListener([this] {
        if (m_saveListener) m_saveListener();
    });
    tell(&KdApDocManagerReactor::documentCreated, &document);
    activate(document);
    sendMessage(KdRx::kLoadDwgMsg);
    // What modules add to each drawing is nothing that a person would miss.
    document.noteSaved();
    return document;
}

void DocumentManager::setCurrent(Document* document) {
    m_current = document;
    m_context = document;
    setCurrentEditor(document == nullptr ? nullptr : &document->editor());
    m_services.setWorkingDatabase(document == nullptr ? nullptr : document->database());
}

void DocumentManager::activate(Document& document) {
    if (&document == m_current) return;
    if (m_current != nullptr) tell(&KdApDocManagerReactor::documentToBeDeactivated, m_current);
    m_context = &document;
    tell(&KdApDocManagerReactor::documentToBeActivated, &document);
    setCurrent(&document);
    tell(&KdApDocManagerReactor::documentActivated, &document);
}

bool DocumentManager::close(Document& document) {
    if (editorOfRunningCommand() == &document.editor()) return false;
    // Reactors and modules see the document as it was: active, and still counted.
    activate(document);
    tell(&KdApDocManagerReactor::documentToBeDestroyed, &document);
    sendMessage(KdRx::kUnloadDwgMsg);

    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& candidate) { return candidate.get() == &document; });
    if (m_documents.size() == 1) {
        tell(&KdApDocManagerReactor::documentToBeDeactivated, &document);
        setCurrent(nullptr);
    } else {
        activate(place == m_documents.begin() ? **(place + 1) : **(place - 1));
    }
    const std::wstring fileName = document.fileName();
    m_documents.erase(place);
    tell(&KdApDocManagerReactor::documentDestroyed, fileName.c_str());
    return true;
}

}  // namespace kdhost
