// The checks of a run.

#include "tests/endurance/checks.h"

#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/ad/application.h"
#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/ed/commands.h"
#include "host/file/drawingfile.h"
#include "host/rx/encoding.h"
#include "host/ui/automation/automation.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "mfc/resource.h"

namespace endurance {
namespace {

using Json = nlohmann::ordered_json;

std::string listOf(const std::vector<kdhost::OpenObject>& objects) {
    std::string list;
    for (const kdhost::OpenObject& object : objects) {
        list += " " + kdhost::toUtf8(object.className) + " of \"" + kdhost::toUtf8(object.command) + "\"";
    }
    return list;
}

std::string objectsLeftOpen() {
    const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
    if (!open.empty()) return "left open:" + listOf(open);
    for (const kdhost::LeftOpen& left : kdhost::takeLeftOpen()) {
        return kdhost::toUtf8(left.command) + " left open:" + listOf(left.objects);
    }
    return {};
}

std::string breaches() {
    const std::vector<std::wstring> found = kdhost::takeDisciplineBreaches();
    return found.empty() ? std::string() : "breach of the open discipline: " + kdhost::toUtf8(found.front());
}

std::string placeOf(const KdDbTable& table, int row, int column) {
    std::ostringstream text;
    text << "table " << std::hex << table.handle() << std::dec << ", row " << row << ", column " << column << ": ";
    return text.str();
}

/// A window without height, where rows share it, makes rows of none.
bool isSize(double size) {
    return std::isfinite(size) && size >= 0.0;
}

std::string sizesOf(const KdDbTable& table) {
    if (table.numRows() < 1 || table.numColumns() < 1) return placeOf(table, 0, 0) + "the table has no cell";
    for (int row = 0; row < table.numRows(); ++row) {
        if (!isSize(table.rowHeight(row)))
            return placeOf(table, row, 0) + "the row's height is " + std::to_string(table.rowHeight(row));
    }
    for (int column = 0; column < table.numColumns(); ++column) {
        if (!isSize(table.columnWidth(column)))
            return placeOf(table, 0, column) + "the column's width is " + std::to_string(table.columnWidth(column));
    }
    return {};
}

bool isInside(const KdDbTable& table, const KdCellRange& cells) {
    return cells.m_topRow >= 0 && cells.m_leftColumn >= 0 && cells.m_topRow <= cells.m_bottomRow &&
           cells.m_leftColumn <= cells.m_rightColumn && cells.m_bottomRow < table.numRows() &&
           cells.m_rightColumn < table.numColumns();
}

/// Selections are kept as given: reversed, or -1 for whole rows and columns.
bool isSelection(const KdDbTable& table, const KdCellRange& cells) {
    const auto lies = [](int index, int count) { return index >= -1 && index < count; };
    return lies(cells.m_topRow, table.numRows()) && lies(cells.m_bottomRow, table.numRows()) &&
           lies(cells.m_leftColumn, table.numColumns()) && lies(cells.m_rightColumn, table.numColumns());
}

/// A cell's merge holds the cell, and all the cells in it say that they are in that one; so none overlaps another.
std::string mergeOf(const KdDbTable& table, int row, int column) {
    const KdCellRange merge = table.getMergeRange(row, column);
    const bool holdsCell = merge.m_topRow <= row && row <= merge.m_bottomRow && merge.m_leftColumn <= column &&
                           column <= merge.m_rightColumn;
    if (!isInside(table, merge) || !holdsCell) return "its merge is elsewhere";
    const bool isOne = merge.m_topRow == merge.m_bottomRow && merge.m_leftColumn == merge.m_rightColumn;
    if (table.isMergedCell(row, column) == isOne)
        return "it is told to be merged where it isn't, or the other way round";
    const bool isOwner = merge.m_topRow == row && merge.m_leftColumn == column;
    if (!isOwner && table.getMergeRange(merge.m_topRow, merge.m_leftColumn) != merge)
        return "its merge overlaps another";
    if (!isOwner && *table.textString(row, column) != L'\0') return "it is covered and has a text";
    return {};
}

std::string contentOf(const KdDbTable& table, int row, int column) {
    if (table.textString(row, column) == nullptr) return "it has no text";
    // A style that isn't there is kept, and looks like that of data.
    if (table.cellStyle(row, column) == nullptr) return "it has no cell style";
    if (!(table.textHeight(row, column) > 0.0)) return "its text has no height";
    if (const KdDbObjectId field = table.fieldId(row, column); !field.isNull() && kdhost::peekObject(field) == nullptr)
        return "its field is gone";
    if (const KdDbObjectId text = table.textStyle(row, column); !text.isNull() && kdhost::peekObject(text) == nullptr)
        return "its text style is gone";
    const KdDbObjectId block = table.blockTableRecordId(row, column);
    if (!block.isNull() && kdhost::peekObject(block) == nullptr) return "its block is gone";
    return {};
}

std::string soundness(const KdDbTable& table) {
    std::string wrong = sizesOf(table);
    if (!wrong.empty()) return wrong;
    if (kdhost::peek<KdDbTableStyle>(table.tableStyle()) == nullptr)
        return placeOf(table, 0, 0) + "the table's style is gone";
    if (table.hasSubSelection() && !isSelection(table, table.getSubSelection()))
        return placeOf(table, 0, 0) + "cells are selected outside the table";
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) {
            wrong = mergeOf(table, row, column);
            if (wrong.empty()) wrong = contentOf(table, row, column);
            if (!wrong.empty()) return placeOf(table, row, column) + wrong;
        }
    }
    return {};
}

/// Replaces what stands between `before` and the next of `ends` by what `change` makes of it. Dumps are long, and
/// expressions for patterns slow.
template <class Change>
std::string changed(const std::string& text, const std::string& before, const char* ends, Change change) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, done)) {
        const std::size_t begin = at + before.size();
        const std::size_t end = std::min(text.find_first_of(ends, begin), text.size());
        result += text.substr(done, begin - done) + change(text.substr(begin, end - begin));
        done = end;
    }
    return result + text.substr(done);
}

/// Formulas name tables of other places by numbers of the run.
std::string withHandles(const std::string& text) {
    return changed(text, "Table(", ")", [](const std::string& number) {
        const bool isNumber = !number.empty() && number.find_first_not_of("0123456789") == std::string::npos;
        if (!isNumber) return number;
        const KdDbObject* named = kdhost::peekObject(KdDbObjectId(std::stoull(number)));
        return named == nullptr ? "0" : "#" + std::to_string(named->handle());
    });
}

/// Without the lines of what belongs to the session.
std::string withoutSession(const std::string& dump) {
    std::istringstream stream(dump);
    std::string result;
    bool isFirst = true;
    for (std::string line; std::getline(stream, line);) {
        const auto begins = [&](const char* key) { return line.find(key, 0) == (isFirst ? 1U : 0U); };
        const bool drops =
            begins("\"variables\":") || begins("\"toolbar\":") || begins("\"undoSteps\":") || begins("\"open\":");
        if (isFirst) result += "{";
        if (!drops) result += (isFirst ? line.substr(1) : line) + "\n";
        isFirst = false;
    }
    return result + "\"end\":0}";
}

/// Zero has two signs in memory and one in a file.
std::string withoutSignsOfZero(std::string text) {
    const std::string zero = "-0.0";
    for (std::size_t at = text.find(zero); at != std::string::npos; at = text.find(zero, at + 1)) {
        const bool ends =
            at + zero.size() < text.size() && std::string(",]}").find(text[at + zero.size()]) != std::string::npos;
        if (ends) text.erase(at, 1);
    }
    return text;
}

std::string firstDifference(const std::string& wanted, const std::string& found) {
    const auto at = std::mismatch(wanted.begin(), wanted.end(), found.begin(), found.end()).first - wanted.begin();
    const auto begin = static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, at - 150));
    return wanted.substr(begin, 400) + "\n    became " + found.substr(begin, 400);
}

}  // namespace

std::string nothingIsOpen(const Stand& stand) {
    if (std::string wrong = objectsLeftOpen(); !wrong.empty()) return wrong;
    if (std::string wrong = breaches(); !wrong.empty()) return wrong;
    if (!kdhost::runningCommandNames().empty())
        return "a command still runs: " + kdhost::toUtf8(kdhost::runningCommandNames());
    if (kdhost::automation::isBlocked()) return "still open: " + kdhost::toUtf8(kdhost::automation::topWindowName());
    if (kdhost::undoHistory(*stand.document().database())->transactionCount() != 0)
        return "a transaction is still open";
    if (AfxGetResourceHandle() != nullptr) return "the resource handle is still a module's";
    return {};
}

std::string tablesAreSound(const Stand& stand) {
    for (const KdDbTable* table : stand.tables()) {
        if (std::string wrong = soundness(*table); !wrong.empty()) return wrong;
    }
    return {};
}

std::string dumpOf(kdhost::Document& document) {
    std::ostringstream out;
    kdhost::writeDump(out, document);
    std::string text = out.str();
    return text.find("Table(") == std::string::npos ? text : withHandles(text);
}

std::string drawingOf(kdhost::Document& document) {
    std::string text = withoutSession(dumpOf(document));
    text = changed(text, "\"selection\":", "\"", [](const std::string&) { return std::string("null,"); });
    return withoutSignsOfZero(text);
}

std::string difference(const std::string& wanted, const std::string& found) {
    if (wanted == found) return {};
    const Json patch = Json::diff(Json::parse(wanted), Json::parse(found));
    std::string text;
    for (std::size_t at = 0; at < patch.size() && at < 8; ++at) {
        const std::string path = patch[at].at("path");
        const auto before = patch[at].at("op") == "add" ? Json() : Json::parse(wanted).at(Json::json_pointer(path));
        text += "\n    " + path + ": " + before.dump().substr(0, 200) + " became " + patch[at].dump().substr(0, 300);
    }
    return text.empty() ? "\n    only in the order: " + firstDifference(wanted, found) : text;
}

std::string comesBackFromFile(const Stand& stand) {
    const std::string bytes = kdhost::file::drawingBytes(*stand.document().database());
    auto read = std::make_unique<KdDbDatabase>(false, true);
    if (kdhost::file::readDrawing(*read, bytes) != Kdad::eOk)
        return "the drawing's own file is refused: " + kdhost::file::lastRefusal();
    kdhost::Document copy(L"copy", std::move(read));
    const std::string wrong = difference(drawingOf(stand.document()), drawingOf(copy));
    return wrong.empty() ? wrong : "opened again the drawing is another one:" + wrong;
}

}  // namespace endurance
