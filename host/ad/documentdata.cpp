// The data record of the active document.

#include "host/ad/application.h"
#include "host/rx/faults.h"

KdadDocData* GetKdadAppCtxActiveDocData() {
    kdhost::Application* application = kdhost::Application::current();
    if (application == nullptr || kdhost::faults().noDocumentData) return nullptr;
    kdhost::Document* document = application->documents().inContext();
    return document == nullptr ? nullptr : &document->data();
}
