// Reading of tables.
//
// Codes mean different things by their place: in the table's head, in a cell, in a cell's value, behind the cells. So
// the tags are walked once, in these four states.

#include <cmath>

#include "host/db/access.h"
#include "host/db/fieldstate.h"
#include "host/db/tableaccess.h"
#include "host/file/acadtable.h"
#include "host/file/cellcodes.h"
#include "host/file/cellread.h"
#include "host/file/checked.h"
#include "host/file/commonattributes.h"
#include "host/file/extrasrecord.h"
#include "host/file/tableextras.h"
#include "host/file/wholetable.h"
#include "kd/db/field.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"

namespace kdhost::file {
namespace {

constexpr int kCellBegin = 171;
constexpr int kValueBegin = 301;

class Reader {
public:
    Reader(LoadContext& context, KdDbTable& table, const FileObject& object)
        : m_context(context),
          m_table(table),
          m_object(object),
          m_state(static_cast<TableState&>(KdDbObjectAccess::stateForMaker(table))),
          m_reader(context, table, object),
          m_whole(context) {}

    void read() {
        describeCommon(m_context, m_reader, static_cast<KdDbEntityState&>(m_state));
        reference();
        m_reader.subclass("AcDbTable");
        m_tags = m_reader.tags();
        m_at = m_tags.first;
        head();
        rows();
        merges();
        tail();
        extras();
        give();
        for (const Tag& tag : m_tags) m_reader.consume(&tag);
        m_reader.end();
    }

private:
    // ---- what is before the cells

    void reference() {
        std::wstring name;
        double scales[3];
        m_reader.subclass("AcDbBlockReference");
        m_reader.value(2, name, std::wstring());
        m_reader.value(10, m_state.position);
        for (int axis = 0; axis < 3; ++axis) m_reader.value(41 + axis, scales[axis], 1.0);
        m_state.scale = scales[0];
        m_reader.angle(50, m_state.rotation, 0.0);
        m_reader.value(210, m_state.normal, KdGeVector3d(0.0, 0.0, 1.0));
        m_reader.forget();
    }

    void head() {
        std::int64_t rows = 0;
        std::int64_t columns = 0;
        for (; m_at != m_tags.last && m_at->code != kCellBegin; ++m_at) {
            switch (m_at->code) {
                case 342:
                    style(asked(handleOf(*m_at)));
                    break;
                case 11:
                    m_state.direction.x = asked(realOf(*m_at));
                    break;
                case 21:
                    m_state.direction.y = asked(realOf(*m_at));
                    break;
                case 31:
                    m_state.direction.z = asked(realOf(*m_at));
                    break;
                case 91:
                    rows = asked(integerOf(*m_at));
                    break;
                case 92:
                    columns = asked(integerOf(*m_at));
                    break;
                case 141:
                    m_heights.push_back(size(*m_at));
                    break;
                case 142:
                    m_widths.push_back(size(*m_at));
                    break;
                default:
                    m_whole.takeHead(*m_at);
            }
        }
        // Each row and each column has had its tag: nothing is made that the file doesn't pay for.
        require(rows >= 1 && columns >= 1, "a table is empty");
        require(m_heights.size() == static_cast<std::size_t>(rows), "a table's rows are not those that it counts");
        require(m_widths.size() == static_cast<std::size_t>(columns), "a table's columns are not those that it counts");
        require(m_widths.size() <= m_tags.size() / m_heights.size(), "a table has fewer cells than it counts");
    }

    void style(std::uint64_t handle) {
        const auto* found = m_context.findAs<KdDbTableStyle>(handle);
        require(found != nullptr, "a table's style is missing");
        m_style = found->objectId();
    }

    // ---- the cells

    void rows() {
        m_loaded.styles = {kTitleStyle, kHeaderStyle, kDataStyle};
        m_loaded.rows.resize(m_heights.size());
        m_spans.reserve(m_heights.size() * m_widths.size());
        for (std::size_t row = 0; row < m_heights.size(); ++row) {
            TableRow& made = m_loaded.rows[row];
            made.height = m_heights[row];
            made.looks = {m_widths.size(), {}};
            made.contents = {m_widths.size(), {}};
            for (std::size_t column = 0; column < m_widths.size(); ++column) {
                require(m_at != m_tags.last && m_at->code == kCellBegin, "a table has fewer cells than it counts");
                cell(made.writeLook(column), made.writeContent(column));
            }
        }
    }

    struct Span {
        int rows;
        int columns;
        bool covered;
    };

    /// What is read of a cell before its value.
    struct ReadCell {
        Span span{1, 1, false};
        CellObjects objects;
        std::wstring text;
        TagIterator formats = nullptr;  ///< where its overrides begin
    };

    void cell(CellLook& look, CellContent& content) {
        ReadCell read;
        const TagIterator first = m_at;
        while (m_at != m_tags.last && (m_at == first || m_at->code != kCellBegin) && m_at->code != kValueBegin) {
            take(read, m_at++);
        }
        if (read.formats != nullptr) look.overrides = overrides(read.formats);
        if (m_at != m_tags.last && m_at->code == kValueBegin) value(look, read.text);
        if (read.objects.field.isNull()) content.text = read.text;
        std::erase_if(read.objects.attributes, [](const BlockAttribute& each) { return each.definition.isNull(); });
        content.setObjects(read.objects);
        m_spans.push_back(read.span);
    }

    void take(ReadCell& read, TagIterator tag) {
        switch (tag->code) {
            case kCellBegin:
                read.objects.type = static_cast<std::uint8_t>(whole(*tag, KdDb::kTextCell, KdDb::kMultipleContentCell));
                break;
            case 173:
                read.span.covered = whole(*tag, 0, 1) != 0;
                break;
            case 174:
                read.objects.autoFit = whole(*tag, 0, 1) != 0;
                break;
            case 175:
                read.span.columns = whole(*tag, 0, INT32_MAX);
                break;
            case 176:
                read.span.rows = whole(*tag, 0, INT32_MAX);
                break;
            case 91:
                if (asked(integerOf(*tag)) != 0) read.formats = tag;
                break;
            case 145:
                read.objects.blockRotation = asked(angleOf(*tag));
                break;
            case 340:
                read.objects.block = block(asked(handleOf(*tag)));
                break;
            case 344:
                read.objects.field = field(asked(handleOf(*tag)));
                break;
            case 144:
                read.objects.blockScale = asked(realOf(*tag));
                break;
            case 331:
                read.objects.attributes.push_back({m_context.idOf(asked(handleOf(*tag))), {}});
                break;
            case 300:
                if (!read.objects.attributes.empty()) read.objects.attributes.back().text = textOf(tag->value());
                break;
            case 1:
            case 2:
            case 3:
                read.text += textOf(tag->value());
                break;
            default:
                break;
        }
    }

    KdDbObjectId block(std::uint64_t handle) {
        if (handle == 0) return {};
        const auto* found = m_context.findAs<KdDbBlockTableRecord>(handle);
        require(found != nullptr, "a cell's block is missing");
        return found->objectId();
    }

    KdDbObjectId field(std::uint64_t handle) {
        if (handle == 0) return {};
        const auto* found = m_context.findAs<KdDbField>(handle);
        require(found != nullptr, "a cell's field is missing");
        m_hasFields = true;
        return found->objectId();
    }

    /// Cells mostly have their overrides from one setting: those that are alike share one record.
    CopyOnWrite<FormatOverrides> overrides(TagIterator first) {
        const std::int64_t mask = asked(integerOf(*first));
        ReadOverrides read;
        for (TagIterator at = first + 1; at != m_tags.last && at->code != kValueBegin && at->code != kCellBegin; ++at) {
            read.take(m_context, *at, mask);
        }
        read.finish();
        const bool isLast = m_lastOverrides && m_lastOverrides->own == read.overrides.own &&
                            difference(m_lastOverrides->format, read.overrides.format) == 0;
        if (!isLast) m_lastOverrides = CopyOnWrite<FormatOverrides>(read.overrides);
        return read.overrides.own == 0 ? CopyOnWrite<FormatOverrides>() : m_lastOverrides;
    }

    /// From the begin of a cell's value to its end.
    void value(CellLook& look, std::wstring& text) {
        ReadValue value;
        for (++m_at;; ++m_at) {
            require(m_at != m_tags.last && m_at->code != kCellBegin, "a cell's value has no end");
            if (m_at->code == 304) break;
            value.take(*m_at);
        }
        ++m_at;
        value.giveType(look);
        if (value.type == KdValue::kString || text.empty()) text = value.asText();
    }

    // ---- what is behind the cells

    void tail() {
        for (; m_at != m_tags.last; ++m_at) {
            require(m_at->code != kCellBegin, "a table has more cells than it counts");
            m_whole.takeTail(*m_at);
            if (m_at->code == 70 && m_whole.tellsFlow()) m_state.flow = whole(*m_at, 0, 1);
            if (!m_whole.tellsSuppression()) continue;
            if (m_at->code == 280) m_state.titleSuppressed = whole(*m_at, 0, 1) != 0;
            if (m_at->code == 281) m_state.headerSuppressed = whole(*m_at, 0, 1) != 0;
        }
    }

    /// Merges are told by their owners; what stands in covered cells of them counts nothing.
    void merges() {
        const int columns = static_cast<int>(m_widths.size());
        const int rowCount = static_cast<int>(m_heights.size());
        for (int row = 0; row < rowCount; ++row) {
            for (int column = 0; column < columns; ++column) {
                const Span span =
                    m_spans[static_cast<std::size_t>(row) * m_widths.size() + static_cast<std::size_t>(column)];
                if (lookAt(row, column).isCovered) continue;
                require(!span.covered, "a covered cell is in no merge");
                if (span.rows <= 1 && span.columns <= 1) continue;
                const int high = std::max(1, span.rows);
                const int wide = std::max(1, span.columns);
                require(high <= rowCount - row && wide <= columns - column, "a merge reaches out of its table");
                for (int down = 0; down < high; ++down) {
                    for (int right = 0; right < wide; ++right) {
                        require(!lookAt(row + down, column + right).isMerged, "two merges lie across each other");
                        rowAt(row + down).setLink(column + right, {down, right, high, wide});
                    }
                }
            }
        }
    }

    TableRow& rowAt(int row) { return m_loaded.rows[static_cast<std::size_t>(row)]; }
    const CellLook& lookAt(int row, int column) { return rowAt(row).looks[static_cast<std::size_t>(column)]; }

    void extras() {
        for (std::size_t row = 0; row < m_loaded.rows.size(); ++row) {
            const std::uint16_t style =
                usualRowStyle(static_cast<int>(row), m_state.titleSuppressed, m_state.headerSuppressed);
            m_loaded.rows[row].style = style;
            for (CellLook& look : m_loaded.rows[row].looks.write()) look.style = style;
        }
        m_whole.giveTo(m_loaded.rows);
        const TagSpan record = extrasOf(m_context, m_object);
        keepOtherSections(m_context, m_table, record, {"ROWS", "STYLES", "FORMATS", "CELLS", "WRITTEN"});
        if (!record.empty()) readTableExtras(m_context, record, fingerprintsOf(m_tags), m_loaded);
    }

    /// The state takes everything over.
    void give() {
        m_state.styles.setTableStyle(m_style);
        std::vector<std::uint16_t> places;
        for (const std::wstring& name : m_loaded.styles) places.push_back(m_state.styles.place(name.c_str()));
        m_state.setColumnCount(static_cast<int>(m_widths.size()));
        m_state.columnWidths = m_widths;
        const int count = static_cast<int>(m_loaded.rows.size());
        m_state.rows.insert(1, count - 1, TableRow());
        for (int row = 0; row < count; ++row) {
            TableRow& made = m_loaded.rows[static_cast<std::size_t>(row)];
            made.style = places[made.style];
            for (CellLook& look : made.looks.write()) look.style = places[look.style];
            m_state.rows.changeRow(row, [&](TableRow& given) { given = std::move(made); });
            m_state.rows.shareLooks(row);
        }
        m_state.touchLayout();
        if (m_hasFields) m_context.tablesWithFields.push_back(&m_table);
    }

    LoadContext& m_context;
    KdDbTable& m_table;
    const FileObject& m_object;
    TableState& m_state;
    RecordReader m_reader;
    TagSpan m_tags;
    TagIterator m_at = nullptr;

    WholeTable m_whole;
    KdDbObjectId m_style;
    std::vector<double> m_heights;
    std::vector<double> m_widths;
    LoadedTable m_loaded;
    std::vector<Span> m_spans;
    bool m_hasFields = false;
    CopyOnWrite<FormatOverrides> m_lastOverrides;
};

}  // namespace

std::uint64_t blockOfTable(const FileObject& object) {
    for (TagIterator tag = object.body; tag != object.tags.last && tag->code != kCellBegin; ++tag) {
        if (tag->code == 343) return handleOf(*tag).value_or(0);
    }
    return 0;
}

void readTable(LoadContext& context, KdDbTable& table, const FileObject& object) {
    Reader(context, table, object).read();
}

}  // namespace kdhost::file
