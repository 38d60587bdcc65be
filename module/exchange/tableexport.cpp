// The TABLEEXPORT command: pick of the table, file name, and the writing of its rows.
//
// What is written is not what the reader of such files takes back as it was: the file is in the ANSI encoding,
// every text is quoted and ends its row before a line feed, an empty cell is a blank, a line end in a cell stays
// raw, a block is a label, and formats, sizes and merges are left out.

#include "module/exchange/tableexport.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/mtext.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/ed/variables.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablepick.h"
#include "module/exchange/kdfile.h"

namespace {

constexpr wchar_t blank = L' ';
constexpr wchar_t separator = L',';
constexpr wchar_t quote = L'"';
constexpr int fileDialogFlags = 33;
constexpr UINT fileFlags = 36865;  // create, write, binary

/// The locale of the export for its lifetime, then the one before, on every way out.
class LocaleScope {
public:
    LocaleScope() : m_kept(currentLocale()) { std::setlocale(category, "chs"); }
    ~LocaleScope() { std::setlocale(category, m_kept.c_str()); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

private:
    static constexpr int category = 0;

    static std::string currentLocale() {
        const char* name = std::setlocale(category, nullptr);
        return name != nullptr ? name : "C";
    }

    std::string m_kept;
};

enum class Pick { Table, Other, Nothing };

Pick classOfPick(const kded_name name, KdDbObjectId& id) {
    KdDbObjectId picked;
    if (kddbGetObjectId(picked, name) != Kdad::eOk) return Pick::Nothing;
    const OpenObject<KdDbObject> object(picked, KdDb::kForRead);
    if (!object) return Pick::Nothing;
    if (!object->isKindOf(KdDbTable::desc())) return Pick::Other;
    id = picked;
    return Pick::Table;
}

/// The table selected before the command, else the one that the user picks. False when the user cancels.
bool askForTable(KdDbObjectId& id) {
    if (getSelectSingleTable(id)) return true;
    while (true) {
        kded_name name = {};
        kded_point point = {};
        const int result = kdedEntSel(loadText(2050), name, point);
        if (result == RTCAN) return false;
        const Pick pick = result == RTNORM ? classOfPick(name, id) : Pick::Nothing;
        if (pick == Pick::Table) return true;
        kdutPrintf(L"%ls", loadText(pick == Pick::Other ? 2051 : 2087).c_str());
    }
}

/// Whether the file name is to be asked for on the command line: it is on, and the variable forbids dialogs.
bool commandLineAsksForFiles() {
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    const KdCommandLineState* state = services != nullptr ? services->commandLineState() : nullptr;
    resbuf variable;
    return state != nullptr && state->isOn() && kdedGetVar(L"FILEDIA", &variable) == RTNORM &&
           variable.resval.rint == 0;
}

bool endsInCsv(const std::wstring& name) {
    constexpr std::size_t length = 4;
    return name.size() >= length && CStdStr<wchar_t>(name.substr(name.size() - length)).CompareNoCase(L".csv") == 0;
}

/// Nothing also for a name that doesn't end in ".csv": the command then ends without a word.
std::optional<std::wstring> fileNameFromCommandLine() {
    std::array<wchar_t, 1024> buffer{};
    kdedInitGet(0, nullptr);
    if (kdedGetString(0, loadText(2053), buffer.data()) != RTNORM) return std::nullopt;
    std::wstring name(buffer.data());
    if (!endsInCsv(name)) return std::nullopt;
    return name;
}

/// One line of the file while it is put together; its memory serves from line to line.
class Line {
public:
    void clear() { m_size = 0; }
    void append(wchar_t character) { append(std::wstring_view(&character, 1)); }
    void append(std::wstring_view text) {
        std::copy(text.begin(), text.end(), room(text.size()));
        m_size += text.size();
    }
    /// In quotes, with each quote in the text doubled.
    void appendQuoted(std::wstring_view text) {
        wchar_t* const begin = room(2 * text.size() + 2);
        wchar_t* out = begin;
        *out++ = quote;
        for (const wchar_t character : text) {
            if (character == quote) *out++ = quote;
            *out++ = character;
        }
        *out++ = quote;
        m_size += static_cast<std::size_t>(out - begin);
    }
    void dropTrailing(wchar_t character) {
        while (m_size > 0 && m_text[m_size - 1] == character) --m_size;
    }
    /// With its ending zero.
    const wchar_t* text() {
        *room(1) = 0;
        return m_text.data();
    }

private:
    wchar_t* room(std::size_t count) {
        if (m_text.size() - m_size < count) m_text.resize(2 * (m_size + count));
        return m_text.data() + m_size;
    }

    std::vector<wchar_t> m_text;
    std::size_t m_size = 0;
};

/// The cells of one table as they stand in the file.
class CellText {
public:
    explicit CellText(const KdDbTable& table) : m_table(table), m_blockLabel(loadText(2062)) {}

    void append(int row, int column, Line& line) {
        switch (m_table.cellType(row, column)) {
            case KdDb::kTextCell:
                return m_table.contentType(row, column) == KdDb::kCellContentTypeValue ? appendText(row, column, line)
                                                                                       : appendField(row, column, line);
            case KdDb::kBlockCell:
                return appendBlock(m_table.blockTableRecordId(row, column), line);
            case KdDb::kMultipleContentCell:
                return appendFirstContent(row, column, line);
            default:
                line.append(blank);
        }
    }

private:
    void appendFirstContent(int row, int column, Line& line) {
        switch (m_table.contentType(row, column, 0)) {
            case KdDb::kCellContentTypeValue:
                return appendText(row, column, line);
            case KdDb::kCellContentTypeField:
                return appendField(row, column, line);
            case KdDb::kCellContentTypeBlock:
                return appendBlock(m_table.blockTableRecordId(row, column), line);
            default:
                line.append(blank);
        }
    }

    void appendText(int row, int column, Line& line) {
        const wchar_t* const text = m_table.textString(row, column);
        if (text == nullptr || *text == 0) {
            line.append(blank);
            return;
        }
        const int length = plainMtextLength(text);
        if (length >= 0) {
            line.appendQuoted({text, static_cast<std::size_t>(length)});
        } else {
            appendStripped(row, column, text, line);
        }
    }

    void appendField(int row, int column, Line& line) {
        const OpenObject<KdDbField> field(m_table.fieldId(row, column), KdDb::kForRead);
        if (field) {
            appendStripped(row, column, field->getFieldCode(KdDbField::kEvaluatedText, nullptr, KdDb::kForRead), line);
        } else {
            line.append(blank);
        }
    }

    void appendBlock(KdDbObjectId id, Line& line) const {
        std::wstring name;
        const OpenObject<KdDbBlockTableRecord> block(id, KdDb::kForRead);
        if (block && block->getName(name) == Kdad::eOk) {
            line.append(m_blockLabel);
            line.append(name);
        } else {
            line.append(blank);
        }
    }

    void appendStripped(int row, int column, const KdString& text, Line& line) const {
        line.appendQuoted(stripMtextFormatting(text, m_table.database(), m_table.textStyle(row, column)).str());
    }

    const KdDbTable& m_table;
    CStdStr<wchar_t> m_blockLabel;
};

/// Every separator at the end of a line goes, also one that a block's name ends in.
void writeRows(const KdDbTable& table, KdCStdioFile& file) {
    CellText cells(table);
    const int rows = table.numRows();
    const int columns = table.numColumns();
    Line line;
    for (int row = 0; row < rows; ++row) {
        line.clear();
        for (int column = 0; column < columns; ++column) {
            cells.append(row, column, line);
            line.append(separator);
        }
        line.dropTrailing(separator);
        line.append(L'\n');
        file.WriteString(line.text());
    }
}

/// A table that can't be opened leaves an empty file; nothing is told about a file that can't be written.
void exportTable(KdDbObjectId id, const std::wstring& path) {
    const LocaleScope locale;
    try {
        KdCStdioFile file(path.c_str(), fileFlags, KdCharacterCoding::kAnsi, true, false);
        OpenObject<KdDbTable> table(id, KdDb::kForRead);
        if (table) writeRows(*table, file);
        table.close();
        file.Flush();
        file.Close();
    } catch (...) {
    }
}

}  // namespace

std::optional<std::wstring> fileNameFromDialog() {
    resbuf* result = nullptr;
    const int status = kdedGetFileNavDialog(loadText(2053), L"Table1", L"csv", nullptr, fileDialogFlags, &result);
    std::optional<std::wstring> name;
    if (status == RTNORM && result != nullptr && result->resval.rstring != nullptr) name = result->resval.rstring;
    kdutRelRb(result);
    return name;
}

long tableExportEntry() {
    KdDbObjectId table;
    if (!askForTable(table)) return 0;
    const std::optional<std::wstring> path =
        commandLineAsksForFiles() ? fileNameFromCommandLine() : fileNameFromDialog();
    if (path) exportTable(table, *path);
    return 0;
}
