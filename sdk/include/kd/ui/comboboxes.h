// The host's combo boxes: texts, colours, line weights, line types. Each wraps a KdUiComboBox and fills it.
#pragma once

#include <QMetaType>

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "mfc/combobox.h"

class KdDbDatabase;

class CKdUiStringComboBox : public CComboBox {};

/// A list of recently used entries with an entry "other" at its end, which opens a dialog of the host's.
class CKdUiMRUComboBox : public CComboBox {
public:
    CKdUiMRUComboBox();
    ~CKdUiMRUComboBox() override;

    /// Puts the box's entries into the widget; control is the number of its tool tip's text, 0 for none.
    virtual bool Create(QWidget* widget, unsigned control = 0);
    void Attach(QWidget* widget) override;
    /// Fills the box afresh.
    void AddItems();

    /// Bits of the drop-down state: 0x20 and 0x40 are set while the list is open and a row is looked for.
    unsigned dropFlags() const { return m_dropFlags; }
    void clearDropFlags(unsigned flags) { m_dropFlags &= ~flags; }

    /// The user's choice is final; the "other" entry opens its dialog.
    virtual void OnSelEndOk();
    virtual void OnCloseUp();
    int GetLastSelection() const { return m_lastSelection; }
    void SetLastSelection(int row) { m_lastSelection = row; }
    /// Text of the "other" entry; empty when the box has none.
    virtual CStdStr<wchar_t> GetOtherName() const;
    /// Opens the host's dialog for the "other" entry. True when an entry was chosen, which is then selected;
    /// otherwise the row before is selected again.
    virtual bool SelectOther(int flag);

protected:
    virtual void OnAddItems() = 0;
    int m_lastSelection = 0;
    unsigned m_dropFlags = 0;
};

/// What a row of a colour box stands for; held under the item role 258.
struct ColorItemData {
    int kind = 0;  ///< -102 a special entry, -1 none, 1 an index colour, -3 a true colour
    KdCmColor color;
};
Q_DECLARE_METATYPE(ColorItemData)
inline constexpr int kColorItemRole = 258;

/// Rows: by layer, by block, the seven standard colours, recently used ones, "other". Adding or choosing a
/// row does not signal.
class CKdUiTrueColorComboBox : public CKdUiMRUComboBox {
public:
    /// -1 when no row has the colour.
    int FindItemByColor(const KdCmColor& color) const;
    /// Adds a row for the colour before "other"; returns its index. A colour that has a row keeps it.
    int AddColorToMRU(const KdCmColor& color);
    /// False when no row is selected.
    virtual bool GetCurrentItemColor(KdCmColor& color) const;
    CStdStr<wchar_t> GetOtherName() const override;
    bool SelectOther(int flag) override;

protected:
    void OnAddItems() override;
    /// Opens the colour dialog on `current`; false when it is cancelled.
    virtual bool GetOtherColor(KdCmColor& current);
};

/// Rows: by layer, by block, default, then the host's weights.
class CKdUiLineWeightComboBox : public CKdUiMRUComboBox {
public:
    int FindItemByLineWeight(KdDb::LineWeight weight) const;
    /// By layer when no row is selected.
    KdDb::LineWeight GetCurrentItemLineWeight() const;
    void SetCurrentItemLineWeight(KdDb::LineWeight weight);

protected:
    void OnAddItems() override;
};

/// Rows: the line types of the working database, then "other". The item data is the line type's id.
class CKdUiLineTypeComboBox : public CKdUiMRUComboBox {
public:
    void setDatabase(KdDbDatabase* database);
    int FindItemByLinetype(KdDbObjectId linetype) const;
    /// Null when no row is selected or the row stands for none.
    KdDbObjectId GetItemLinetype(int row) const;
    CStdStr<wchar_t> GetOtherName() const override;
    bool SelectOther(int flag) override;

protected:
    void OnAddItems() override;

private:
    KdDbDatabase* m_database = nullptr;
};
