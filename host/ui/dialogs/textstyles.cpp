// Text styles: listed, made, renamed, changed and deleted.

#include "host/ui/dialogs/textstyles.h"

#include <algorithm>
#include <memory>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/objectstate.h"
#include "host/db/symbols.h"
#include "host/db/walk.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"

namespace kdhost {
namespace {

using OpenRecord = Opened<KdDbTextStyleTableRecord>;

void write(KdDbTextStyleTableRecord& record, const TextStyleValues& values) {
    record.setFont(values.font.c_str());
    record.setFontStyle(values.bold, values.italic);
    record.setTextSize(values.height);
    record.setXScale(values.widthFactor);
}

/// Every object of the drawing tells the ids that it holds.
bool refersTo(const KdDbObject& object, KdDbObjectId wanted) {
    bool found = false;
    const std::unique_ptr<KdDbObjectState> state = KdDbObjectAccess::state(object).clone();
    state->mapIds([&](KdDbObjectId id, IdRole) {
        found = found || id == wanted;
        return id;
    });
    return found;
}

bool keepsItsName(const std::wstring& name) {
    return QString::fromStdWString(name).compare(QLatin1String("Standard"), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::vector<std::wstring> TextStyles::names() const {
    std::vector<std::wstring> names;
    for (const KdDbObjectId id : recordsOf(m_database.textStyleTableId())) names.push_back(recordName(id));
    return names;
}

KdDbObjectId TextStyles::find(const std::wstring& name) const {
    return recordNamed(m_database.textStyleTableId(), name);
}

std::wstring TextStyles::current() const {
    return recordName(m_database.textstyle());
}

std::optional<TextStyleValues> TextStyles::values(const std::wstring& name) const {
    const auto* record = peek<KdDbTextStyleTableRecord>(find(name));
    if (record == nullptr) return std::nullopt;
    return TextStyleValues{record->font(), record->isBold(), record->isItalic(), record->textSize(), record->xScale()};
}

std::wstring TextStyles::proposal() const {
    for (int number = 1;; ++number) {
        std::wstring name = hostText(HostText::TextStyleProposal).arg(number).toStdWString();
        if (find(name).isNull()) return name;
    }
}

TextStyles::Refusal TextStyles::create(const std::wstring& name, const std::wstring& like) {
    if (name.empty()) return HostText::TextStyleNameEmpty;
    if (!find(name).isNull()) return HostText::TextStyleNameTaken;
    auto record = std::make_unique<KdDbTextStyleTableRecord>();
    record->setName(name.c_str());
    write(*record, values(like).value_or(TextStyleValues{}));
    const OpenRecord added = addRecord(m_database.textStyleTableId(), std::move(record));
    return added ? Refusal() : HostText::TextStyleLocked;
}

TextStyles::Refusal TextStyles::rename(const std::wstring& from, const std::wstring& to) {
    if (to.empty()) return HostText::TextStyleNameEmpty;
    if (keepsItsName(from)) return HostText::TextStyleStandard;
    const KdDbObjectId style = find(from);
    const KdDbObjectId holder = find(to);
    if (!holder.isNull() && holder != style) return HostText::TextStyleNameTaken;
    const OpenRecord record(style, KdDb::kForWrite);
    if (!record) return HostText::TextStyleLocked;
    return record->setName(to.c_str()) == Kdad::eOk ? Refusal() : HostText::TextStyleNameTaken;
}

TextStyles::Refusal TextStyles::remove(const std::wstring& name) {
    if (keepsItsName(name)) return HostText::TextStyleStandard;
    const KdDbObjectId style = find(name);
    if (isUsed(style)) return HostText::TextStyleInUse;
    const OpenRecord record(style, KdDb::kForWrite);
    if (!record) return HostText::TextStyleLocked;
    return record->erase() == Kdad::eOk ? Refusal() : HostText::TextStyleInUse;
}

TextStyles::Refusal TextStyles::set(const std::wstring& name, const TextStyleValues& values) {
    if (!(values.height >= 0.0) || !(values.widthFactor > 0.0)) return HostText::TextStyleBadNumbers;
    if (this->values(name) == values) return {};
    const OpenRecord record(find(name), KdDb::kForWrite);
    if (!record) return HostText::TextStyleLocked;
    write(*record, values);
    return {};
}

TextStyles::Refusal TextStyles::setCurrent(const std::wstring& name) {
    const KdDbObjectId style = find(name);
    if (style.isNull()) return HostText::TextStyleNameEmpty;
    m_database.setTextstyle(style);
    return {};
}

bool TextStyles::isUsed(KdDbObjectId style) const {
    if (style == m_database.textstyle()) return true;
    const auto& objects = KdDbDatabaseAccess::contents(m_database).objects;
    // The table of the styles lists them all; that is no use of any.
    return std::any_of(objects.begin(), objects.end(), [&](const auto& entry) {
        const KdDbObject& object = *entry.second;
        return !object.isErased() && object.objectId() != m_database.textStyleTableId() && refersTo(object, style);
    });
}

}  // namespace kdhost
