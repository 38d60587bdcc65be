// The floating toolbar: a small window that offers the commands for the selected cells of one table.
//
// It follows the table through a reactor and enables its controls by the tests that gate the other roads of editing.
// It edits nothing by itself: every control ends in an operation of CVqTableCommon, formulas in a macro.
#pragma once

#include <QFont>
#include <QIcon>
#include <QList>
#include <QString>
#include <array>
#include <cstdint>
#include <map>
#include <memory>

#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/rx/kdstring.h"
#include "kd/ui/basedialog.h"
#include "mfc/collections.h"
#include "module/controls/comboboxes.h"
#include "module/controls/tablecolorcombobox.h"
#include "module/edit/tabletoolbar.h"
#include "module/edit/toolbar/tableobjectreactor.h"
#include "module/edit/toolbar/toolbartable.h"

class KdCmColor;
class KdDbTable;
class KdUiComboBox;
class KdUiPushButton;
class QToolBar;
class VqTableditMenu;

class CVqTableditMiniFrameWnd : public KdUiBaseDialog {
public:
    /// Without the widget tree of the resource module the window is empty.
    CVqTableditMiniFrameWnd();
    ~CVqTableditMiniFrameWnd() override;

    // The operations that can be replaced, in the order of their slots.

    /// Every key belongs to the drawing, so that typing goes on with the toolbar in front.
    void keyPressEvent(QKeyEvent* event) override;
    /// Makes the controls for the screen's scale and places the window. `parent` is not used.
    virtual bool CreateToolBar(QWidget* parent, const KdString& title);
    /// Opens the menu behind the arrow of the control of that name.
    virtual void CreatePopupMenu(const char* name);
    /// Carries out a command of the menus. True for every number of theirs, also when the table is gone or lies on a
    /// locked layer and nothing is done; false for any other number.
    virtual bool OnCommandId(unsigned number);

    // Following a table.

    KdDbObjectId tableId() const { return m_tableId; }
    /// Follows the table instead of the one before.
    void AddReactor(KdDbObjectId id);
    void RemoveReactor();
    /// Shows how the table and its selection stand. Nothing happens while the table can't be opened for read, as
    /// within an operation that has it open for write, and without selected cells.
    void UpdateToolBar();
    /// Makes the window as large as its controls.
    void CalculateWindowSize();
    /// While true the drawing has the plain arrow; false puts the cursor's state back.
    void SetCursorAndLock(bool lock);

    // Handlers of the controls.

    void OnInsertRowByAbove();
    void InsertRowByBelow();
    void OnDeleteRows();
    void OnInsertColumnByLeft();
    void OnInsertColumnByRight();
    void OnDeleteColumns();
    void OnMergeCells();
    void OnUnmergeCells();
    void OnBackgroundColor();
    void OnBorders();
    /// Repeats the alignment that the button shows.
    void OnAlignment();
    void OnLocking();
    void OnDataFormat();
    void OnInsertFormulas();
    void OnCellStyle();

    // Handlers of buttons that this toolbar doesn't have: each holds its place and does nothing.

    void OnInsetBlock() {}
    void OnInsertField() {}
    void OnManageCellContent() {}
    void OnMatchCell() {}
    void OnJustificationMenu() {}

protected:
    /// Tab is a key for the drawing like any other.
    bool focusNextPrevChild(bool) override { return false; }

private:
    // Building.

    void InitUIWidget(const QString& strip, double scale);
    void CreateToolBarWidget(const ToolbarRow& row, double scale);
    QWidget* makeButton(const ToolbarRow& row, double scale);
    QWidget* makeCombo(const ToolbarRow& row, double scale);
    void SetToolTips(QWidget& widget, unsigned tipText);

    // State.

    void SetToolbarState(const KdDbTable& table);
    void SetToolbarInsertAndDeleteState(const KdDbTable& table);
    void updateToolbar();
    void SetAlignmentImage(const KdDbTable& table);
    void SetBackgroundColorSel(const KdDbTable& table);
    void setEnabledState(ToolbarControl which, bool enabled);
    bool showsColor(const KdCmColor& color) const;

    // Commands.

    bool CheckSelectCellValid() const;
    void editCheckedSelection(int (*edit)(KdDbObjectId));
    void TrackPopupMenu(unsigned number);
    VqTableditMenu& menuOf(std::size_t place);
    template <class SetState>
    void showMenuState(SetState setState, VqTableditMenu& menu);
    /// A row of a list was chosen: keys are the drawing's again.
    void giveKeysBack();

    // Cell styles.

    void LoadCellStyleFromDatabase();
    void AddCellStyleName(const CStdStr<wchar_t>& name);
    void FillCellStyleComboBox();
    void AddCellStyle();
    void AddCellStyleManager();
    /// Fills the list anew when the table's style is another than the one shown.
    void followTableStyle(const KdDbTable& table);
    KdDbObjectId tableStyleId() const;
    void LaunchCreateCellStyleDlg();
    void LaunchManageCellStyleDlg();

    /// A control and its entry of the map, so that an update looks up no name. Both null in an empty window.
    struct Switch {
        QWidget* widget = nullptr;
        int* enabled = nullptr;
    };
    Switch& switchOf(ToolbarControl which) { return m_switches[static_cast<std::size_t>(which)]; }

    QToolBar* m_toolBar = nullptr;  ///< a child of the window
    QList<QIcon> m_icons;           ///< by their places in the strip
    std::map<QString, QWidget*> m_widgetByName;
    CVqTableColorComboBox m_colorCombo;
    CVqSpecialComboBox m_cellStyleCombo;
    QFont m_font;  ///< of the lists
    KdDbObjectId m_tableId;
    KdDb::CellAlignment m_alignment = KdDb::kTopLeft;  ///< the one last shown
    std::map<QString, int> m_buttonEnabled;            ///< by name; 1 enabled, 0 not
    std::map<QString, int> m_buttonChecked;            ///< nothing fills it: no button stays pressed
    CStringArray m_cellStyleNames;                     ///< display names
    std::unique_ptr<VqTableObjectReactor> m_reactor;
    double m_x = 0.0;  ///< where the window was placed
    double m_y = 0.0;
    std::int64_t m_savedCursorState = 0;

    std::array<Switch, kToolbarControls> m_switches;
    QString m_imageEnding;               ///< of the images for the screen's scale
    const char* m_shownImage = nullptr;  ///< of the alignment button; null for the strip's
    CStdStr<wchar_t> m_noFillText;       ///< as the list of colours has it
    KdDbObjectId m_shownStyleId;         ///< whose cell styles are listed
    std::array<std::unique_ptr<VqTableditMenu>, kToolbarMenus> m_menus;  ///< made when first shown

    static int m_nComboBoxIndex;  ///< row of the list of cell styles that was chosen last
};
