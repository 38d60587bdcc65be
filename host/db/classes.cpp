// One line for each class that objects can be made of.

#include "host/db/classes.h"

#include "host/db/keptobject.h"
#include "kd/db/blockreference.h"
#include "kd/db/dictionary.h"
#include "kd/db/field.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"

namespace kdhost {
namespace {

struct Maker {
    KdRxClass* (*cls)();
    std::unique_ptr<KdDbObject> (*make)();
};

template <class T>
constexpr Maker makerOf() {
    return {T::desc, []() -> std::unique_ptr<KdDbObject> { return std::make_unique<T>(); }};
}

constexpr Maker kMakers[] = {
    makerOf<KdDbLine>(),
    makerOf<KdDbSolid>(),
    makerOf<KdDbMText>(),
    makerOf<KdDbBlockReference>(),
    makerOf<KdDbTable>(),
    makerOf<KdDbTableStyle>(),
    makerOf<KdDbField>(),
    makerOf<KdDbDictionary>(),
    makerOf<KdDbKeptEntity>(),
    makerOf<KdDbKeptObject>(),
    makerOf<KdDbBlockTable>(),
    makerOf<KdDbLayerTable>(),
    makerOf<KdDbLinetypeTable>(),
    makerOf<KdDbTextStyleTable>(),
    makerOf<KdDbBlockTableRecord>(),
    makerOf<KdDbLayerTableRecord>(),
    makerOf<KdDbLinetypeTableRecord>(),
    makerOf<KdDbTextStyleTableRecord>(),
};

}  // namespace

std::unique_ptr<KdDbObject> makeObject(const KdRxClass* cls) {
    for (const Maker& maker : kMakers) {
        if (maker.cls() == cls) return maker.make();
    }
    return nullptr;
}

}  // namespace kdhost
