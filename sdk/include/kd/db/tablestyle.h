// A table style: named cell styles and the direction that tables of the style grow in.
#pragma once

#include <string>

#include "kd/db/color.h"
#include "kd/db/object.h"
#include "kd/db/value.h"
#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"

/// Every property takes the name of a cell style as its last argument; names are compared without regard
/// to case, and an unknown name reads as "_DATA" and sets nothing.
class KdDbTableStyle : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbTableStyle)
    /// With the three cell styles "_TITLE", "_HEADER" and "_DATA" and their standard values.
    KdDbTableStyle();
    ~KdDbTableStyle() override;

    /// 0: downwards; otherwise upwards.
    virtual int flowDirection() const;
    virtual void setFlowDirection(int flow);

    /// Enters the style into the database's dictionary of table styles under `name`. The database owns the style
    /// from now on, and it stays open for write. Failures leave `id` null and the style its maker's:
    /// eNullObjectPointer without a database, eInvalidKey for an empty name, eDuplicateKey for one that is taken,
    /// eAlreadyInDatabase, and what opening the dictionary gives.
    virtual Kdad::ErrorStatus postTableStyleToDb(KdDbDatabase* database, const wchar_t* name, KdDbObjectId& id);

    /// Name of the style's entry in its dictionary. The caller frees the text with kdutDelBuffer.
    Kdad::ErrorStatus getName(wchar_t*& name) const;
    bool isTitleSuppressed() const;
    bool isHeaderSuppressed() const;

    int numCellStyles() const;
    /// 1, 2, 3 are "_TITLE", "_HEADER", "_DATA"; users' styles follow from 101 upward, and no index is
    /// given twice. An empty text for an index without a style.
    KdString cellStyleName(int index) const;
    /// Appends the names in the order of their indices; returns their number.
    int getCellStyles(KdArray<KdString>& names) const;
    /// eDuplicateKey, eInvalidKey (empty name), eKeyNotFound (nothing of the name to copy from).
    Kdad::ErrorStatus createCellStyle(const wchar_t* name, const wchar_t* copiedFrom);
    /// eKeyNotFound; eNotApplicable for one of the three.
    Kdad::ErrorStatus deleteCellStyle(const wchar_t* name);
    /// Carries along the cells of every table of this style.
    Kdad::ErrorStatus renameCellStyle(const wchar_t* oldName, const wchar_t* newName);

    int cellClass(const wchar_t* name) const;
    void setCellClass(int cellClass, const wchar_t* name);
    double textHeight(const wchar_t* name) const;
    void setTextHeight(double height, const wchar_t* name);
    KdDbObjectId textStyle(const wchar_t* name) const;
    void setTextStyle(const KdDbObjectId& style, const wchar_t* name);
    KdDb::CellAlignment alignment(const wchar_t* name) const;
    void setAlignment(KdDb::CellAlignment alignment, const wchar_t* name);
    double rotation(const wchar_t* name) const;  ///< radians
    void setRotation(double angle, const wchar_t* name);
    KdCmColor color(const wchar_t* name) const;  ///< of the text
    void setColor(const KdCmColor& color, const wchar_t* name);
    KdCmColor backgroundColor(const wchar_t* name) const;
    void setBackgroundColor(const KdCmColor& color, const wchar_t* name);
    double margin(KdDb::CellMargin margin, const wchar_t* name) const;
    void setMargin(KdDb::CellMargin margin, double value, const wchar_t* name);
    KdString format(const wchar_t* name) const;
    void setFormat(const wchar_t* format, const wchar_t* name);
    void getDataType(KdValue::DataType& dataType, KdValue::UnitType& unitType, const wchar_t* name) const;
    void setDataType(KdValue::DataType dataType, KdValue::UnitType unitType, const wchar_t* name);
    bool isMergeAllEnabled(const wchar_t* name) const;
    void enableMergeAll(bool enable, const wchar_t* name);
    KdDb::Visibility gridVisibility(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridVisibility(KdDb::Visibility visibility, KdDb::GridLineType edge, const wchar_t* name);
    KdDb::GridLineStyle gridLineStyle(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridLineStyle(KdDb::GridLineStyle style, KdDb::GridLineType edge, const wchar_t* name);
    KdCmColor gridColor(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridColor(KdCmColor color, KdDb::GridLineType edge, const wchar_t* name);
    KdDb::LineWeight gridLineWeight(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridLineWeight(KdDb::LineWeight weight, KdDb::GridLineType edge, const wchar_t* name);
    KdDbObjectId gridLinetype(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridLinetype(const KdDbObjectId& linetype, KdDb::GridLineType edge, const wchar_t* name);
    double gridDoubleLineSpacing(KdDb::GridLineType edge, const wchar_t* name) const;
    void setGridDoubleLineSpacing(double spacing, KdDb::GridLineType edge, const wchar_t* name);
};

/// The local form of a reserved name, or with `toLocal` false its stored form; another name stays.
KdString kddbXlateReservedString(const wchar_t* name, bool toLocal);
/// Without regard to case.
bool kddbIsReservedString(const wchar_t* name, KdDb::reservedStringEnumType kind);
KdString kddbGetReservedString(KdDb::reservedStringEnumType kind, bool local);
