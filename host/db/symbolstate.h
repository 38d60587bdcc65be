// What symbol tables and their records hold.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/db/objectstate.h"
#include "kd/db/color.h"
#include "kd/db/symboltable.h"
#include "kd/ge/point3d.h"

namespace kdhost {

/// Whether the object is a record of the kind that the table holds.
bool takesRecord(const KdDbSymbolTable& table, const KdDbObject& record);

}  // namespace kdhost

/// Records by folded name. It only speeds look-ups up and is no part of what a table holds.
struct KdDbSymbolIndex {
    std::unordered_map<std::wstring, KdDbObjectId> ids;
    std::size_t indexed = 0;  ///< how many records are in it
    std::uint64_t generation = 0;
};

struct KdDbSymbolTableState : KdDbObjectState {
    std::unique_ptr<KdDbObjectState> clone() const override;
    void mapIds(const kdhost::IdMapper& map) override;
    void wasPutBack(KdDbObject& self) const override;

    std::vector<KdDbObjectId> records;  ///< in the order of their making
    mutable KdDbSymbolIndex index;
};

struct KdDbSymbolTableRecordState : KdDbObjectState {
    void takePlaceOf(const KdDbObjectState& previous) override;
    void wasPutBack(KdDbObject& self) const override;

    std::wstring name;
};

struct KdDbBlockTableRecordState : KdDbSymbolTableRecordState {
    std::unique_ptr<KdDbObjectState> clone() const override {
        return std::make_unique<KdDbBlockTableRecordState>(*this);
    }
    void mapIds(const kdhost::IdMapper& map) override;
    void takePlaceOf(const KdDbObjectState& previous) override;

    KdGePoint3d origin;
    std::vector<KdDbObjectId> entities;  ///< in drawing order
};

struct KdDbLayerTableRecordState : KdDbSymbolTableRecordState {
    std::unique_ptr<KdDbObjectState> clone() const override {
        return std::make_unique<KdDbLayerTableRecordState>(*this);
    }
    void mapIds(const kdhost::IdMapper& map) override;

    KdCmColor color = KdCmColor::fromIndex(7);
    KdDbObjectId linetype;
    KdDb::LineWeight lineWeight = KdDb::kLnWtByLwDefault;
    bool locked = false;
    bool plottable = true;
    bool off = false;    ///< not shown; kept for the file's sake
    int otherFlags = 0;  ///< of the file, beside that of the lock
};

struct KdDbLinetypeTableRecordState : KdDbSymbolTableRecordState {
    std::unique_ptr<KdDbObjectState> clone() const override {
        return std::make_unique<KdDbLinetypeTableRecordState>(*this);
    }

    std::wstring comments;
    std::vector<double> dashes;
};

struct KdDbTextStyleTableRecordState : KdDbSymbolTableRecordState {
    std::unique_ptr<KdDbObjectState> clone() const override {
        return std::make_unique<KdDbTextStyleTableRecordState>(*this);
    }

    std::wstring font = L"DejaVu Sans";
    bool bold = false;
    bool italic = false;
    double textSize = 0.0;
    double xScale = 1.0;
    double obliquingAngle = 0.0;
};
