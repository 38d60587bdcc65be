// One cell in the editor: a temporary text laid over the cell, the editor run on it, and the result written back.

#include <memory>

#include "kd/db/database.h"
#include "kd/db/fieldengine.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "kd/ed/inplaceeditor.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "module/core/openobject.h"
#include "module/edit/celledit.h"
#include "module/edit/cellfield.h"
#include "module/edit/celltextplace.h"

namespace {

/// What the cell looks like when the editing begins; what the user changes of it goes back to the cell.
struct CellLooks {
    KdDbObjectId textStyle;
    double textHeight = 0.0;
    KdDb::CellAlignment alignment = KdDb::kTopLeft;
    KdCmColor color;
    KdCmColor background;
};

/// A cell without a text style of its own has the drawing's current one.
KdDbObjectId textStyleOf(const KdDbTable& table, int row, int col) {
    const KdDbObjectId own = table.textStyle(row, col);
    return own.isNull() && table.database() != nullptr ? table.database()->textstyle() : own;
}

CellLooks looksOf(const KdDbTable& table, int row, int col) {
    return {textStyleOf(table, row, col), table.textHeight(row, col), table.alignment(row, col),
            table.contentColor(row, col), table.backgroundColor(row, col)};
}

/// Tells the table and the field engine that a cell is in the editor, for the time of the editor's run.
class InEdit {
public:
    InEdit(KdDbTable& table, int row, int col) : m_row(row), m_column(col) {
        KdFdFieldEngine* engine = kddbGetFieldEngine();
        m_engine = engine == nullptr ? nullptr : engine->extension();
        if (m_engine != nullptr) m_engine->setCellInEdit(table.objectId(), row, col);
    }
    ~InEdit() {
        if (m_engine != nullptr) m_engine->setCellInEdit(KdDbObjectId::kNull, m_row, m_column);
    }
    InEdit(const InEdit&) = delete;
    InEdit& operator=(const InEdit&) = delete;

private:
    KdFdFieldEnginePE* m_engine = nullptr;
    int m_row;
    int m_column;
};

/// The table open for read only, with its cells readable by all, for the scope's time.
class ReadOnlyFor {
public:
    explicit ReadOnlyFor(KdDbTable& table) : m_table(table), m_downgraded(table.downgradeOpen() == Kdad::eOk) {}
    ~ReadOnlyFor() {
        if (m_downgraded) m_table.upgradeOpen();
    }
    ReadOnlyFor(const ReadOnlyFor&) = delete;
    ReadOnlyFor& operator=(const ReadOnlyFor&) = delete;
    explicit operator bool() const { return m_downgraded; }

private:
    KdDbTable& m_table;
    bool m_downgraded;
};

/// Grips and the selected cells would stand in the editor's way.
void dropSelection(KdDbTable& table) {
    const ReadOnlyFor scope(table);
    if (!scope) return;
    if (KdadPickfirstProc* pickfirst = kdadGetPickfirstProc()) pickfirst->doAction(9);
    table.clearSubSelection();
    kded_name name{};
    if (kddbGetKfsName(name, table.objectId()) == Kdad::eOk) kddbEntUpd(name);
}

class CellEditor {
public:
    CellEditor(KdDbTable& table, int row, int col)
        : m_table(table),
          m_row(row),
          m_column(col),
          m_looks(looksOf(table, row, col)),
          m_box(cellTextBox(table, row, col)),
          m_location(cellTextLocation(table, row, col, m_box, m_looks.alignment)) {}

    int run(int& key, int mode, const KdString& firstContents) {
        // The null cell: the table isn't told which one is edited.
        kddbBeginInPlaceEdit(&m_table, KdCell(), -1);
        dropSelection(m_table);
        const std::unique_ptr<KdDbMText> text = makeText(firstContents);
        const int status = edit(*text, key, mode);
        kddbEndInPlaceEdit(&m_table, true);
        if (status != RTNORM) return status;
        // The table can't be had for writing again: the cell stays as it was, and no further one is edited.
        if (!m_table.isWriteEnabled()) {
            key = 0;
            return RTERROR;
        }
        writeCellText(*text, m_table, m_row, m_column, m_loaded);
        writeLooks(*text);
        return status;
    }

private:
    std::unique_ptr<KdDbMText> makeText(const KdString& firstContents) {
        auto text = std::make_unique<KdDbMText>();
        text->setDatabaseDefaults(m_table.database());
        text->setLocation(m_location);
        text->setNormal(m_table.normal());
        text->setTextStyle(m_looks.textStyle);
        giveContents(*text, firstContents);
        text->setAttachment(static_cast<KdDbMText::AttachmentPoint>(m_looks.alignment));
        text->setLayer(m_table.layerId());
        text->setColor(m_looks.color);
        text->setTextHeight(m_looks.textHeight);
        text->setHeight(m_box.textHeight());
        text->setWidth(m_box.textWidth());
        kddbSetMtextRotation(text.get(), m_table.rotation());
        text->setDirection(m_table.direction());
        if (!m_looks.background.isNone()) giveBackground(*text);
        return text;
    }

    void giveContents(KdDbMText& text, const KdString& firstContents) {
        if (!firstContents.isEmpty()) {
            text.setContents(firstContents.kwszPtr());
            return;
        }
        const int content = m_table.contentType(m_row, m_column);
        const KdString cellText =
            content == KdDb::kCellContentTypeValue ? m_table.textString(m_row, m_column) : KdString();
        if (!cellText.isEmpty()) {
            text.setContents(cellText.kwszPtr());
        } else if (content == KdDb::kCellContentTypeField) {
            m_loaded = loadCellField(text, m_table.fieldId(m_row, m_column), m_table);
        }
    }

    void giveBackground(KdDbMText& text) const {
        text.setBackgroundFill(true);
        text.setBackgroundFillColor(m_looks.background);
        text.setBackgroundScaleFactor(1.0);
        text.setUseBackgroundColor(false);
    }

    int edit(KdDbMText& text, int& key, int mode) {
        const ReadOnlyFor scope(m_table);
        const InEdit inEdit(m_table, m_row, m_column);
        KdDbMText* edited = &text;
        return invokeMTextEditorForTable(edited, key, mode);
    }

    void writeLooks(const KdDbMText& text) {
        const auto alignment = static_cast<KdDb::CellAlignment>(text.attachment());
        if (alignment != m_looks.alignment) m_table.setAlignment(m_row, m_column, alignment);
        if (text.textHeight() != m_looks.textHeight) m_table.setTextHeight(m_row, m_column, text.textHeight());
        if (text.textStyle() == m_looks.textStyle || text.textStyle().isNull()) return;
        // The colour goes with the style alone, and a new style's own height yields to the text's.
        m_table.setTextStyle(m_row, m_column, text.textStyle());
        if (text.color() != m_looks.color) m_table.setContentColor(m_row, m_column, text.color());
        m_table.setTextHeight(m_row, m_column, text.textHeight());
    }

    KdDbTable& m_table;
    int m_row;
    int m_column;
    CellLooks m_looks;
    CellTextBox m_box;
    KdGePoint3d m_location;
    LoadedField m_loaded;
};

}  // namespace

int editTableCell(KdDbTable* table, int row, int col, int& key, const CStdStr<wchar_t>& typedText, bool firstCell,
                  KdString prefill) {
    const int keyBefore = std::exchange(key, 0);
    if (table == nullptr || row < 0 || row >= table->numRows() || col < 0 || col >= table->numColumns()) return RTERROR;

    int mode = firstCell ? kMTextEditorSelectAll : kMTextEditorFromNeighbour;
    KdString contents;
    if (!typedText.empty() && keyBefore == 0) {
        contents = typedText.c_str();
        if (firstCell) mode = kMTextEditorCaretAtEnd;
    } else if (!prefill.isEmpty()) {
        contents = std::move(prefill);
        mode = kMTextEditorCaretAtEnd;
    }
    return CellEditor(*table, row, col).run(key, mode, contents);
}
