// Making and placing of a table: the drag, and what becomes of the table before and after it.

#include "module/create/tablejig.h"

#include <utility>

#include "kd/ad/document.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/coordinates.h"
#include "kd/ed/hostresources.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "kd/ed/variables.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"

namespace {

/// The input controls of every acquisition; the bits are the host's.
constexpr unsigned kInputControls = 224;
constexpr unsigned kAddedInputControls = 16384;

/// Two points nearer to each other than this are one.
constexpr double kSamePoint = 1e-10;

enum Prompt : unsigned {
    kPointOrKeyword = 2007,
    kPoint = 2008,
    kKeywords = 2012,
    kFirstCorner = 2020,
    kOtherCorner = 2021,
};

struct Axes {
    KdGeVector3d x;
    KdGeVector3d y;
};

/// Whether the sheet of a layout is worked on, not the model through one of its viewports. A variable that can't be
/// read counts as no.
bool isInPaperSpace(const KdDbDatabase& database) {
    if (database.tilemode()) return false;
    resbuf viewport;
    return kdedGetVar(L"CVPORT", &viewport) == RTNORM && viewport.resval.rint == 1;
}

Axes currentAxes(const KdDbDatabase& database) {
    if (isInPaperSpace(database)) return {database.pucsxdir(), database.pucsydir()};
    return {database.ucsxdir(), database.ucsydir()};
}

/// Makes the entity alone what is selected before the next command.
void selectAlone(const kded_name entity) {
    kded_name set;
    kdedSSAdd(nullptr, nullptr, set);
    kdedSSAdd(entity, set, set);
    kdedSSSetFirst(set, nullptr);
    kdedSSFree(set);
}

/// Makes a jig's table, and deletes it however the placing ends, unless it has got an id: then the drawing owns it. A
/// cancelled drag has deleted it before.
class NewTable {
public:
    explicit NewTable(KdDbTable*& table) : m_table(table) { m_table = new KdDbTable; }
    ~NewTable() {
        if (m_table != nullptr && m_table->objectId().isNull()) delete std::exchange(m_table, nullptr);
    }
    NewTable(const NewTable&) = delete;
    NewTable& operator=(const NewTable&) = delete;

private:
    KdDbTable*& m_table;
};

}  // namespace

CVqTableJig::CVqTableJig() : CVqTableJig(kddbHostApplicationServices()->workingDatabase()) {}
CVqTableJig::CVqTableJig(KdDbDatabase* database) : m_database(database) {}

/// The table is not deleted: the placing has done that, or the drawing owns it.
CVqTableJig::~CVqTableJig() = default;

void CVqTableJig::setTableStyleId(const KdDbObjectId& style) {
    m_tableStyle = style;
    if (style.isNull()) m_tableStyle = tableStyleNamed(m_database, L"Standard").value_or(style);
}

int CVqTableJig::doJig(const KdDbTable* source) {
    return crateTable(source);
}

int CVqTableJig::crateTable(const KdDbTable* source) {
    // The caller hands the table itself over, however carefully it is passed on.
    return source == nullptr ? placeNew() : placeSource(const_cast<KdDbTable*>(source));
}

int CVqTableJig::placeNew() {
    const NewTable made(m_table);
    m_table->setDatabaseDefaults(m_database);
    m_table->setTableStyle(m_tableStyle);
    setTableDefaults();
    setNormalAndDir();
    m_table->recomputeTableBlock(true);
    generateLayout();
    if (startDrag() != 0) return 0;
    SetDefaultCelltype();
    const KdDbObjectId id = append();
    if (id.isNull()) return 0;
    setMText(id);
    return 1;
}

/// The user places a preview of the source's shape; the source itself goes to the drawing, and its first cell is not
/// edited.
int CVqTableJig::placeSource(KdDbTable* source) {
    {
        const NewTable preview(m_table);
        fillPreview(*source);
        if (startDrag() != 0) return 0;
    }
    m_table = source;
    setNormalAndDir();
    m_table->setPosition(m_firstPoint);
    return append().isNull() ? 0 : 1;
}

void CVqTableJig::fillPreview(const KdDbTable& source) {
    m_table->setSize(source.numRows(), source.numColumns());
    m_table->setTableStyle(source.tableStyle());
    m_table->setTableOption(1, 7);
    for (int row = 0; row < source.numRows(); ++row) {
        m_table->setRowHeight(row, source.rowHeight(row));
        for (int column = 0; column < source.numColumns(); ++column) {
            m_table->setColumnWidth(column, source.columnWidth(column));
            int top, bottom, left, right;
            const bool merged = source.isMergedCell(row, column, &top, &bottom, &left, &right);
            if (merged && top >= row && left >= column) m_table->mergeCells(top, bottom, left, right);
        }
    }
    m_table->recomputeTableBlock(true);
}

void CVqTableJig::setNormalAndDir() {
    const Axes axes = currentAxes(*m_database);
    m_table->setDirection(axes.x);
    m_table->setNormal(axes.x.crossProduct(axes.y));
}

int CVqTableJig::cancelDrag() {
    delete m_table;
    m_table = nullptr;
    return kCancel;
}

KdEdJig::DragStatus CVqTableJig::askForPoint(unsigned prompt) {
    setDispPrompt(loadText(prompt));
    return drag();
}

int CVqTableJig::startDrag() {
    // An answer that is neither a point nor a cancel, such as Enter, asks again.
    DragStatus status;
    do {
        if (m_pointMode && m_keywordMode) m_keywords = loadText(kKeywords);
        const Prompt inPointMode = m_keywordMode ? kPointOrKeyword : kPoint;
        status = askForPoint(m_pointMode ? inPointMode : kFirstCorner);
        if (isCancel(status)) return cancelDrag();
    } while (status != kNormal);
    if (m_pointMode) return 0;

    do {
        // Asked a second time, the stage is past the second point's: the table stays as it is then.
        ++m_stage;
        status = askForPoint(kOtherCorner);
        if (isCancel(status)) return cancelDrag();
    } while (status != kNormal);
    // A window below the least size is taken all the same: what lifts it is the update of the table.
    if (!isReasonableInput(m_secondPoint)) m_secondPoint = m_previousSecondPoint;
    return 0;
}

KdEdJig::DragStatus CVqTableJig::sampler() {
    setUserInputControls(kInputControls);
    if (KdEdImpJig* jig = implementation()) jig->addAcquireInputControls(kAddedInputControls);
    if (m_stage > 1) return kNormal;
    if (m_keywordMode && !m_keywords.IsEmpty()) setKeywordList(m_keywords);

    KdGePoint3d point;
    const DragStatus status = [&] {
        const ResourceScope resources(kdedGetKdadResourceInstance());
        return acquirePoint(point);
    }();
    if (status != kNormal) return status;
    // In both stages it is the first point that counts, whichever of the two is sought.
    if (m_firstPoint.distanceTo(point) < kSamePoint) return kNoChange;
    if (m_stage == 0) {
        m_firstPoint = point;
    } else {
        m_secondPoint = m_previousSecondPoint = point;
    }
    return status;
}

bool CVqTableJig::update() {
    // The coordinate system may change while the user drags.
    KdGeVector3d x, z;
    kdadGetUCS(x, z);
    m_table->setNormal(z.normalize());
    m_table->setDirection(x.normalize());
    if (m_stage == 0) m_table->setPosition(m_firstPoint);
    if (m_stage == 1) updateTableData();
    m_table->recomputeTableBlock(true);
    return true;
}

KdDbEntity* CVqTableJig::entity() const {
    return m_table;
}

int CVqTableJig::setMText(const KdDbObjectId& id) {
    kded_name name;
    if (kddbGetKfsName(name, id) != Kdad::eOk) return 0;
    OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    if (!table) return 0;
    selectAlone(name);
    int top = 0, bottom = 0, left = 0, right = 0;
    table->isMergedCell(0, 0, &top, &bottom, &left, &right);
    table->setSubSelection(top, bottom, left, right);
    table.close();
    KdApDocManager& documents = *kdDocManagerPtr();
    documents.sendStringToExecute(documents.curDocument(), L"TABLEDIT \n", true, false, false);
    return 1;
}
