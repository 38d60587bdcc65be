// What a table holds beyond the standard codes.

#include "host/file/tableextras.h"

#include <map>

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/opening.h"
#include "host/db/travellingcells.h"
#include "host/file/cellcodes.h"
#include "host/file/extrasrecord.h"
#include "host/file/fingerprint.h"
#include "host/file/objects.h"

namespace kdhost::file {
namespace {

constexpr int kCellBegin = 171;

/// What is said of a cell.
enum CellWord : int { kStyle = 1, kLocks = 2, kFormat = 4, kContent = 8 };

/// Runs of rows of one style.
void writeRows(SaveContext& context, const TableState& table, std::map<std::uint16_t, int>& styles) {
    context.out.raw(300, "ROWS");
    for (int row = 0; row < table.rowCount();) {
        int behind = row + 1;
        while (behind < table.rowCount() && table.rows[behind].style == table.rows[row].style) ++behind;
        const int place = styles.try_emplace(table.rows[row].style, static_cast<int>(styles.size())).first->second;
        context.out.integer(90, place);
        context.out.integer(90, behind - row);
        row = behind;
    }
}

/// Content that is more than a text, a field or a block.
bool isPlainContent(const CellContent& cell) {
    if (!cell.objects) return true;
    const CellObjects& objects = *cell.objects;
    if (objects.type == KdDb::kBlockCell) return cell.text.empty() && objects.field.isNull();
    CellObjects onlyField;
    onlyField.field = objects.field;
    return objects == onlyField && (objects.field.isNull() || cell.text.empty());
}

/// Whether the standard codes tell the overrides to the last bit.
bool isStandardFormat(const CellLook& cell) {
    namespace prop = kdhost::property;
    if ((cell.own() & ~standardProperties()) != 0) return false;
    const auto isIndexed = [](const KdCmColor* color) { return color == nullptr || !color->isByColor(); };
    if (!isIndexed(cell.ownValue(prop::background)) || !isIndexed(cell.ownValue(prop::color))) return false;
    const KdDbObjectId* style = cell.ownValue(prop::textStyle);
    if (style != nullptr && peekObject(*style) == nullptr) return false;
    for (const EdgeCode& each : kEdgeColors) {
        if (!isIndexed(cell.ownValue(prop::lineColor.at(each.edge)))) return false;
    }
    return true;
}

std::vector<const KdDbField*> formulasAsWritten(const TableState& table) {
    std::vector<const KdDbField*> formulas;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (const CellContent& cell : table.rows[row].contents) {
            forEachFieldIn(cell.field(), [&](const KdDbField& field) {
                if (stateOf<KdDbFieldState>(field).asWritten != nullptr) formulas.push_back(&field);
            });
        }
    }
    return formulas;
}

/// What formulas remember of their codes; nothing is written where none does.
void writeFormulas(SaveContext& context, const TableState& table) {
    const std::vector<const KdDbField*> formulas = formulasAsWritten(table);
    if (formulas.empty()) return;
    context.out.raw(300, "WRITTEN");
    context.out.integer(90, static_cast<std::int64_t>(formulas.size()));
    for (const KdDbField* field : formulas) {
        const WrittenFormula& written = *stateOf<KdDbFieldState>(*field).asWritten;
        std::vector<KdDbObjectId> objects;
        const std::wstring code = codeWithMarks(written.code, objects);
        context.out.handle(330, field->handle());
        context.out.integer(90, written.row);
        context.out.integer(90, written.column);
        context.out.longText(2, 1, code);
        context.out.integer(90, static_cast<std::int64_t>(objects.size()));
        for (const KdDbObjectId object : objects) context.out.handle(330, context.handleOf(object));
    }
}

void readFormulas(LoadContext& context, ExtrasReader& reader) {
    for (int left = reader.count(90); left > 0; --left) {
        const KdDbObjectId id = reader.pointer(330, context);
        WrittenFormula written;
        written.row = reader.index(90, INT32_MAX);
        written.column = reader.index(90, INT32_MAX);
        const std::wstring code = reader.longText(2, 1);
        std::vector<KdDbObjectId> objects(static_cast<std::size_t>(reader.count(90)));
        for (KdDbObjectId& each : objects) each = reader.pointer(330, context);
        written.code = codeWithoutMarks(code, objects);
        KdDbObject* field = id.isNull() ? nullptr : findObject(id);
        if (field == nullptr || !field->isKindOf(KdDbField::desc())) continue;
        auto& state = static_cast<KdDbFieldState&>(KdDbObjectAccess::stateForMaker(*field));
        if (isFormulaCode(state.code)) state.asWritten = std::make_shared<const WrittenFormula>(std::move(written));
    }
}

int wordsOf(const TableState& table, int row, int column) {
    const CellLook& look = table.look(row, column);
    return (look.style != table.rows[row].style ? kStyle : 0) | (look.state != KdDb::kCellStateNone ? kLocks : 0) |
           (isStandardFormat(look) ? 0 : kFormat) | (isPlainContent(table.content(row, column)) ? 0 : kContent);
}

void writeContent(SaveContext& context, const CellContent& cell) {
    const CellObjects objects = cell.ownObjects();
    context.out.integer(90, objects.type);
    context.out.longText(2, 1, cell.text);
    context.out.handle(330, context.handleOf(objects.block));
    context.out.real(40, objects.blockScale);
    context.out.real(40, objects.blockRotation);
    context.out.integer(90, objects.autoFit ? 1 : 0);
}

void readContent(LoadContext& context, ExtrasReader& reader, CellContent& cell) {
    CellObjects objects = cell.ownObjects();
    objects.type = static_cast<std::uint8_t>(reader.index(90, KdDb::kMultipleContentCell + 1));
    cell.text = reader.longText(2, 1);
    objects.block = reader.pointer(330, context);
    objects.blockScale = reader.real(40);
    objects.blockRotation = reader.real(40);
    objects.autoFit = reader.index(90, 2) != 0;
    cell.setObjects(objects);
}

using Formats = std::vector<CopyOnWrite<FormatOverrides>>;

Formats readFormats(LoadContext& context, ExtrasReader& reader) {
    FormatBits known = 0;
    forEachProperty([&](const auto& property) { known |= property.bit; });
    Formats formats(static_cast<std::size_t>(reader.count(90)));
    for (CopyOnWrite<FormatOverrides>& each : formats) {
        FormatOverrides& overrides = each.write();
        overrides.own = static_cast<FormatBits>(reader.integer(160)) & known;
        readFormat(context, reader, overrides.format, overrides.own);
    }
    return formats;
}

void readCell(LoadContext& context, ExtrasReader& reader, const Formats& formats, const TablePrints& prints,
              LoadedTable& table) {
    const int row = static_cast<int>(reader.integer(90));
    const int column = static_cast<int>(reader.integer(90));
    const std::int64_t print = reader.integer(160);
    const int words = static_cast<int>(reader.integer(90));
    const std::size_t columns = table.rows.front().size();
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < table.rows.size() && column >= 0 &&
                         static_cast<std::size_t>(column) < columns;
    const bool holds =
        isThere && prints.cells[static_cast<std::size_t>(row) * columns + static_cast<std::size_t>(column)] == print;
    // What is said of a cell that another program has changed is passed over.
    CellLook otherLook;
    CellContent otherContent;
    TableRow* line = holds ? &table.rows[static_cast<std::size_t>(row)] : nullptr;
    CellLook& look = holds ? line->writeLook(static_cast<std::size_t>(column)) : otherLook;
    CellContent& content = holds ? line->writeContent(static_cast<std::size_t>(column)) : otherContent;
    if ((words & kStyle) != 0) look.style = static_cast<std::uint16_t>(reader.index(90, table.styles.size()));
    if ((words & kLocks) != 0) look.state = static_cast<std::uint8_t>(reader.index(90, 256));
    if ((words & kFormat) != 0) look.overrides = formats[static_cast<std::size_t>(reader.index(90, formats.size()))];
    if ((words & kContent) != 0) readContent(context, reader, content);
}

}  // namespace

std::uint16_t usualRowStyle(int row, bool titleSuppressed, bool headerSuppressed) {
    const int titles = titleSuppressed ? 0 : 1;
    if (row < titles) return CellStylePool::kTitle;
    return row < titles + (headerSuppressed ? 0 : 1) ? CellStylePool::kHeader : CellStylePool::kData;
}

TablePrints fingerprintsOf(TagSpan tags) {
    TablePrints prints;
    Fingerprint whole;
    Fingerprint cell;
    bool inCell = false;
    const auto closeCell = [&] {
        if (!inCell) return;
        prints.cells.push_back(cell.value());
        whole.add(static_cast<std::uint64_t>(cell.value()));
        cell = {};
        inCell = false;
    };
    for (const Tag& tag : tags) {
        if (tag.code == kCellBegin) {
            closeCell();
            inCell = true;
        }
        (inCell ? cell : whole).add(tag);
        if (tag.is(304, "ACVALUE_END")) closeCell();
    }
    closeCell();
    prints.whole = whole.value();
    return prints;
}

FormatBits standardProperties() {
    namespace prop = kdhost::property;
    static const FormatBits bits = [] {
        FormatBits all =
            prop::alignment.bit | prop::background.bit | prop::color.bit | prop::textStyle.bit | prop::textHeight.bit;
        for (const EdgeCode& each : kEdgeColors) all |= prop::lineColor.at(each.edge).bit;
        for (const EdgeCode& each : kEdgeWeights) all |= prop::weight.at(each.edge).bit;
        for (const EdgeCode& each : kEdgeVisibilities) all |= prop::visibility.at(each.edge).bit;
        return all;
    }();
    return bits;
}

bool needsExtras(const TableState& table) {
    for (int row = 0; row < table.rowCount(); ++row) {
        if (table.rows[row].style != usualRowStyle(row, table.titleSuppressed, table.headerSuppressed)) return true;
        for (int column = 0; column < table.columnCount(); ++column) {
            if (wordsOf(table, row, column) != 0) return true;
        }
    }
    return !formulasAsWritten(table).empty();
}

void writeTableExtras(SaveContext& context, const TableState& table, const TablePrints& prints) {
    TagWriter& out = context.out;
    // Styles are numbered as they are met; the three standard ones have their places.
    std::map<std::uint16_t, int> styles{
        {CellStylePool::kTitle, 0}, {CellStylePool::kHeader, 1}, {CellStylePool::kData, 2}};
    out.integer(160, prints.whole);
    writeRows(context, table, styles);
    std::map<const FormatOverrides*, int> formats;
    std::vector<const FormatOverrides*> formatList;
    int count = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const CellLook& look = table.look(row, column);
            const int words = wordsOf(table, row, column);
            count += words == 0 ? 0 : 1;
            if ((words & kStyle) != 0) styles.try_emplace(look.style, static_cast<int>(styles.size()));
            const bool isNew = (words & kFormat) != 0 &&
                               formats.try_emplace(look.overrides.get(), static_cast<int>(formats.size())).second;
            if (isNew) formatList.push_back(look.overrides.get());
        }
    }
    std::vector<const std::wstring*> names(styles.size());
    for (const auto& [place, number] : styles) names[static_cast<std::size_t>(number)] = &table.styles.name(place);
    out.raw(300, "STYLES");
    out.integer(90, static_cast<std::int64_t>(names.size()));
    for (const std::wstring* name : names) out.longText(2, 1, *name);
    out.raw(300, "FORMATS");
    out.integer(90, static_cast<std::int64_t>(formatList.size()));
    for (const FormatOverrides* format : formatList) {
        out.integer(160, static_cast<std::int64_t>(format->own));
        writeFormat(context, format->format, format->own);
    }
    out.raw(300, "CELLS");
    out.integer(90, count);
    std::size_t at = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column, ++at) {
            const CellLook& look = table.look(row, column);
            const int words = wordsOf(table, row, column);
            if (words == 0) continue;
            out.integer(90, row);
            out.integer(90, column);
            out.integer(160, prints.cells[at]);
            out.integer(90, words);
            if ((words & kStyle) != 0) out.integer(90, styles.at(look.style));
            if ((words & kLocks) != 0) out.integer(90, look.state);
            if ((words & kFormat) != 0) out.integer(90, formats.at(look.overrides.get()));
            if ((words & kContent) != 0) writeContent(context, table.content(row, column));
        }
    }
    writeFormulas(context, table);
}

void readTableExtras(LoadContext& context, TagSpan tags, const TablePrints& prints, LoadedTable& table) {
    ExtrasReader names(tags);
    const bool isWhole = names.integer(160) == prints.whole;
    if (names.toSection("STYLES")) {
        table.styles.assign(static_cast<std::size_t>(names.count(90)), {});
        for (std::wstring& name : table.styles) name = names.longText(2, 1);
    }
    require(table.styles.size() > CellStylePool::kData, "the standard cell styles are missing");
    ExtrasReader rows(tags);
    // Rows that another program has added or taken away can't be told from those that were there.
    if (isWhole && rows.toSection("ROWS")) {
        std::size_t row = 0;
        while (rows.isNext(90)) {
            const int style = rows.index(90, table.styles.size());
            const auto behind = row + static_cast<std::size_t>(rows.index(90, table.rows.size() - row + 1));
            for (; row < behind; ++row) {
                table.rows[row].style = static_cast<std::uint16_t>(style);
                for (CellLook& look : table.rows[row].looks.write()) look.style = static_cast<std::uint16_t>(style);
            }
        }
        require(row == table.rows.size(), "the styles of rows are not those of the table");
    }
    ExtrasReader written(tags);
    if (written.toSection("WRITTEN")) readFormulas(context, written);
    ExtrasReader reader(tags);
    Formats formats;
    if (reader.toSection("FORMATS")) formats = readFormats(context, reader);
    if (!reader.toSection("CELLS")) return;
    for (int left = reader.count(90); left > 0; --left) readCell(context, reader, formats, prints, table);
}

}  // namespace kdhost::file
