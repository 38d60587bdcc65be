// Row heights and column widths from what the cells hold.
//
// One line of text of height h between margins v needs 2 v + h + h / 3. Text wraps at the width of its cell, or
// of its merge; a merge over several rows counts for its last row. A row remembers its result until its cells,
// the widths, the styles or the fonts change.

#include "host/db/tablelayout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/db/access.h"
#include "host/db/textstyle.h"
#include "host/db/walk.h"
#include "host/text/metrics.h"
#include "kd/db/database.h"
#include "kd/db/field.h"

namespace kdhost {
namespace {

/// Characters that stand for themselves, whatever is around them.
constexpr std::array<bool, 128> kPlain = [] {
    std::array<bool, 128> plain{};
    for (std::size_t code = L' '; code < 0x7F; ++code) plain[code] = true;
    for (const char begins : {'\\', '{', '}', '%', '^'}) plain[static_cast<std::size_t>(begins)] = false;
    return plain;
}();

/// Measures cells of one table, and remembers what they share.
class Measure {
public:
    explicit Measure(const KdDbTable& table) : m_table(table), m_state(tableState(table)) {
        checkFonts();
        checkStyles();
    }

    double rowMinimum(int row);
    double columnMinimum(int column);
    /// Whether no column has to widen for what the row holds.
    bool fits(int row);
    /// What the cell's content needs, its merge taken as one cell.
    double heightOf(int row, int column);

private:
    struct Face {
        const text::Font* font = nullptr;
        text::Advances* advances = nullptr;
    };

    /// What texts are measured by in cells that look alike.
    struct TextLook {
        double height = 0.0;
        double marginVert = 0.0;
        double marginHorz = 0.0;
        double angle = 0.0;
        bool level = true;
        double line = 0.0;  ///< height of a cell with one line
        Face face;
    };

    void checkFonts();
    void checkStyles();
    template <class T>
    const T& value(const CellLook& cell, const FormatProperty<T>& which) const {
        if (const T* own = cell.ownValue(which)) return *own;
        return which.in(m_state.styles.lastRecord(cell.style).format);
    }
    const TextLook& textLook(const CellLook& cell) {
        const FormatOverrides* overrides = cell.overrides.get();
        if (!m_lookKnown || cell.style != m_lookStyle || overrides != m_lookOverrides) readTextLook(cell);
        return m_look;
    }
    void readTextLook(const CellLook& cell);
    Face faceOf(KdDbObjectId textStyle);
    bool surelyOneLine(std::wstring_view text, const Face& face, double room) const;
    double textHeightOf(const CellLook& cell, std::wstring_view text, double width);
    double widthOf(int row, int column);
    double widthNeeded(int row, int column);
    double sumOfHeights(int first, int last) const;
    double sumOfWidths(int first, int last) const;

    const KdDbTable& m_table;
    const TableState& m_state;
    // Of the cell measured last: its neighbours mostly look alike.
    bool m_lookKnown = false;
    std::uint16_t m_lookStyle = 0;
    const FormatOverrides* m_lookOverrides = nullptr;
    TextLook m_look;
};

void Measure::checkFonts() {
    for (auto& [style, font] : KdDbTableAccess::transient(m_table).fonts) {
        text::Font now = cellFont(m_table, style);
        if (now == font) continue;
        font = std::move(now);
        m_state.layoutStamp = newStamp();
    }
}

void Measure::checkStyles() {
    const std::uint64_t revision = m_state.styles.revision();
    if (m_state.layoutRevision == revision) return;
    m_state.layoutRevision = revision;
    m_state.layoutStamp = newStamp();
}

void Measure::readTextLook(const CellLook& cell) {
    m_lookKnown = true;
    m_lookStyle = cell.style;
    m_lookOverrides = cell.overrides.get();
    m_look.height = value(cell, property::textHeight);
    m_look.marginVert = value(cell, property::marginVert);
    m_look.marginHorz = value(cell, property::marginHorz);
    m_look.angle = value(cell, property::rotation);
    m_look.level = m_look.angle == 0.0 || std::abs(std::sin(m_look.angle)) < 1e-6;
    m_look.line = heightOfLines(1, m_look.height, m_look.marginVert);
    m_look.face = faceOf(value(cell, property::textStyle));
}

Measure::Face Measure::faceOf(KdDbObjectId textStyle) {
    auto& fonts = KdDbTableAccess::transient(m_table).fonts;
    auto known = fonts.find(textStyle);
    if (known == fonts.end()) known = fonts.emplace(textStyle, cellFont(m_table, textStyle)).first;
    return {&known->second, &text::advancesOf(known->second)};
}

/// True for a plain text that fits into one line of `room` text heights; false says nothing.
bool Measure::surelyOneLine(std::wstring_view text, const Face& face, double room) const {
    double width = 0.0;
    for (const wchar_t character : text) {
        const auto code = static_cast<std::size_t>(character);
        if (code >= kPlain.size() || !kPlain[code]) return false;
        width += face.advances->of(character);
    }
    return width * face.font->widthFactor <= room;
}

double Measure::textHeightOf(const CellLook& cell, std::wstring_view text, double width) {
    const TextLook& look = textLook(cell);
    if (text.empty()) return look.line;
    const double room = std::max(0.0, width - 2.0 * look.marginHorz);
    if (look.level && surelyOneLine(text, look.face, room / look.height)) return look.line;
    // Text at a slant doesn't wrap: it runs on, and the row makes room for it.
    const text::Layout layout = text::layout(std::wstring(text), *look.face.font, look.height, look.level ? room : 0.0);
    const double high = std::max(look.height, layout.height) + look.height / 3.0;
    if (look.level) return 2.0 * look.marginVert + high;
    return 2.0 * look.marginVert + std::abs(layout.width * std::sin(look.angle)) +
           std::abs(high * std::cos(look.angle));
}

/// Width and height of the cell's block as it is drawn; nothing for one that is fitted into its cell.
std::pair<double, double> blockSize(const CellContent& cell) {
    if (!cell.objects || cell.objects->autoFit) return {0.0, 0.0};
    const KdDbExtents extents = extentsOfEntities(cell.block());
    if (!extents.isValid()) return {0.0, 0.0};
    const KdGeVector3d size = (extents.maxPoint() - extents.minPoint()) * std::abs(cell.objects->blockScale);
    const double c = std::abs(std::cos(cell.objects->blockRotation));
    const double s = std::abs(std::sin(cell.objects->blockRotation));
    return {size.x * c + size.y * s, size.x * s + size.y * c};
}

double Measure::heightOf(int row, int column) {
    const CellLook& look = m_state.look(row, column);
    const CellContent& content = m_state.content(row, column);
    const KdCellRange merge = m_state.mergeOf(row, column);
    if (!content.block().isNull()) {
        const double needed = blockSize(content).second + 2.0 * textLook(look).marginVert;
        return std::max(textHeightOf(look, {}, 0.0), needed);
    }
    const double width = sumOfWidths(merge.m_leftColumn, merge.m_rightColumn);
    if (content.field().isNull()) return textHeightOf(look, content.text, width);
    return textHeightOf(look, shownText(m_table, content), width);
}

double Measure::rowMinimum(int row) {
    const std::uint64_t stamp = m_state.layoutStamp;
    const double known = m_state.rows.measures(row, stamp).minimumHeight;
    if (known != RowMeasures::kNotMeasured) return known;
    double minimum = 0.0;
    bool alone = true;  // the result depends on the row's own cells only
    for (int column = 0; column < m_state.columnCount(); ++column) {
        const MergeLink& merge = m_state.mergeLink(row, column);
        if (merge.rows > 1) {
            if (merge.up != merge.rows - 1 || merge.left != 0) continue;
            alone = false;
            const int top = row - merge.up;
            minimum = std::max(minimum, heightOf(top, column) - sumOfHeights(top, row - 1));
        } else if (merge.left == 0) {
            if (!m_state.content(row, column).field().isNull()) alone = false;
            minimum = std::max(minimum, heightOf(row, column));
        }
    }
    if (alone) m_state.rows.measures(row, stamp).minimumHeight = minimum;
    return minimum;
}

double Measure::widthOf(int row, int column) {
    const CellLook& look = m_state.look(row, column);
    const CellContent& content = m_state.content(row, column);
    const TextLook& measures = textLook(look);
    const double height = measures.height;
    const double margins = 2.0 * measures.marginHorz;
    if (!content.block().isNull()) return margins + std::max(height, blockSize(content).first);
    const std::wstring text = shownText(m_table, content);
    if (text.empty()) return margins + height;
    return margins + std::max(height, text::widestWord(text, *measures.face.font, height));
}

/// What the cell asks of its column. A merge asks its last column for what the others leave, in its first row.
double Measure::widthNeeded(int row, int column) {
    const MergeLink& merge = m_state.mergeLink(row, column);
    if (merge.up != 0 || (merge.merged() && merge.left != merge.columns - 1)) return 0.0;
    const int left = column - merge.left;
    const double others = column > left ? sumOfWidths(left, column - 1) : 0.0;
    return widthOf(row, left) - others;
}

double Measure::columnMinimum(int column) {
    double minimum = 0.0;
    for (int row = 0; row < m_state.rowCount(); ++row) minimum = std::max(minimum, widthNeeded(row, column));
    return minimum;
}

bool Measure::fits(int row) {
    const std::uint64_t stamp = m_state.layoutStamp;
    if (m_state.rows.measures(row, stamp).fits) return true;
    bool alone = true;  // the result depends on the row's own cells only
    for (int column = 0; column < m_state.columnCount(); ++column) {
        if (widthNeeded(row, column) > m_state.columnWidths[static_cast<std::size_t>(column)]) return false;
        const CellContent& cell = m_state.content(row, column);
        if (!cell.field().isNull() || !cell.block().isNull()) alone = false;
    }
    if (alone) m_state.rows.measures(row, stamp).fits = true;
    return true;
}

double Measure::sumOfHeights(int first, int last) const {
    double sum = 0.0;
    for (int row = first; row <= last; ++row) sum += m_state.rows[row].height;
    return sum;
}

double Measure::sumOfWidths(int first, int last) const {
    double sum = 0.0;
    for (int column = first; column <= last; ++column) sum += m_state.columnWidths[static_cast<std::size_t>(column)];
    return sum;
}

void growRow(const TableState& state, int row, double height) {
    if (state.rows[row].height >= height) return;
    state.rows.setHeight(row, height);
    state.geometryStamp = newStamp();
}

}  // namespace

text::Font cellFont(const KdDbTable& table, KdDbObjectId textStyle) {
    if (textStyle.isNull() && table.database() != nullptr) textStyle = table.database()->textstyle();
    return fontOf(textStyle);
}

double minimumRowHeight(const KdDbTable& table, int row) {
    settleGrowth(table);
    return Measure(table).rowMinimum(row);
}

double minimumColumnWidth(const KdDbTable& table, int column) {
    return Measure(table).columnMinimum(column);
}

void growNotedRows(const KdDbTable& table) {
    const TableState& state = tableState(table);
    const PendingGrowth pending = std::exchange(state.pendingGrowth, {});
    Measure measure(table);
    const auto grow = [&](int row, int column) {
        const KdCellRange merge = state.mergeOf(row, column);
        if (merge.m_topRow != row || merge.m_leftColumn != column) return;
        double needed = measure.heightOf(row, column);
        for (int other = row; other < merge.m_bottomRow; ++other) needed -= state.rows[other].height;
        growRow(state, merge.m_bottomRow, needed);
    };
    for (const PendingGrowth::Block& block : pending.blocks) {
        for (int row = block.top; row < block.bottom; ++row) {
            for (int column = block.left; column < block.right; ++column) {
                const bool ofText = block.what == PendingGrowth::For::Text;
                if (ofText || !state.content(row, column).empty()) grow(row, column);
            }
        }
    }
}

void growAllColumns(const KdDbTable& table, TableState& state) {
    Measure measure(table);
    // Mostly nothing has to widen, and only rows written since the last look are to be asked. Their blocks aren't
    // settled by that: the heights are still to follow.
    bool fits = true;
    state.rows.visitUnsettled(state.layoutStamp, [&](int row) {
        fits = fits && measure.fits(row);
        return false;
    });
    if (fits) return;
    // From left to right: a merge finds its other columns as wide as they will be.
    for (int column = 0; column < state.columnCount(); ++column) {
        double& width = state.columnWidths[static_cast<std::size_t>(column)];
        const double needed = measure.columnMinimum(column);
        if (width >= needed) continue;
        width = needed;
        state.touchLayout();
    }
}

void growAllRows(const KdDbTable& table, const TableState& state) {
    Measure measure(table);
    state.rows.visitUnsettled(state.layoutStamp, [&](int row) {
        growRow(state, row, measure.rowMinimum(row));
        const RowMeasures& known = state.rows.measures(row, state.layoutStamp);
        return known.minimumHeight != RowMeasures::kNotMeasured && known.fits;
    });
}

const wchar_t* shownField(const KdDbTable& table, const CellContent& cell) {
    std::wstring& kept = KdDbTableAccess::transient(table).fieldTexts[cell.field()];
    const auto* field = peek<KdDbField>(cell.field());
    std::wstring now = field == nullptr ? std::wstring() : field->getFieldCode(KdDbField::kEvaluatedText).str();
    if (now != kept) kept = std::move(now);
    return kept.c_str();
}

namespace {

void refreshPositions(const KdDbTable& table) {
    settleGrowth(table);
    const TableState& state = tableState(table);
    KdDbTableTransient& kept = KdDbTableAccess::transient(table);
    if (kept.positionsStamp == state.geometryStamp) return;
    kept.rowPositions.assign(1, 0.0);
    for (int row = 0; row < state.rowCount(); ++row) {
        kept.rowPositions.push_back(kept.rowPositions.back() + state.rows[row].height);
    }
    kept.columnPositions.assign(1, 0.0);
    for (const double width : state.columnWidths) {
        kept.columnPositions.push_back(kept.columnPositions.back() + width);
    }
    kept.positionsStamp = state.geometryStamp;
}

}  // namespace

const std::vector<double>& rowPositions(const KdDbTable& table) {
    refreshPositions(table);
    return KdDbTableAccess::transient(table).rowPositions;
}

const std::vector<double>& columnPositions(const KdDbTable& table) {
    refreshPositions(table);
    return KdDbTableAccess::transient(table).columnPositions;
}

}  // namespace kdhost
