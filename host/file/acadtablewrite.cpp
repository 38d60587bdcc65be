// Writing of tables.

#include <cmath>

#include "host/file/acadtable.h"
#include "host/file/cellcodes.h"
#include "host/file/commonattributes.h"
#include "host/file/drawingfile.h"
#include "host/file/entities.h"
#include "host/file/extrasrecord.h"
#include "host/file/tableblocks.h"
#include "host/file/tableextras.h"

#include "host/db/access.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"
#include "host/db/tableplace.h"
#include "kd/db/field.h"

namespace kdhost::file {
namespace {

/// Bits of the table's own overrides.
constexpr std::int64_t kSuppressionBit = 1;
constexpr std::int64_t kFlowBit = 4;

class Writer {
public:
    Writer(SaveContext& context, const KdDbTable& table)
        : m_context(context), m_out(context.out), m_table(table), m_state(tableState(table)) {}

    void write() {
        settleGrowth(m_table);
        const bool hasExtras = needsExtras(m_state) || hasOtherSections(m_table);
        const ExtrasPlace extras = hasExtras ? placeExtras(m_context, m_table) : ExtrasPlace();
        writeIdentity(m_context, kTableName, m_table, extras.dictionary);
        RecordWriter writer(m_context, m_table);
        describeCommon(m_context, writer, static_cast<const KdDbEntityState&>(m_state));
        reference();
        m_out.raw(100, "AcDbTable");
        const std::size_t first = m_out.bytes().size();
        head();
        cells();
        tail();
        if (hasExtras) keepExtras(extras, first);
        writer.end();
        if (saveOptions().insertsTables) insertion();
    }

private:
    /// For programs that know no tables.
    void insertion() {
        const KdGeVector3d along = KdGeMatrix3d::worldToPlane(m_state.normal) * axesOf(m_state).along;
        m_out.raw(0, "INSERT");
        m_out.handle(5, m_context.newHandle());
        m_out.handle(330, m_context.handleOf(m_table.ownerId()));
        m_out.raw(100, "AcDbEntity");
        if (m_table.ownerId() == m_context.contents.roots.paperSpace) m_out.integer(67, 1);
        m_out.raw(8, m_context.nameOf(m_state.layer));
        m_out.raw(100, "AcDbBlockReference");
        m_out.raw(2, m_context.tableBlocks->of(m_table).name);
        m_out.point(10, m_state.position);
        m_out.angle(50, std::atan2(along.y, along.x));
        m_out.point(210, axesOf(m_state).normal);
    }

    void reference() {
        m_out.raw(100, "AcDbBlockReference");
        m_out.raw(2, m_context.tableBlocks->of(m_table).name);
        m_out.point(10, m_state.position);
        if (m_state.scale != 1.0) {
            for (int axis = 0; axis < 3; ++axis) m_out.real(41 + axis, m_state.scale);
        }
        if (m_state.rotation != 0.0) m_out.angle(50, m_state.rotation);
        if (!isExactly(m_state.normal, KdGeVector3d(0.0, 0.0, 1.0))) m_out.point(210, m_state.normal);
    }

    bool isSuppressing() const { return m_state.titleSuppressed || m_state.headerSuppressed; }

    void head() {
        m_out.integer(280, 0);
        m_out.handle(342, m_context.handleOf(m_state.styles.tableStyle()));
        m_out.handle(343, m_context.tableBlocks->of(m_table).record);
        m_out.point(11, m_state.direction);
        m_out.integer(90, 22);
        m_out.integer(91, m_state.rowCount());
        m_out.integer(92, m_state.columnCount());
        m_out.integer(93, (isSuppressing() ? kSuppressionBit : 0) | (m_state.flow ? kFlowBit : 0));
        for (const int code : {94, 95, 96}) m_out.integer(code, 0);
        for (int row = 0; row < m_state.rowCount(); ++row) m_out.real(141, m_state.rows[row].height);
        for (const double width : m_state.columnWidths) m_out.real(142, width);
    }

    void cells() {
        for (int row = 0; row < m_state.rowCount(); ++row) {
            for (int column = 0; column < m_state.columnCount(); ++column) cell(row, column);
        }
    }

    void tail() {
        if (m_state.flow) m_out.integer(70, *m_state.flow);
        if (!isSuppressing()) return;
        m_out.integer(280, m_state.titleSuppressed ? 1 : 0);
        m_out.integer(281, m_state.headerSuppressed ? 1 : 0);
    }

    void cell(int row, int column) {
        const CellLook& look = m_state.look(row, column);
        const CellContent& content = m_state.content(row, column);
        const MergeLink& merge = m_state.mergeLink(row, column);
        const bool isBlock = content.type() == KdDb::kBlockCell;
        const bool isOwner = look.isMerged && !look.isCovered;
        m_out.integer(171, isBlock ? 2 : 1);
        m_out.integer(172, 0);
        m_out.integer(173, look.isCovered ? 1 : 0);
        m_out.integer(174, content.objects && content.objects->autoFit ? 1 : 0);
        m_out.integer(175, isOwner ? merge.columns : 1);
        m_out.integer(176, isOwner ? merge.rows : 1);
        const std::int64_t mask = maskOf(look);
        m_out.integer(91, mask);
        m_out.integer(178, 0);
        m_out.angle(145, content.objects ? content.objects->blockRotation : 0.0);
        const std::uint64_t field = m_context.handleOf(content.field());
        if (isBlock) {
            m_out.handle(340, m_context.handleOf(content.block()));
            m_out.real(144, content.objects ? content.objects->blockScale : 1.0);
            attributes(content);
        }
        if (field != 0) m_out.handle(344, field);
        if (mask != 0) overrides(look, mask);
        m_out.integer(92, 0);
        value(isBlock ? L"" : shownText(m_table, content), look);
    }

    void attributes(const CellContent& cell) {
        std::vector<BlockAttribute> written;
        if (cell.objects) written = cell.objects->attributes;
        std::erase_if(written, [&](const BlockAttribute& each) { return m_context.handleOf(each.definition) == 0; });
        m_out.integer(179, static_cast<std::int64_t>(written.size()));
        for (const BlockAttribute& each : written) {
            m_out.handle(331, m_context.handleOf(each.definition));
            m_out.text(300, each.text);
        }
    }

    template <class T>
    static bool isWritten(const CellLook& cell, const FormatProperty<T>& which) {
        return cell.ownValue(which) != nullptr;
    }

    static std::int64_t maskOf(const CellLook& cell) {
        namespace prop = kdhost::property;
        if ((cell.own() & standardProperties()) == 0) return 0;
        std::int64_t mask = 0;
        const auto add = [&](const auto& which, std::int64_t bits) { mask |= isWritten(cell, which) ? bits : 0; };
        add(prop::alignment, kAlignmentBit);
        if (const KdCmColor* fill = cell.ownValue(prop::background)) {
            mask |= fill->isNone() ? kFillBit : kFillBit | kFillColorBit;
        }
        add(prop::color, kColorBit);
        const KdDbObjectId* style = cell.ownValue(prop::textStyle);
        if (style != nullptr && peekObject(*style) != nullptr) mask |= kTextStyleBit;
        add(prop::textHeight, kTextHeightBit);
        for (const EdgeCode& each : kEdgeColors) add(prop::lineColor.at(each.edge), each.bit);
        for (const EdgeCode& each : kEdgeWeights) add(prop::weight.at(each.edge), each.bit);
        for (const EdgeCode& each : kEdgeVisibilities) add(prop::visibility.at(each.edge), each.bit);
        return mask;
    }

    void overrides(const CellLook& cell, std::int64_t mask) {
        const CellFormat& format = cell.overrides->format;
        const auto has = [&](std::int64_t bit) { return (mask & bit) != 0; };
        if (has(kAlignmentBit)) m_out.integer(170, format.alignment);
        if (has(kFillBit)) m_out.integer(283, format.background.isNone() ? 0 : 1);
        if (has(kFillColorBit)) m_out.integer(63, format.background.colorIndex());
        if (has(kColorBit)) m_out.integer(64, format.color.colorIndex());
        if (has(kTextStyleBit)) m_out.raw(7, m_context.nameOf(format.textStyle));
        if (has(kTextHeightBit)) m_out.real(140, format.textHeight);
        const auto look = [&](const EdgeCode& each) -> const GridLook& {
            return format.grid[static_cast<std::size_t>(each.edge)];
        };
        for (const EdgeCode& each : kEdgeColors) {
            if (has(each.bit)) m_out.integer(each.code, look(each).color.colorIndex());
        }
        for (const EdgeCode& each : kEdgeWeights) {
            if (has(each.bit)) m_out.integer(each.code, look(each).weight);
        }
        for (const EdgeCode& each : kEdgeVisibilities) {
            if (has(each.bit)) m_out.integer(each.code, look(each).visibility == KdDb::kVisible ? 1 : 0);
        }
    }

    void value(const wchar_t* shown, const CellLook& cell) {
        constexpr int kNothing = 0;
        namespace prop = kdhost::property;
        const std::wstring_view text = shown == nullptr ? L"" : shown;
        m_out.raw(301, "CELL_VALUE");
        m_out.integer(93, 0);
        m_out.integer(90, text.empty() ? kNothing : KdValue::kString);
        if (!text.empty()) m_out.longText(2, 1, text);
        const KdValue::UnitType* unit = cell.ownValue(prop::unitType);
        const std::wstring* format = cell.ownValue(prop::format);
        m_out.integer(94, unit == nullptr ? 0 : *unit);
        m_out.text(300, format == nullptr ? std::wstring_view() : std::wstring_view(*format).substr(0, kLongestPiece));
        m_out.text(302, text.substr(0, kLongestPiece));
        m_out.raw(304, "ACVALUE_END");
    }

    void keepExtras(const ExtrasPlace& place, std::size_t first) {
        std::vector<Tag> tags;
        appendTags(std::string_view(m_out.bytes()).substr(first), tags);
        const TablePrints prints = fingerprintsOf({tags.data(), tags.data() + tags.size()});
        writeExtras(m_context, place, m_table, [&] { writeTableExtras(m_context, m_state, prints); });
    }

    SaveContext& m_context;
    TagWriter& m_out;
    const KdDbTable& m_table;
    const TableState& m_state;
};

}  // namespace

void writeTable(SaveContext& context, const KdDbTable& table) {
    Writer(context, table).write();
}

}  // namespace kdhost::file
