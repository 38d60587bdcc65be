// The document lock. All of the host runs on one thread, so that what the lock guards against is a command of
// another document that waits at a prompt.

#include "kd/ad/doclock.h"

#include "host/ad/application.h"
#include "host/db/undo.h"
#include "host/ed/commands.h"

namespace kdhost {

Kdad::ErrorStatus Document::lock(const std::wstring& name) {
    const Editor* busy = editorOfRunningCommand();
    if (busy != nullptr && busy != &m_editor) return Kdad::eLockViolation;
    undoHistory(*m_database)->beginCommand(name);
    ++m_locks;
    return Kdad::eOk;
}

bool Document::unlock() {
    if (m_locks == 0) return false;
    --m_locks;
    undoHistory(*m_database)->endCommand();
    return true;
}

Kdad::ErrorStatus DocumentManager::lockDocument(KdApDocument* document, KdAp::DocLockMode, const wchar_t* globalName,
                                                const wchar_t*, bool) {
    if (!holds(document)) return Kdad::eInvalidInput;
    return static_cast<Document&>(*document).lock(globalName == nullptr ? kUnnamedStep : globalName);
}

Kdad::ErrorStatus DocumentManager::unlockDocument(KdApDocument* document) {
    return holds(document) && static_cast<Document&>(*document).unlock() ? Kdad::eOk : Kdad::eInvalidInput;
}

}  // namespace kdhost

namespace {

kdhost::Document* documentOf(KdDbObjectId id) {
    kdhost::Application* application = kdhost::Application::current();
    const KdDbObject* object = kdhost::peekObject(id, true);
    return application == nullptr || object == nullptr ? nullptr
                                                       : application->documents().documentOf(object->database());
}

}  // namespace

KdAxDocLock::KdAxDocLock(const KdDbObjectId& object, DocLockType) : m_status(Kdad::eInvalidInput) {
    kdhost::Document* document = documentOf(object);
    if (document == nullptr) return;
    m_status = document->lock(kdhost::kUnnamedStep);
    if (m_status == Kdad::eOk) m_document = document;
}

KdAxDocLock::~KdAxDocLock() {
    kdhost::Application* application = kdhost::Application::current();
    if (m_document == nullptr || application == nullptr) return;
    auto* document = static_cast<kdhost::Document*>(m_document);
    // The document may have been closed since.
    if (application->documents().holds(document)) document->unlock();
}
