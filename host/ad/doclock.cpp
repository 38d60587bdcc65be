// The document lock. All of the host runs on one thread, so that what the lock guards against is a command of
// another document that waits at a prompt.

#include "kd/ad/doclock.h"

#include "host/ad/application.h"
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
    if (m_status == Kdad::eOk) m_document = document;
}

KdAxDocLock::~KdAxDocLock() = default;
