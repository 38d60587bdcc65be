// Begin and end of the mark around an edit.

#include "module/core/editframe.h"

#include "kd/ad/mainapp.h"

CommandMark::CommandMark(const EditMark& mark) : m_service(vqcadMainAppService()) {
    if (m_service != nullptr) m_service->beginCommandMark(mark.name, KdString(loadText(mark.titleText).c_str()));
}

CommandMark::~CommandMark() {
    if (m_service != nullptr) m_service->endCommandMark();
}
