// The look into the dictionary of table styles.

#include "module/core/tablestyles.h"

#include "kd/db/database.h"
#include "kd/db/dictionary.h"

std::optional<KdDbObjectId> tableStyleNamed(KdDbDatabase* database, const wchar_t* name) {
    KdDbDictionary* styles = nullptr;
    if (database == nullptr || database->getTableStyleDictionary(styles, KdDb::kForRead) != Kdad::eOk ||
        styles == nullptr) {
        return std::nullopt;
    }
    KdDbObjectId style;
    styles->getAt(name, style);
    styles->close();
    return style;
}
