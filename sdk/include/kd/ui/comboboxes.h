// The host's combo boxes: texts, colours, line weights, line types. Each wraps a KdUiComboBox and fills it.
#pragma once

#include <QMetaType>
#include <memory>

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "mfc/combobox.h"

class KdDbDatabase;

class CKdUiStringComboBox : public CComboBox {};

/// A list of entries, recently used ones among them, with an entry "other" at its end that opens a dialog of
/// the host's.
///
/// A widget that is attached is filled at once, and shows the first row. Neither filling nor choosing a row
/// from the program signals. When the user chooses "other" and no handler has opened its dialog, the box does;
/// the row it then shows is no signal either.
class CKdUiMRUComboBox : public CComboBox {
public:
    CKdUiMRUComboBox();
    ~CKdUiMRUComboBox() override;

    /// Attaches the widget; `control` is the number of its tool tip's text in the resource module, 0 for none.
    /// False for a widget that is neither a combo box nor a list; nothing is attached then.
    virtual bool Create(QWidget* widget, unsigned control = 0);
    void Attach(QWidget* widget) override;
    /// Fills the box afresh; the row with the text shown before stays chosen, else the first one is.
    void AddItems();
    int SetCurSel(int row) override;

    /// Bits of the drop-down state: 0x20 is set while the list is open, 0x40 until a row is chosen in it.
    unsigned dropFlags() const { return m_dropFlags; }
    void clearDropFlags(unsigned flags) { m_dropFlags &= ~flags; }

    /// The user's choice is final: the "other" entry opens its dialog, any other row is remembered.
    virtual void OnSelEndOk();
    /// The list is closed, if it is still open.
    virtual void OnCloseUp();
    /// The row that was chosen last and is not "other"; -1 when there is none.
    int GetLastSelection() const { return m_lastSelection; }
    void SetLastSelection(int row) { m_lastSelection = row; }
    /// Text of the "other" entry, as the box was filled with it, whatever the language is by now; empty when the box
    /// has none.
    virtual CStdStr<wchar_t> GetOtherName() const;
    /// Opens the host's dialog for the "other" entry. True when an entry was chosen, which is then selected;
    /// otherwise the row before is selected again. False at once while the dialog is open already.
    virtual bool SelectOther(int flag);
    /// The row with that very text; -1 when there is none.
    virtual int FindOtherItem(const wchar_t* text) const;

protected:
    virtual void OnAddItems() = 0;
    /// Asks for another entry; `item` is the row chosen before. On true `out` is the row of the entry chosen;
    /// on false it stays as it is, which is the row before.
    virtual bool OnSelectOther(bool flag, int item, int& out);
    /// Gives a row the picture that the box paints for it.
    virtual void DrawItemImage(int row);
    bool isOther(int row) const;
    /// The text of the "other" entry that stands in the box; `now` for a box that isn't filled.
    CStdStr<wchar_t> otherNameOr(const std::wstring& now) const;

    int m_lastSelection = -1;
    unsigned m_dropFlags = 0;

private:
    class Watch;
    void chooseOtherOfUser();

    std::unique_ptr<Watch> m_watch;
    bool m_asking = false;
    CStdStr<wchar_t> m_otherName;  ///< in the filled box
};

/// What a row of a colour box stands for; held under the item role 258.
struct ColorItemData {
    int kind = 0;  ///< -102 a special entry, -1 none, 1 an index colour, -3 a true colour
    KdCmColor color;
};
Q_DECLARE_METATYPE(ColorItemData)
inline constexpr int kColorItemRole = 258;

/// Rows: by layer, by block, the seven standard colours, recently used ones, "other". The rows of by layer, by
/// block and "other" are special entries.
class CKdUiTrueColorComboBox : public CKdUiMRUComboBox {
public:
    /// -1 when no row has the colour.
    int FindItemByColor(const KdCmColor& color) const;
    /// Adds a row for the colour before "other"; returns its index. A colour that has a row keeps it. Boxes
    /// that are filled later have the last eight colours so added.
    int AddColorToMRU(const KdCmColor& color);
    /// False, and the colour as it was, when no row is selected or the row is "other".
    virtual bool GetCurrentItemColor(KdCmColor& color) const;
    CStdStr<wchar_t> GetOtherName() const override;

protected:
    void OnAddItems() override;
    bool OnSelectOther(bool flag, int item, int& out) override;
    void DrawItemImage(int row) override;
    /// Opens the colour dialog on `current`; false when it is cancelled.
    virtual bool GetOtherColor(KdCmColor& current);

private:
    int addColorRow(int row, const KdCmColor& color);
};

/// Rows: by layer, by block, default, then the host's weights.
class CKdUiLineWeightComboBox : public CKdUiMRUComboBox {
public:
    /// -1 when no row has the weight.
    int FindItemByLineWeight(KdDb::LineWeight weight) const;
    /// By layer when no row is selected.
    KdDb::LineWeight GetCurrentItemLineWeight() const;
    /// A weight that has no row leaves none selected.
    void SetCurrentItemLineWeight(KdDb::LineWeight weight);

protected:
    void OnAddItems() override;
    void DrawItemImage(int row) override;
};

/// Rows: by layer, by block, the database's other line types, then "other". The item data is the line type's
/// id. Without a database given it is the working database's; without any only "other" is there.
class CKdUiLineTypeComboBox : public CKdUiMRUComboBox {
public:
    /// Fills the box afresh when a widget is attached.
    void setDatabase(KdDbDatabase* database);
    int FindItemByLinetype(KdDbObjectId linetype) const;
    /// Null when no row is selected or the row stands for none.
    KdDbObjectId GetItemLinetype(int row) const;
    CStdStr<wchar_t> GetOtherName() const override;

protected:
    void OnAddItems() override;
    bool OnSelectOther(bool flag, int item, int& out) override;
    void DrawItemImage(int row) override;

private:
    KdDbDatabase* database() const;

    KdDbDatabase* m_database = nullptr;
};
