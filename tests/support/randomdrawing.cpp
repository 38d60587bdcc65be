// Drawings of any content.

#include "tests/support/randomdrawing.h"

#include <array>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "kd/db/blockreference.h"
#include "kd/db/field.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/support/objects.h"

namespace kdtest {
namespace {

using Name = const wchar_t*;

class Maker {
public:
    Maker(KdDbDatabase& database, unsigned seed) : m_database(database), m_random(seed) {}

    void make() {
        settings();
        repeat(3, [&] { record<KdDbLinetypeTableRecord>(m_linetypes, m_database.linetypeTableId(), L"ltype"); });
        repeat(4, [&] { record<KdDbLayerTableRecord>(m_layers, m_database.layerTableId(), L"layer"); });
        repeat(3, [&] { record<KdDbTextStyleTableRecord>(m_textStyles, m_database.textStyleTableId(), L"style"); });
        repeat(3, [&] { record<KdDbBlockTableRecord>(m_blocks, m_database.blockTableId(), L"block"); });
        repeat(3, [&] { tableStyle(); });
        for (const KdDbObjectId block : std::vector<KdDbObjectId>(m_blocks)) {
            // An insertion leads to a block made before, never in a circle.
            repeat(3, [&] { simpleEntity(block); });
        }
        repeat(8, [&] { simpleEntity(m_database.modelSpaceId()); });
        repeat(3, [&] { simpleEntity(m_database.paperSpaceId()); });
        repeat(3, [&] { insertion(); });
        repeat(3, [&] { table(); });
        eraseSome();
    }

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int n) { return below(n) == 0; }
    double number() {
        const double ready[] = {0.0, 1.0, -2.5, 1e-7, 123456.789, 1.0 / 3.0, -1e12};
        return oneIn(3) ? ready[below(7)] : (static_cast<double>(m_random()) / 4294967295.0 - 0.5) * 1000.0;
    }
    double size() { return std::abs(number()) + 0.125; }
    double angle() { return oneIn(2) ? below(24) * 3.14159265358979323846 / 12.0 : number() / 100.0; }
    KdGePoint3d point() { return {number(), number(), oneIn(4) ? number() : 0.0}; }
    KdGeVector3d normal() {
        return oneIn(4) ? KdGeVector3d(number(), number(), 1.0 + std::abs(number())) : KdGeVector3d(0.0, 0.0, 1.0);
    }
    KdCmColor color() {
        if (oneIn(4)) return KdCmColor::fromRgb(below(256), below(256), below(256));
        if (oneIn(4)) return KdCmColor::byBlock();
        return oneIn(4) ? KdCmColor() : KdCmColor::fromIndex(1 + below(255));
    }
    KdDb::LineWeight weight() {
        const KdDb::LineWeight all[] = {KdDb::kLnWtByLayer, KdDb::kLnWtByBlock, KdDb::kLnWt000,
                                        KdDb::kLnWt025,     KdDb::kLnWt211,     KdDb::kLnWtByLwDefault};
        return all[below(6)];
    }
    std::wstring text() {
        const Name pieces[] = {L"A",   L"1.5", L"\u8868\u683c", L"^",      L"\n",         L" ",
                               L"%%d", L"\\P", L"{\\H2x;b}",    L"\t",     L"\U0001F600", L"\\S1^2;",
                               L"0",   L"=",   L"\"",           L"\u00e9", L"^J",         L"\r"};
        std::wstring result;
        const int length = oneIn(20) ? 400 : below(6);
        for (int piece = 0; piece < length; ++piece) result += pieces[below(18)];
        return result;
    }
    template <class Do>
    void repeat(int atMost, Do act) {
        for (int times = below(atMost + 1); times > 0; --times) act();
    }
    KdDbObjectId oneOf(const std::vector<KdDbObjectId>& ids, KdDbObjectId otherwise) {
        return ids.empty() || oneIn(3) ? otherwise : ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
    }
    KdDbObjectId layer() { return oneOf(m_layers, m_database.layerZero()); }
    KdDbObjectId textStyle() { return oneOf(m_textStyles, m_database.textstyle()); }
    KdDbObjectId linetype() { return oneOf(m_linetypes, m_database.byLayerLinetype()); }

    void settings() {
        m_database.setLunits(1 + below(5));
        m_database.setLuprec(below(9));
        m_database.setAunits(below(5));
        m_database.setAngbase(angle());
        m_database.setAngdir(oneIn(2));
        m_database.setDimzin(below(16));
        m_database.setInsunits(below(25));
        m_database.setMeasurement(below(2));
        m_database.setUnitmode(below(2));
        m_database.setInsbase(point());
        m_database.setUcs(point(), {1.0, number(), 0.0}, {0.0, 1.0, number()});
        m_database.setTilemode(!oneIn(3));
    }

    template <class T>
    void record(std::vector<KdDbObjectId>& ids, KdDbObjectId table, Name stem) {
        const std::wstring name = stem + std::to_wstring(ids.size()) + (oneIn(3) ? L" \u5c42 ^x" : L"");
        ids.push_back(addRecord<T>(table, name.c_str(), [&](T& made) { prepare(made); }));
    }
    void prepare(KdDbLinetypeTableRecord& made) {
        made.setComments(text().c_str());
        std::vector<double> dashes;
        repeat(4, [&] { dashes.push_back(number()); });
        made.setDashes(dashes);
    }
    void prepare(KdDbLayerTableRecord& made) {
        made.setColor(oneIn(3) ? KdCmColor::fromRgb(1, 2, below(256)) : KdCmColor::fromIndex(1 + below(255)));
        made.setLinetypeObjectId(linetype());
        made.setLineWeight(weight());
        made.setIsPlottable(!oneIn(3));
    }
    void prepare(KdDbTextStyleTableRecord& made) {
        made.setFont(oneIn(2) ? L"DejaVu Serif" : L"DejaVu Sans");
        made.setFontStyle(oneIn(2), oneIn(2));
        made.setTextSize(oneIn(2) ? 0.0 : size());
        made.setXScale(0.5 + below(4) * 0.25);
        made.setObliquingAngle(angle() / 10.0);
    }
    void prepare(KdDbBlockTableRecord& made) { made.setOrigin(point()); }

    void common(KdDbEntity& entity) {
        entity.setDatabaseDefaults(&m_database);
        entity.setLayer(layer());
        if (oneIn(2)) entity.setColor(color());
        if (oneIn(3)) entity.setLinetype(linetype());
        if (oneIn(3)) entity.setLineWeight(weight());
        if (oneIn(6)) entity.setVisibility(KdDb::kInvisible);
    }
    KdDbObjectId place(KdDbObjectId block, KdDbEntity* entity) {
        const KdDbObjectId id = appendTo(block, entity);
        m_entities.push_back(id);
        return id;
    }

    void simpleEntity(KdDbObjectId block) {
        KdDbEntity* made = nullptr;
        switch (below(3)) {
            case 0:
                made = new KdDbLine(point(), point());
                break;
            case 1:
                made = new KdDbSolid(point(), point(), point(), point());
                break;
            default:
                made = mtext();
        }
        common(*made);
        place(block, made);
    }
    KdDbMText* mtext() {
        auto* made = new KdDbMText;
        made->setLocation(point());
        made->setTextHeight(size());
        made->setWidth(oneIn(2) ? 0.0 : size());
        made->setAttachment(static_cast<KdDbMText::AttachmentPoint>(1 + below(9)));
        made->setNormal(normal());
        made->setRotation(angle());
        made->setTextStyle(textStyle());
        made->setContents(text().c_str());
        made->setBackgroundFill(oneIn(3));
        made->setUseBackgroundColor(oneIn(3));
        made->setBackgroundFillColor(color());
        made->setBackgroundScaleFactor(1.0 + below(5) * 0.5);
        if (oneIn(4)) {
            auto* field = new KdDbField;
            field->setFieldCode(L"\\AcExpr (1+2)");
            made->setField(field);
        }
        return made;
    }
    void insertion() {
        if (m_blocks.empty()) return;
        auto* made = new KdDbBlockReference(point(), oneOf(m_blocks, m_blocks.front()));
        made->setScaleFactor(oneIn(2) ? 1.0 : size());
        made->setRotation(angle());
        made->setNormal(normal());
        common(*made);
        place(m_database.modelSpaceId(), made);
    }

    // ---- tables

    template <class Set>
    void edges(Set set) {
        constexpr std::array<KdDb::GridLineType, 6> all{KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                                                        KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};
        for (const KdDb::GridLineType edge : all) {
            if (oneIn(3)) set(edge);
        }
    }

    void tableStyle() {
        KdDbDictionary* styles = nullptr;
        m_database.getTableStyleDictionary(styles, KdDb::kForWrite);
        auto* style = new KdDbTableStyle;
        KdDbObjectId id;
        const std::wstring name = L"table style " + std::to_wstring(m_tableStyles.size());
        styles->setAt(name.c_str(), style, id);
        styles->close();
        m_tableStyles.push_back(id);
        style->setFlowDirection(below(2));
        std::vector<std::wstring> names{L"_TITLE", L"_HEADER", L"_DATA"};
        repeat(3, [&] {
            names.push_back(L"cell " + std::to_wstring(names.size()));
            style->createCellStyle(names.back().c_str(), L"_DATA");
        });
        for (const std::wstring& each : names) cellStyle(*style, each.c_str());
        if (names.size() > 4) style->deleteCellStyle(names[3].c_str());
        style->close();
        m_cellStyles = names;
    }
    void cellStyle(KdDbTableStyle& style, Name name) {
        if (oneIn(2)) style.setTextHeight(size(), name);
        if (oneIn(2)) style.setTextStyle(textStyle(), name);
        if (oneIn(2)) style.setAlignment(static_cast<KdDb::CellAlignment>(1 + below(9)), name);
        if (oneIn(2)) style.setRotation(angle(), name);
        if (oneIn(2)) style.setColor(color(), name);
        if (oneIn(2)) style.setBackgroundColor(oneIn(2) ? KdCmColor::none() : color(), name);
        if (oneIn(2)) style.setMargin(KdDb::kCellMarginLeft, size() / 100.0, name);
        if (oneIn(2)) style.setFormat(text().c_str(), name);
        if (oneIn(2)) style.setDataType(KdValue::kDouble, KdValue::kCurrency, name);
        if (oneIn(2)) style.enableMergeAll(oneIn(2), name);
        edges([&](KdDb::GridLineType edge) {
            style.setGridVisibility(oneIn(2) ? KdDb::kVisible : KdDb::kInvisible, edge, name);
            style.setGridLineStyle(oneIn(2) ? KdDb::kGridLineStyleSingle : KdDb::kGridLineStyleDouble, edge, name);
            style.setGridColor(color(), edge, name);
            style.setGridLineWeight(weight(), edge, name);
            style.setGridLinetype(linetype(), edge, name);
            style.setGridDoubleLineSpacing(size() / 10.0, edge, name);
        });
    }

    void table() {
        auto* made = new KdDbTable;
        common(*made);
        made->setTableStyle(oneOf(m_tableStyles, m_database.tablestyle()));
        made->setPosition(point());
        made->setNormal(normal());
        made->setDirection({1.0, oneIn(2) ? 0.0 : number(), 0.0});
        made->setSize(1 + below(6), 1 + below(6));
        if (oneIn(3)) made->setFlowDirection(below(2));
        if (oneIn(3)) made->suppressHeaderRow(true);
        const KdDbObjectId id = place(m_database.modelSpaceId(), made);
        auto* open = mustOpen<KdDbTable>(id, KdDb::kForWrite);
        m_tables.push_back(id);
        repeat(6, [&] { structure(*open); });
        for (int row = 0; row < open->numRows(); ++row) {
            for (int column = 0; column < open->numColumns(); ++column) cell(*open, row, column);
        }
        open->close();
    }
    void structure(KdDbTable& table) {
        const int row = below(table.numRows());
        const int column = below(table.numColumns());
        switch (below(5)) {
            case 0:
                table.mergeCells(row, std::min(row + below(3), table.numRows() - 1), column,
                                 std::min(column + below(3), table.numColumns() - 1));
                break;
            case 1:
                table.insertRowsAndInherit(row, row, 1 + below(2));
                break;
            case 2:
                table.insertColumnsAndInherit(column, column, 1);
                break;
            case 3:
                table.setRowHeight(row, size());
                break;
            default:
                table.setColumnWidth(column, size());
        }
    }
    void cell(KdDbTable& table, int row, int column) {
        switch (below(6)) {
            case 0:
                if (!m_blocks.empty()) {
                    table.setBlockTableRecordId(row, column, 0, m_blocks.front(), oneIn(2));
                    table.setBlockScale(row, column, size());
                    table.setBlockRotation(row, column, angle());
                }
                break;
            case 1:
                formula(table, row, column);
                break;
            case 2:
                break;
            default:
                table.setTextString(row, column, text().c_str());
        }
        if (oneIn(3)) format(table, row, column);
        if (oneIn(10)) table.setCellState(row, column, static_cast<KdDb::CellState>(1 << below(2)));
    }
    void format(KdDbTable& table, int row, int column) {
        if (oneIn(3)) table.setAlignment(row, column, static_cast<KdDb::CellAlignment>(1 + below(9)));
        if (oneIn(3)) table.setBackgroundColor(row, column, oneIn(3) ? KdCmColor::none() : color());
        if (oneIn(3)) table.setContentColor(row, column, color());
        if (oneIn(3)) table.setTextStyle(row, column, textStyle());
        if (oneIn(3)) table.setTextHeight(row, column, size());
        if (oneIn(4)) table.setDataFormat(row, column, text().c_str());
        if (oneIn(4)) table.setDataType(row, column, KdValue::kLong, KdValue::kPercentage);
        if (oneIn(4) && !m_cellStyles.empty()) {
            table.setCellStyle(row, column,
                               m_cellStyles[static_cast<std::size_t>(below(int(m_cellStyles.size())))].c_str());
        }
        if (oneIn(2)) return;
        edges([&](KdDb::GridLineType edge) {
            if (oneIn(2)) table.setGridVisibility(row, column, edge, oneIn(2) ? KdDb::kVisible : KdDb::kInvisible);
            if (oneIn(2)) table.setGridColor(row, column, edge, color());
            if (oneIn(2)) table.setGridLineWeight(row, column, edge, weight());
            if (oneIn(3)) table.setGridLineStyle(row, column, edge, KdDb::kGridLineStyleDouble);
            if (oneIn(3)) table.setGridLinetype(row, column, edge, linetype());
            if (oneIn(3)) table.setGridDoubleLineSpacing(row, column, edge, size() / 10.0);
        });
    }
    void formula(KdDbTable& table, int row, int column) {
        auto* outer = new KdDbField;
        auto* inner = new KdDbField;
        const std::wstring other = m_tables.size() > 1 && oneIn(2)
                                       ? L"Table(" + std::to_wstring(m_tables.front().asInteger()) + L").A1"
                                       : L"1";
        inner->setFieldCode((L"\\AcExpr (" + other + L"+2)").c_str());
        inner->setEvaluationOption(oneIn(3) ? KdDbField::kDisable : KdDbField::kAutomatic);
        outer->postInDatabase(&m_database);
        KdArray<KdDbField*> children;
        children.append(inner);
        outer->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::FieldCodeFlag(256), &children);
        table.setFieldId(row, column, outer->objectId());
        outer->setOwnerId(table.objectId());
        inner->close();
        outer->close();
    }

    void eraseSome() {
        for (const KdDbObjectId id : m_entities) {
            if (!oneIn(6)) continue;
            auto* entity = mustOpen<KdDbEntity>(id, KdDb::kForWrite);
            entity->erase();
            entity->close();
        }
    }

    KdDbDatabase& m_database;
    std::mt19937 m_random;
    std::vector<KdDbObjectId> m_layers;
    std::vector<KdDbObjectId> m_linetypes;
    std::vector<KdDbObjectId> m_textStyles;
    std::vector<KdDbObjectId> m_blocks;
    std::vector<KdDbObjectId> m_tableStyles;
    std::vector<std::wstring> m_cellStyles;
    std::vector<KdDbObjectId> m_tables;
    std::vector<KdDbObjectId> m_entities;
};

}  // namespace

void fillRandomly(KdDbDatabase& database, unsigned seed) {
    Maker(database, seed).make();
}

}  // namespace kdtest
