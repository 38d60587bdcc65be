// A drawing: its objects, its tables of names, its variables.
#pragma once

#include <memory>

#include "kd/db/object.h"
#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"
#include "kd/rx/array.h"

class KdDbBlockTable;
class KdDbDictionary;
class KdDbLayerTable;
class KdDbLinetypeTable;
class KdDbTextStyleTable;

using KdDbObjectIdArray = KdArray<KdDbObjectId>;

class KdDbDatabase {
public:
    /// `buildDefaults` makes what every drawing holds (the symbol tables with their required records, the
    /// model and paper space, the dictionaries, table style "Standard"); without it the database stays
    /// empty for a file to be read into. `noDocument` is true for a drawing that belongs to no document.
    explicit KdDbDatabase(bool buildDefaults = true, bool noDocument = false);
    virtual ~KdDbDatabase();
    KdDbDatabase(const KdDbDatabase&) = delete;
    KdDbDatabase& operator=(const KdDbDatabase&) = delete;

    /// Each opens the table or dictionary; a failure leaves the pointer null.
    Kdad::ErrorStatus getBlockTable(KdDbBlockTable*& table, KdDb::OpenMode mode = KdDb::kForRead);
    Kdad::ErrorStatus getLayerTable(KdDbLayerTable*& table, KdDb::OpenMode mode = KdDb::kForRead);
    Kdad::ErrorStatus getLinetypeTable(KdDbLinetypeTable*& table, KdDb::OpenMode mode = KdDb::kForRead);
    Kdad::ErrorStatus getTextStyleTable(KdDbTextStyleTable*& table, KdDb::OpenMode mode = KdDb::kForRead);
    Kdad::ErrorStatus getNamedObjectsDictionary(KdDbDictionary*& dictionary, KdDb::OpenMode mode = KdDb::kForRead);
    Kdad::ErrorStatus getTableStyleDictionary(KdDbDictionary*& dictionary, KdDb::OpenMode mode = KdDb::kForRead);

    KdDbObjectId blockTableId() const;
    KdDbObjectId layerTableId() const;
    KdDbObjectId linetypeTableId() const;
    KdDbObjectId textStyleTableId() const;
    KdDbObjectId namedObjectsDictionaryId() const;
    KdDbObjectId tableStyleDictionaryId() const;

    /// The current layer, line type, text style and table style of new objects. A setter passes over what
    /// this database doesn't have.
    KdDbObjectId clayer() const;
    void setClayer(KdDbObjectId layer);
    KdDbObjectId celtype() const;
    KdDbObjectId textstyle() const;
    void setTextstyle(KdDbObjectId style);
    KdDbObjectId tablestyle() const;
    void setTablestyle(KdDbObjectId style);
    KdDbObjectId byLayerLinetype() const;
    KdDbObjectId byBlockLinetype() const;
    KdDbObjectId continuousLinetype() const;
    KdDbObjectId layerZero() const;

    /// True while the model space is the current space.
    bool tilemode() const;
    /// Makes the model space (true) or the paper space the current one.
    void setTilemode(bool modelSpace);
    /// The user coordinate system of the model space: its origin and the directions of its axes, in world
    /// coordinates, of length 1 and at right angles.
    KdGePoint3d ucsorg() const;
    KdGeVector3d ucsxdir() const;
    KdGeVector3d ucsydir() const;
    /// eInvalidInput, with nothing changed, for directions without length or along one line. The x axis is kept;
    /// the y axis is turned to a right angle with it.
    Kdad::ErrorStatus setUcs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y);
    /// The same of the paper space.
    KdGePoint3d pucsorg() const;
    KdGeVector3d pucsxdir() const;
    KdGeVector3d pucsydir() const;
    Kdad::ErrorStatus setPucs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y);
    /// The block table record that new entities go to.
    KdDbObjectId currentSpaceId() const;
    KdDbObjectId modelSpaceId() const;
    KdDbObjectId paperSpaceId() const;

    /// The units that lengths and angles are shown in; meanings and ranges are those of KdDbHeaderVar. A setter
    /// refuses a value outside its range with eInvalidInput.
    int lunits() const;
    Kdad::ErrorStatus setLunits(int unit);
    int luprec() const;
    Kdad::ErrorStatus setLuprec(int precision);
    int aunits() const;
    Kdad::ErrorStatus setAunits(int unit);
    int auprec() const;
    Kdad::ErrorStatus setAuprec(int precision);
    double angbase() const;
    Kdad::ErrorStatus setAngbase(double radians);
    bool angdir() const;
    Kdad::ErrorStatus setAngdir(bool clockwise);
    int unitmode() const;
    Kdad::ErrorStatus setUnitmode(int mode);
    virtual int dimzin() const;
    Kdad::ErrorStatus setDimzin(int suppression);
    int insunits() const;
    Kdad::ErrorStatus setInsunits(int unit);
    int measurement() const;
    Kdad::ErrorStatus setMeasurement(int measurement);

    /// True when the drawing's lengths are metric: measurement 1.
    bool measurementIsMetric() const;

    /// Writes the drawing into a file, whole or not at all: the old file stays until the new one is complete. With
    /// `keepBackup` the old one stays beside it, its name followed by ".bak". `version` must be 33, and `security`
    /// null: eNotApplicable. eInvalidInput for an empty name, eFileAccessError when the file can't be written.
    Kdad::ErrorStatus saveAs(const wchar_t* fileName, bool keepBackup = false, int version = 33,
                             const void* security = nullptr);
    /// Reads a file, whatever its name ends in, into a database that holds nothing yet (one made without defaults).
    /// Nobody else is kept from the file, whatever `shareMode`; nothing is converted; no file has a password. On
    /// failure the database holds nothing, as before: eInvalidContext when it held something, eInvalidInput for an
    /// empty name, eFileNotFound, eFileAccessError, eFileCorrupt for a file that is no drawing, damaged or cut off,
    /// eFileVersion for one of an older kind.
    Kdad::ErrorStatus readDwgFile(const wchar_t* fileName, int shareMode = 64, bool allowConversion = false,
                                  const wchar_t* password = nullptr);

    /// The point of the drawing that comes to lie on the insertion point where it is inserted as a block.
    KdGePoint3d insbase() const;
    void setInsbase(const KdGePoint3d& point);

    /// Clones objects of this database into another one with all that they own, as KdDbObject::deepClone does, but as
    /// one set: what one of them points at in another leads to that one's clone. `owner` stands in the mapping's
    /// destination, is not open and is opened for the while; the clones are closed. `cloning` must be 1: what both
    /// drawings have under one name stays as it is in the destination. `deferTranslation` must be false. Nothing is
    /// changed on failure: eNotApplicable for other values of the two, eInvalidContext for an object of another
    /// database or an owner that isn't the destination's, the statuses of an open and those of deepClone.
    Kdad::ErrorStatus wblockCloneObjects(const KdDbObjectIdArray& ids, KdDbObjectId owner, KdDbIdMapping& mapping,
                                         int cloning, bool deferTranslation = false);
    /// Makes a block of that name out of the model space of another drawing, whose insbase() becomes the block's
    /// origin. The source stays as it is, whatever `preserveSource` allows. On failure `block` is null and nothing is
    /// changed: eNullObjectPointer, eInvalidContext for the database itself, eInvalidKey for an empty name,
    /// eDuplicateKey for one that is taken, the statuses of an open.
    Kdad::ErrorStatus insert(KdDbObjectId& block, const wchar_t* name, KdDbDatabase* source,
                             bool preserveSource = true);

    /// Puts an object without a place of its own into the database. The database owns it from now on, and
    /// it stays open for write. eAlreadyInDatabase when it has a place.
    Kdad::ErrorStatus addKdDbObject(KdDbObject* object, KdDbObjectId& id, KdDbObjectId owner = KdDbObjectId::kNull);

private:
    friend struct KdDbDatabaseAccess;  ///< the host's way in
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

/// What the host as an application offers to the database and to modules.
class KdCommandLineState;

class KdDbHostApplicationServices {
public:
    virtual ~KdDbHostApplicationServices();
    /// The database that commands work on; null when no document is open.
    virtual KdDbDatabase* workingDatabase() const = 0;
    virtual void setWorkingDatabase(KdDbDatabase* database) = 0;
    /// Null when the host has no command line.
    virtual const KdCommandLineState* commandLineState() const = 0;
    /// The folder for temporary files, without an ending separator. False, with `folder` as it was, when the host
    /// has none or its path doesn't fit in `length` characters, the ending zero included.
    virtual bool getTempFolder(wchar_t* folder, int length) const;
};

/// Whether the command line is on, so that a command may ask there instead of in a dialog.
class KdCommandLineState {
public:
    virtual ~KdCommandLineState();
    virtual bool isOn() const = 0;
};

/// Null before the host has started.
KdDbHostApplicationServices* kddbHostApplicationServices();
/// For the host's start and for tests; the services stay the caller's.
void kddbSetHostApplicationServices(KdDbHostApplicationServices* services);
