// The line type box.

#include <QComboBox>

#include "host/db/access.h"
#include "host/ui/hosttexts.h"
#include "host/ui/linetypes.h"
#include "host/ui/rowsamples.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/ui/comboboxes.h"
#include "kd/ui/hostdialogs.h"

KdDbDatabase* CKdUiLineTypeComboBox::database() const {
    if (m_database != nullptr) return m_database;
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    return services == nullptr ? nullptr : services->workingDatabase();
}

void CKdUiLineTypeComboBox::setDatabase(KdDbDatabase* database) {
    m_database = database;
    AddItems();
}

void CKdUiLineTypeComboBox::OnAddItems() {
    KdDbDatabase* listed = database();
    for (const kdhost::LinetypeEntry& entry : kdhost::linetypesOf(listed)) {
        SetItemData(AddString(kdhost::shownName(entry, *listed).c_str()), entry.id.asInteger());
    }
    AddString(GetOtherName());
}

int CKdUiLineTypeComboBox::FindItemByLinetype(KdDbObjectId linetype) const {
    if (linetype.isNull()) return -1;
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        if (GetItemLinetype(row) == linetype) return row;
    }
    return -1;
}

KdDbObjectId CKdUiLineTypeComboBox::GetItemLinetype(int row) const {
    return KdDbObjectId(static_cast<std::uint64_t>(GetItemData(row)));
}

CStdStr<wchar_t> CKdUiLineTypeComboBox::GetOtherName() const {
    return otherNameOr(kdhost::hostText(kdhost::HostText::OtherLinetype).toStdWString());
}

bool CKdUiLineTypeComboBox::OnSelectOther(bool, int item, int& out) {
    const KdDbObjectId before = GetItemLinetype(item);
    KdDbObjectId chosen = before;
    const bool accepted = kdedLinetypeDialog(database(), chosen);
    // Patterns that were loaded are in the drawing whichever way the dialog ended.
    AddItems();
    out = FindItemByLinetype(accepted ? chosen : before);
    return accepted;
}

void CKdUiLineTypeComboBox::DrawItemImage(int row) {
    const auto* linetype = kdhost::peek<KdDbLinetypeTableRecord>(GetItemLinetype(row));
    if (linetype == nullptr) return;
    kdhost::setRowData(*this, row, kdhost::linetypeSample(widget(), linetype->dashes()), Qt::DecorationRole);
    if (auto* combo = widgetAs<QComboBox>()) {
        combo->setIconSize(kdhost::sampleSize(*combo, kdhost::SampleStyle::Linetype));
    }
}
