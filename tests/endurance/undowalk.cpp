// The walk through the steps of undo.

#include "tests/endurance/undowalk.h"

#include <set>

#include "host/ad/application.h"
#include "tests/endurance/checks.h"

namespace endurance {

void UndoWalk::watch() {
    const kdhost::DocumentManager& documents = m_stand.application().documents();
    std::set<const kdhost::Document*> open;
    for (int index = 0; index < documents.documentCount(); ++index) {
        kdhost::Document* document = documents.at(index);
        open.insert(document);
        if (m_begins.count(document) == 0) m_begins[document] = drawingOf(*document);
    }
    std::erase_if(m_begins, [&](const auto& each) { return open.count(each.first) == 0; });
}

std::string UndoWalk::compare(const std::string& wanted, const char* way) const {
    const std::string differs = difference(wanted, drawingOf(m_stand.document()));
    return differs.empty() ? differs : std::string(way) + differs;
}

std::optional<std::wstring> UndoWalk::next(std::string& failure) {
    while (failure.empty() && m_document < m_stand.documents()) {
        switch (m_stage) {
            case Stage::Leave:
                m_stage = Stage::Go;
                return L"@cells none";
            case Stage::Go:
                m_stage = Stage::Undo;
                return L"@document " + std::to_wstring(m_document + 1);
            case Stage::Undo:
                if (m_end.empty()) m_end = drawingOf(m_stand.document());
                if (m_stand.canUndo()) {
                    ++m_steps;
                    return L"U";
                }
                failure =
                    compare(m_begins.at(&m_stand.document()), "after all steps back the drawing isn't as it began:");
                m_stage = Stage::Redo;
                break;
            case Stage::Redo:
                if (m_steps-- > 0) return L"REDO";
                m_steps = 0;
                failure = compare(m_end, "after all steps forth the drawing isn't as it ended:");
                m_end.clear();
                m_stage = Stage::Leave;
                ++m_document;
        }
    }
    return std::nullopt;
}

}  // namespace endurance
