// How the names that cells hold find the cell styles of the table's style.

#include "host/db/tablestylepool.h"

#include "host/db/access.h"
#include "host/db/names.h"
#include "kd/db/tablestyle.h"

namespace kdhost {

CellStylePool::CellStylePool() {
    for (const wchar_t* name : {kTitleStyle, kHeaderStyle, kDataStyle}) m_entries.write().push_back({name, 0, nullptr});
}

const TableStyleState& CellStylePool::style() const {
    if (m_foundAt != stateEpoch) {
        // A table goes on looking like its style when the style was erased.
        const KdDbObject* object = m_tableStyle.isNull() ? nullptr : peekObject(m_tableStyle, true);
        if (object == nullptr || !object->isKindOf(KdDbTableStyle::desc())) return standardTableStyle();
        m_styleObject = object;
        m_foundAt = stateEpoch;
    }
    return stateOf(*m_styleObject);
}

void CellStylePool::bind(Entry& entry, const TableStyleState& style) {
    CellStylePtr found = entry.index == 0 ? nullptr : style.find(entry.index);
    if (found == nullptr) {
        // A deleted style leaves its cells the name it had last; one made anew under that name gets them.
        auto last = style.lastName.find(entry.index);
        if (last != style.lastName.end()) entry.name = last->second;
        found = style.find(entry.name);
    }
    entry.index = found == nullptr ? 0 : found->index;
    if (found != nullptr) entry.name = found->name;
    entry.record = found == nullptr ? style.records[2] : found;
}

void CellStylePool::bindAll(const TableStyleState& current) const {
    m_boundAt = m_foundAt;
    if (current.revision == m_revision && m_boundTo == m_tableStyle) return;
    m_records.clear();
    for (Entry& entry : m_entries.write()) {
        if (m_boundTo != m_tableStyle) entry.index = 0;
        bind(entry, current);
        m_records.push_back(entry.record.get());
    }
    m_revision = current.revision;
    m_boundTo = m_tableStyle;
}

void CellStylePool::setTableStyle(KdDbObjectId style) {
    refresh();
    m_tableStyle = style;
    m_foundAt = m_boundAt = kNever;
    refresh();
}

void CellStylePool::mapTableStyle(const IdMapper& map) {
    refresh();
    // Names bind anew when they are next asked for: the new style may still be on its way.
    m_tableStyle = map(m_tableStyle, IdRole::pointer);
    m_foundAt = m_boundAt = kNever;
}

std::uint16_t CellStylePool::placeOfOther(std::wstring_view name) {
    for (std::size_t i = 0; i < m_entries->size(); ++i) {
        if (sameName((*m_entries)[i].name, name)) return m_lastPlace = static_cast<std::uint16_t>(i);
    }
    std::vector<Entry>& entries = m_entries.write();
    entries.push_back({std::wstring(name), 0, nullptr});
    bind(entries.back(), style());
    m_records.push_back(entries.back().record.get());
    return static_cast<std::uint16_t>(entries.size() - 1);
}

}  // namespace kdhost
