// The looks into the dictionary of table styles, and at the variable of the current one.

#include "module/core/tablestyles.h"

#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/variables.h"

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

CStdStr<wchar_t> nameOfTableStyle(const KdDbTableStyle& style) {
    wchar_t* text = nullptr;
    if (style.getName(text) != Kdad::eOk) return {};
    CStdStr<wchar_t> name = text;
    kdutDelBuffer(text);
    return name;
}

CStdStr<wchar_t> currentTableStyleName() {
    resbuf value;
    if (kdedGetVar(L"CTABLESTYLE", &value) != RTNORM || value.restype != RTSTR) return {};
    CStdStr<wchar_t> name = value.resval.rstring;
    kdutDelBuffer(value.resval.rstring);
    return name;
}
