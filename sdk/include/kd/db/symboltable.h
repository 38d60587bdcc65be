// Symbol tables: the named blocks, layers, line types and text styles of a drawing.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kd/db/color.h"
#include "kd/db/object.h"
#include "kd/ge/point3d.h"

class KdDbEntity;

/// A named record of a symbol table.
class KdDbSymbolTableRecord : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbSymbolTableRecord)

    /// The caller frees the text with kdutDelBuffer.
    Kdad::ErrorStatus getName(wchar_t*& name) const;
    Kdad::ErrorStatus getName(std::wstring& name) const;
    /// eDuplicateKey when another record of its table has the name, eInvalidKey when it is empty.
    Kdad::ErrorStatus setName(const wchar_t* name);

protected:
    explicit KdDbSymbolTableRecord(std::unique_ptr<KdDbObjectState> state);
};

/// Walks the records of a table, erased ones left out, in the order of their making.
class KdDbSymbolTableIterator {
public:
    virtual ~KdDbSymbolTableIterator();
    virtual void start() = 0;
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual Kdad::ErrorStatus getRecordId(KdDbObjectId& id) const = 0;
    virtual Kdad::ErrorStatus getRecord(KdDbSymbolTableRecord*& record, KdDb::OpenMode mode) const = 0;
};

/// Names are compared without regard to case.
class KdDbSymbolTable : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbSymbolTable)

    /// eKeyNotFound, with `id` null, when there is no such record.
    Kdad::ErrorStatus getAt(const wchar_t* name, KdDbObjectId& id, bool getErased = false) const;
    /// The same, and opens the record.
    Kdad::ErrorStatus getAt(const wchar_t* name, KdDbSymbolTableRecord*& record, KdDb::OpenMode mode) const;
    bool has(const wchar_t* name) const;
    /// Adds a record; the database owns it from now on, and it stays open for write. eDuplicateKey when
    /// the name is taken, eInvalidKey when it is empty, eNotThatKindOfClass for another table's record.
    /// A block named by an asterisk and a letter alone gets a free number behind them: "*T" becomes "*T1".
    Kdad::ErrorStatus add(KdDbObjectId& id, KdDbSymbolTableRecord* record);
    /// `iterator` is the caller's to delete. The table must stay open.
    Kdad::ErrorStatus newIterator(KdDbSymbolTableIterator*& iterator) const;

protected:
    explicit KdDbSymbolTable(std::unique_ptr<KdDbObjectState> state);
};

class KdDbBlockTable : public KdDbSymbolTable {
public:
    KDRX_DECLARE_MEMBERS(KdDbBlockTable)
    KdDbBlockTable();
};

class KdDbLayerTable : public KdDbSymbolTable {
public:
    KDRX_DECLARE_MEMBERS(KdDbLayerTable)
    KdDbLayerTable();
};

class KdDbLinetypeTable : public KdDbSymbolTable {
public:
    KDRX_DECLARE_MEMBERS(KdDbLinetypeTable)
    KdDbLinetypeTable();
};

class KdDbTextStyleTable : public KdDbSymbolTable {
public:
    KDRX_DECLARE_MEMBERS(KdDbTextStyleTable)
    KdDbTextStyleTable();
};

/// Walks the entities of a block, erased ones left out, in drawing order.
class KdDbBlockTableRecordIterator {
public:
    virtual ~KdDbBlockTableRecordIterator();
    virtual void start() = 0;
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual Kdad::ErrorStatus getEntityId(KdDbObjectId& id) const = 0;
    virtual Kdad::ErrorStatus getEntity(KdDbEntity*& entity, KdDb::OpenMode mode) const = 0;
};

/// Names of the two spaces that every drawing has.
inline constexpr const wchar_t* KDDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const wchar_t* KDDB_PAPER_SPACE = L"*Paper_Space";

class KdDbBlockTableRecord : public KdDbSymbolTableRecord {
public:
    KDRX_DECLARE_MEMBERS(KdDbBlockTableRecord)
    KdDbBlockTableRecord();

    KdGePoint3d origin() const;
    void setOrigin(const KdGePoint3d& origin);
    bool isAnonymous() const;  ///< its name begins with an asterisk
    bool isLayout() const;     ///< it is the model space or a paper space

    /// The database owns the entity from now on, and it stays open for write until closed.
    /// eNotOpenForWrite, eAlreadyInDatabase; eNotInDatabase while the record itself is in none.
    Kdad::ErrorStatus appendKdDbEntity(KdDbObjectId& id, KdDbEntity* entity);
    Kdad::ErrorStatus appendKdDbEntity(KdDbEntity* entity);
    /// `iterator` is the caller's to delete. The record must stay open.
    Kdad::ErrorStatus newIterator(KdDbBlockTableRecordIterator*& iterator) const;
};

class KdDbLayerTableRecord : public KdDbSymbolTableRecord {
public:
    KDRX_DECLARE_MEMBERS(KdDbLayerTableRecord)
    KdDbLayerTableRecord();

    KdCmColor color() const;
    void setColor(const KdCmColor& color);
    KdDbObjectId linetypeObjectId() const;
    void setLinetypeObjectId(KdDbObjectId linetype);
    KdDb::LineWeight lineWeight() const;
    Kdad::ErrorStatus setLineWeight(KdDb::LineWeight weight);
    /// Entities on a locked layer can be read, not changed.
    bool isLocked() const;
    void setIsLocked(bool locked);
    /// What lies on a layer that isn't plotted shows on the screen alone.
    bool isPlottable() const;
    void setIsPlottable(bool plottable);
};

class KdDbLinetypeTableRecord : public KdDbSymbolTableRecord {
public:
    KDRX_DECLARE_MEMBERS(KdDbLinetypeTableRecord)
    KdDbLinetypeTableRecord();

    std::wstring comments() const;
    void setComments(const wchar_t* text);
    /// Lengths in drawing units: positive a dash, negative a gap, zero a dot. Empty: a continuous line.
    std::vector<double> dashes() const;
    void setDashes(std::vector<double> dashes);
    double patternLength() const;
};

class KdDbTextStyleTableRecord : public KdDbSymbolTableRecord {
public:
    KDRX_DECLARE_MEMBERS(KdDbTextStyleTableRecord)
    KdDbTextStyleTableRecord();

    /// Family name of the font.
    std::wstring font() const;
    void setFont(const wchar_t* family);
    bool isBold() const;
    bool isItalic() const;
    void setFontStyle(bool bold, bool italic);
    /// Fixed height; 0 when each text has its own.
    double textSize() const;
    void setTextSize(double height);
    double xScale() const;
    Kdad::ErrorStatus setXScale(double factor);  ///< eInvalidInput unless positive
    double obliquingAngle() const;               ///< radians
    void setObliquingAngle(double angle);
};
