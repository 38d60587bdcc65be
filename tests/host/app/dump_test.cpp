// The dump of a drawing.

#include "host/app/dump/dump.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <sstream>

#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/pickfirst.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "tests/support/application.h"

namespace {

class Dump : public kdtest::ApplicationTest {
protected:
    std::string text() {
        std::ostringstream out;
        kdhost::writeDump(out, host.document());
        return out.str();
    }

    QJsonObject json() {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text()), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return document.object();
    }

    template <class Change>
    KdDbObjectId addTable(int rows, int columns, Change change) {
        auto table = std::make_unique<KdDbTable>();
        table->setDatabaseDefaults(&host.database());
        table->setTableStyle(host.database().tablestyle());
        table->setSize(rows, columns);
        change(*table);
        EXPECT_TRUE(kdhost::appendToCurrentSpace(host.database(), std::move(table)));
        return kdhost::entitiesOfCurrentSpace(host.database()).back();
    }

    static QJsonObject cellAt(const QJsonObject& dump, int row, int column) {
        const QJsonArray rows =
            dump[QStringLiteral("tables")].toArray()[0].toObject()[QStringLiteral("cells")].toArray();
        return rows[row].toArray()[column].toObject();
    }

    /// Keys in the order in which they stand at the outermost level of an object in the text.
    static std::vector<std::string> keys(const std::string& object) {
        std::vector<std::string> found;
        int depth = 0;
        bool inText = false;
        std::size_t begin = 0;
        for (std::size_t i = 0; i < object.size(); ++i) {
            const char c = object[i];
            if (inText && c == '\\') {
                ++i;
            } else if (c == '"') {
                if (!inText) begin = i + 1;
                if (inText && depth == 1 && object[i + 1] == ':') found.push_back(object.substr(begin, i - begin));
                inText = !inText;
            } else if (!inText && (c == '{' || c == '[')) {
                ++depth;
            } else if (!inText && (c == '}' || c == ']')) {
                if (--depth == 0) break;
            }
        }
        return found;
    }

    using Keys = std::vector<std::string>;
};

TEST_F(Dump, of_a_new_drawing_has_all_keys_in_order) {
    EXPECT_EQ(keys(text()),
              (Keys{"variables", "styles", "layers", "blocks", "entities", "tables", "toolbar", "undoSteps", "open"}));
    const QJsonObject dump = json();
    EXPECT_EQ(dump[QStringLiteral("variables")].toObject()[QStringLiteral("FILEDIA")].toInt(), 1);
    EXPECT_EQ(dump[QStringLiteral("variables")].toObject()[QStringLiteral("CTABLESTYLE")].toString(),
              QStringLiteral("Standard"));
    EXPECT_EQ(dump[QStringLiteral("layers")].toArray()[0].toObject()[QStringLiteral("name")].toString(),
              QStringLiteral("0"));
    EXPECT_TRUE(dump[QStringLiteral("tables")].toArray().isEmpty());
    EXPECT_TRUE(dump[QStringLiteral("open")].toArray().isEmpty());
}

TEST_F(Dump, of_a_style_lists_its_cell_styles) {
    const QJsonObject style = json()[QStringLiteral("styles")].toArray()[0].toObject();
    EXPECT_EQ(style[QStringLiteral("name")].toString(), QStringLiteral("Standard"));
    const QJsonArray cellStyles = style[QStringLiteral("cellStyles")].toArray();
    ASSERT_EQ(cellStyles.size(), 3);
    const QJsonObject title = cellStyles[0].toObject();
    EXPECT_EQ(title[QStringLiteral("name")].toString(), QStringLiteral("_TITLE"));
    EXPECT_EQ(title[QStringLiteral("textHeight")].toDouble(), 6.0);
    EXPECT_EQ(title[QStringLiteral("mergeAll")].toBool(), true);
    EXPECT_EQ(title[QStringLiteral("color")].toString(), QStringLiteral("byblock"));
    EXPECT_EQ(title[QStringLiteral("textStyle")].toString(), QStringLiteral("Standard"));
    EXPECT_EQ(title[QStringLiteral("grid")].toObject().keys().size(), 6);
    const std::string text = this->text();
    EXPECT_EQ(keys(text.substr(text.find("{\"name\":\"_TITLE\""))),
              (Keys{"name", "class", "textHeight", "textStyle", "alignment", "rotation", "color", "background",
                    "marginHorz", "marginVert", "format", "dataType", "unitType", "mergeAll", "grid"}));
}

TEST_F(Dump, of_a_table_has_its_keys_in_order) {
    addTable(2, 2, [](KdDbTable&) {});
    const std::string text = this->text();
    const std::size_t table = text.find("\"tables\":[") + 10;
    EXPECT_EQ(keys(text.substr(table)), (Keys{"handle", "style", "layer", "position", "direction", "normal", "flow",
                                              "titleSuppressed", "headerSuppressed", "rows", "columns", "rowHeights",
                                              "columnWidths", "rowTypes", "merges", "selection", "cells"}));
    EXPECT_EQ(keys(text.substr(text.find("{\"text\""))),
              (Keys{"text", "type", "content", "field", "style", "alignment", "state", "dataType", "unitType", "format",
                    "background", "color", "textHeight", "textStyle", "rotation", "block", "own"}));
}

TEST_F(Dump, of_cells_tells_texts_overrides_merges_and_selection) {
    const KdDbObjectId id = addTable(4, 3, [](KdDbTable& table) {
        table.setPosition({0.1, 2.0, 0.0});
        table.setTextString(2, 0, L"表 \"quoted\"\n\\P");
        table.setBackgroundColor(2, 1, KdCmColor::fromRgb(1, 2, 3));
        table.setContentColor(2, 1, KdCmColor::fromIndex(5));
        table.setAlignment(2, 1, KdDb::kBottomRight);
        table.setGridVisibility(3, 2, KdDb::kHorzBottom, KdDb::kInvisible);
        table.setCellState(3, 0, KdDb::kCellStateContentLocked);
        table.mergeCells(0, 0, 0, 2);
    });
    kdhost::Opened<KdDbTable>(id)->setSubSelection(KdCellRange{1, 0, 2, 1});

    const QJsonObject dump = json();
    const QJsonObject table = dump[QStringLiteral("tables")].toArray()[0].toObject();
    EXPECT_EQ(table[QStringLiteral("position")].toArray(), (QJsonArray{0.1, 2.0, 0.0}));
    EXPECT_EQ(table[QStringLiteral("merges")].toArray(), QJsonArray{(QJsonArray{0, 0, 0, 2})});
    EXPECT_EQ(table[QStringLiteral("selection")].toArray(), (QJsonArray{1, 0, 2, 1}));
    EXPECT_EQ(table[QStringLiteral("rowTypes")].toArray(), (QJsonArray{2, 4, 1, 1}));
    EXPECT_EQ(cellAt(dump, 2, 0)[QStringLiteral("text")].toString(), QString::fromUtf8("表 \"quoted\"\n\\P"));
    EXPECT_EQ(cellAt(dump, 3, 0)[QStringLiteral("state")].toInt(), 1);
    EXPECT_TRUE(cellAt(dump, 3, 0)[QStringLiteral("own")].toArray().isEmpty());
    EXPECT_FALSE(cellAt(dump, 3, 0).contains(QStringLiteral("grid")));

    const QJsonObject formatted = cellAt(dump, 2, 1);
    EXPECT_EQ(formatted[QStringLiteral("background")].toString(), QStringLiteral("rgb:1,2,3"));
    EXPECT_EQ(formatted[QStringLiteral("color")].toString(), QStringLiteral("aci:5"));
    EXPECT_EQ(formatted[QStringLiteral("alignment")].toInt(), 9);
    EXPECT_EQ(formatted[QStringLiteral("own")].toArray(),
              (QJsonArray{QStringLiteral("alignment"), QStringLiteral("background"), QStringLiteral("color")}));
    const QJsonObject edges = cellAt(dump, 3, 2)[QStringLiteral("grid")].toObject();
    EXPECT_EQ(edges.keys(), (QStringList{QStringLiteral("1"), QStringLiteral("16"), QStringLiteral("2"),
                                         QStringLiteral("32"), QStringLiteral("4"), QStringLiteral("8")}));
    EXPECT_FALSE(edges[QStringLiteral("4")].toObject()[QStringLiteral("visible")].toBool());
    EXPECT_TRUE(edges[QStringLiteral("1")].toObject()[QStringLiteral("visible")].toBool());
    EXPECT_EQ(edges[QStringLiteral("4")].toObject().keys().size(), 6);
}

TEST_F(Dump, lists_what_is_open) {
    const KdDbObjectId id = addTable(2, 2, [](KdDbTable&) {});
    const kdhost::Opened<KdDbTable> open(id, KdDb::kForWrite);
    EXPECT_EQ(json()[QStringLiteral("open")].toArray(), QJsonArray{QString::number(open->handle(), 16).toUpper()});
}

TEST_F(Dump, is_written_whole_or_not_at_all) {
    QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("dump.json")).toStdString();
    EXPECT_EQ(kdhost::writeDumpFile(path, host.document()), "");
    EXPECT_TRUE(QFile::exists(QString::fromStdString(path)));
    EXPECT_NE(
        kdhost::writeDumpFile(folder.filePath(QStringLiteral("no/such/dump.json")).toStdString(), host.document()), "");
}

}  // namespace
