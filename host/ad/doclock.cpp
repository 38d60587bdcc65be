// The document lock. All of the host runs on one thread, so that what the lock guards against is a command of
// another document that waits at a prompt.

#include "kd/ad/doclock.h"

#include "host/ad/application.h"
#include "host/db/undo.h"
#include "host/ed/commands.h"

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
    const kdhost::Editor* busy = kdhost::editorOfRunningCommand();
    m_status = busy == nullptr || busy == &document->editor() ? Kdad::eOk : Kdad::eLockViolation;
    if (m_status != Kdad::eOk) return;
    // What is changed under the lock is undone like a command.
    m_document = document;
    kdhost::undoHistory(*document->database())->beginCommand(kdhost::kUnnamedStep);
}

KdAxDocLock::~KdAxDocLock() {
    kdhost::Application* application = kdhost::Application::current();
    if (m_document == nullptr || application == nullptr) return;
    const auto* document = static_cast<const kdhost::Document*>(m_document);
    // The document may have been closed since.
    if (!application->documents().holds(document)) return;
    kdhost::undoHistory(*document->database())->endCommand();
}
