// Edits that ask by a dialog: colours, data formats, and the name of a new cell style.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QTimer>
#include <optional>

#include "host/ed/display.h"
#include "host/ui/automation/automation.h"
#include "host/ui/dialogs/colorpalette.h"
#include "host/win32/modules.h"
#include "kd/ad/mainapp.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/resbuf.h"
#include "module/core/cellstylewalk.h"
#include "module/edit/edittablecell.h"
#include "tests/module/core/editfixture.h"
#include "tests/support/configfolder.h"
#include "tests/support/modalacts.h"
#include "tests/support/objects.h"
#include "win32/registry.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;
namespace automation = kdhost::automation;

class AskingEdits : public TableEdits {
protected:
    /// Acts on the modal dialog that comes next; one that does not come fails the test.
    void next(ModalActs::Act act) { m_dialogs.next(std::move(act)); }
    void TearDown() override {
        m_dialogs.expectAllCame();
        kdhost::setLanguage(kdhost::Language::English);
        TableEdits::TearDown();
    }
    /// No dialog may come from here on.
    void expectNoDialog() {
        QTimer::singleShot(0, qApp, [] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            ADD_FAILURE() << "a dialog came";
            dialog->close();
        });
    }

    /// `shown` gets the index that the dialog starts from.
    void nextColor(const char* answer, int* shown = nullptr) {
        next([=](QWidget& dialog) {
            if (shown != nullptr)
                *shown = dialog.findChild<kdhost::ColorPalette*>(QStringLiteral("IDC_COLOR_PALETTE"))->index();
            EXPECT_EQ(automation::color(QString::fromLatin1(answer).toStdWString()), L"");
        });
    }

    /// Of the cells of the first row; any unit where none is given.
    static void expectDataType(const KdDbTable& table, KdValue::DataType type,
                               std::optional<KdValue::UnitType> unit = std::nullopt) {
        for (int column = 0; column < table.numColumns(); ++column) {
            auto found = KdValue::kUnknown;
            auto foundUnit = KdValue::kUnitless;
            table.getDataType(0, column, found, foundUnit);
            EXPECT_EQ(found, type) << column;
            EXPECT_EQ(foundUnit, unit.value_or(foundUnit)) << column;
        }
    }

    KdDbObjectId addTable(TableBuilder& builder) { return add(builder.style(host.database().tablestyle())); }
    KdDbObjectId addTable(TableBuilder&& builder) { return addTable(builder); }
    void setLayerColor(const KdCmColor& color) {
        OpenObject<KdDbLayerTableRecord>(host.database().clayer(), KdDb::kForWrite)->setColor(color);
    }

private:
    ModalActs m_dialogs;
};

TEST_F(AskingEdits, SetBackgroundColorFormMenu_fills_the_selected_cells_in_one_step) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    const std::string before = describe(look(table));
    nextColor("1,2,3");
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_EQ(look(table).backgroundColor(0, 1), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_TRUE(look(table).backgroundColor(1, 1).isNone());
    EXPECT_EQ(steps().back(), L"BackgroundFill");
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(AskingEdits, SetBackgroundColorFormMenu_takes_by_layer_and_by_block_too) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    nextColor("byblock");
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_TRUE(look(table).backgroundColor(0, 0).isByBlock());
    nextColor("bylayer");
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_TRUE(look(table).backgroundColor(0, 0).isByLayer());
}

TEST_F(AskingEdits, SetBackgroundColorFormMenu_cancelled_changes_nothing) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    const auto stepsBefore = steps();
    nextColor("CANCEL");
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_TRUE(look(table).backgroundColor(0, 0).isNone());
    EXPECT_EQ(steps(), stepsBefore);
}

TEST_F(AskingEdits, SetBackgroundColorFormMenu_asks_nothing_for_a_table_that_cannot_be_opened) {
    expectNoDialog();
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(KdDbObjectId::kNull), 1);
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    QApplication::processEvents();
}

TEST_F(AskingEdits, The_colour_of_the_cells_never_reaches_the_dialog_which_starts_from_the_layers) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    Common::SetBackgroundColor(table, KdCmColor::fromIndex(1));
    setLayerColor(KdCmColor::fromIndex(77));
    int shown = 0;
    nextColor("CANCEL", &shown);
    Common::SetBackgroundColorFormMenu(table);
    EXPECT_EQ(shown, 77);

    KdCmColor color = KdCmColor::fromIndex(5);
    nextColor("CANCEL", &shown);
    EXPECT_FALSE(Common::GetColorDialogTrueColor(color, true));
    EXPECT_EQ(shown, 77);
    EXPECT_EQ(color, KdCmColor::fromIndex(77)) << "the caller's colour is lost";
}

TEST_F(AskingEdits, The_dialog_starts_from_the_colour_of_the_current_layer_whatever_layer_that_is) {
    setLayerColor(KdCmColor::fromIndex(77));
    const auto makeGreen = [](KdDbLayerTableRecord& layer) { layer.setColor(KdCmColor::fromIndex(42)); };
    host.database().setClayer(addRecord<KdDbLayerTableRecord>(host.database().layerTableId(), L"Walls", makeGreen));
    int shown = 0;
    nextColor("CANCEL", &shown);
    Common::SetBackgroundColorFormMenu(addTable(TableBuilder(1, 1).select("A1")));
    EXPECT_EQ(shown, 42);
}

TEST_F(AskingEdits, Cells_without_a_fill_offer_by_layer_where_the_layer_cannot_be_opened) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    const OpenObject<KdDbLayerTableRecord> writer(host.database().clayer(), KdDb::kForWrite);
    next([](QWidget&) {
        EXPECT_EQ(automation::expect(L"IDC_COLOR_NAME_STATIC", L"text", L"By layer"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_TRUE(look(table).backgroundColor(0, 0).isByLayer());
}

TEST_F(AskingEdits, The_colour_given_reaches_the_dialog_just_when_the_layer_cannot_be_opened) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    Common::SetBackgroundColor(table, KdCmColor::fromIndex(3));
    setLayerColor(KdCmColor::fromIndex(77));
    const OpenObject<KdDbLayerTableRecord> writer(host.database().clayer(), KdDb::kForWrite);
    KdCmColor color = KdCmColor::fromIndex(5);
    int shown = 0;
    nextColor("9", &shown);
    EXPECT_TRUE(Common::GetColorDialogTrueColor(color, true));
    EXPECT_EQ(shown, 5);
    EXPECT_EQ(color, KdCmColor::fromIndex(9));

    nextColor("CANCEL", &shown);
    Common::SetBackgroundColorFormMenu(table);
    EXPECT_EQ(shown, 3) << "that of the cells";
}

TEST_F(AskingEdits, SetTableIndicator_keeps_the_colour_chosen_and_offers_no_meta_colours) {
    const KdCmColor before = [] {
        KdCmColor color;
        EXPECT_TRUE(vqcadMainAppService()->tableIndicatorColor(color));
        return color;
    }();
    const auto kept = [] {
        KdCmColor color;
        vqcadMainAppService()->tableIndicatorColor(color);
        return color;
    };
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    nextColor("CANCEL");
    EXPECT_TRUE(Common::SetTableIndicator(table));
    EXPECT_EQ(kept(), before);
    next([](QWidget&) {
        EXPECT_NE(automation::color(L"bylayer"), L"");
        EXPECT_EQ(automation::color(L"11,22,33"), L"");
    });
    EXPECT_TRUE(Common::SetTableIndicator(KdDbObjectId::kNull)) << "it is one colour for all tables";
    EXPECT_EQ(kept(), KdCmColor::fromRgb(11, 22, 33));
    vqcadMainAppService()->setTableIndicatorColor(before);
}

TEST_F(AskingEdits, SetTableIndicator_asks_nothing_where_the_colour_cannot_be_read) {
    const ConfigFolder folder;
    vqcadMainAppService()->setTableIndicatorColor(KdCmColor::fromIndex(5));
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\KdHost\\Profiles\\Default", 0, KEY_WRITE, &key),
              ERROR_SUCCESS);
    const BYTE text[] = {65, 0, 0, 0};
    EXPECT_EQ(RegSetValueExW(key, L"TableIndicatorColor", 0, REG_SZ, text, sizeof text), ERROR_SUCCESS);
    RegCloseKey(key);
    KdCmColor color;
    ASSERT_FALSE(vqcadMainAppService()->tableIndicatorColor(color));
    expectNoDialog();
    EXPECT_FALSE(Common::SetTableIndicator(KdDbObjectId::kNull));
    QApplication::processEvents();
}

/// What the data format dialog shows.
struct ShownFormat {
    QString type;
    QString unit;
    QString sample;
};
ShownFormat shownFormat(QWidget& dialog) {
    const auto box = [&](const char* name) {
        return dialog.findChild<QComboBox*>(QString::fromLatin1(name))->currentText();
    };
    return {box("IDC_DATAFORMAT_TYPE_COMBOBOX"), box("IDC_DATAFORMAT_UNIT_COMBOBOX"),
            dialog.findChild<QLabel*>(QStringLiteral("IDC_DATAFORMAT_PREVIEW_STATIC"))->text()};
}

TEST_F(AskingEdits, SetDataFormat_gives_type_unit_and_format_to_the_selected_cells_in_one_step) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    Common::SetDataType(table, KdValue::kDouble, KdValue::kUnitless);
    const std::string before = describe(look(table));
    next([](QWidget& dialog) {
        EXPECT_EQ(shownFormat(dialog).sample, QStringLiteral("845.34786"));
        EXPECT_EQ(automation::select(L"IDC_DATAFORMAT_UNIT_COMBOBOX", L"Currency"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    expectDataType(look(table), KdValue::kDouble, KdValue::kCurrency);
    for (int column = 0; column < 2; ++column) {
        EXPECT_STRNE(look(table).format(0, column), L"");
        EXPECT_STREQ(look(table).format(1, column), L"");
    }
    EXPECT_EQ(steps().back(), L"SetDataFormat");
    {
        const ResourceScope resources;
        EXPECT_EQ(undoHistory().undoTitle(), loadText(2233));
    }
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(AskingEdits, SetDataFormat_shows_the_sample_of_each_type_and_unit) {
    const std::pair<std::pair<KdValue::DataType, KdValue::UnitType>, const char*> samples[] = {
        {{KdValue::kLong, KdValue::kUnitless}, "20040901"},
        {{KdValue::kDouble, KdValue::kUnitless}, "845.34786"},
        {{KdValue::kString, KdValue::kUnitless}, "样例文字"},
        {{KdValue::kGeneral, KdValue::kUnitless}, "样例文字"},
    };
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    for (const auto& [pair, sample] : samples) {
        Common::SetDataType(table, pair.first, pair.second);
        QString shown;
        next([&](QWidget& dialog) {
            shown = shownFormat(dialog).sample;
            EXPECT_EQ(automation::click(L"IDCANCEL"), L"");
        });
        EXPECT_EQ(Common::SetDataFormat(table), 1);
        EXPECT_EQ(shown, QString::fromUtf8(sample)) << pair.first;
    }
}

TEST_F(AskingEdits, SetDataFormat_starts_from_the_first_cells_format) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B2"));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        open->setDataType(-1, -1, KdValue::kDouble, KdValue::kUnitless);
        open->setDataFormat(-1, -1, L"%lu2%pr1");
        open->setDataFormat(0, 0, L"%lu2%pr4");
    }
    next([](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QSpinBox*>(QStringLiteral("IDC_DATAFORMAT_PRECISION_SPIN"))->value(), 4);
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    EXPECT_STREQ(look(table).format(0, 1), L"%lu2%pr4");
    EXPECT_STREQ(look(table).format(1, 0), L"%lu2%pr4");
}

TEST_F(AskingEdits, SetDataFormat_shows_the_sample_in_the_units_of_the_drawing) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        open->setDataType(0, 0, KdValue::kDouble, KdValue::kUnitless);
        open->setDataFormat(0, 0, L"%pr2");
    }
    const std::pair<int, const char*> units[] = {{1, "8.45E+02"}, {2, "845.35"}};
    for (const auto& [unit, sample] : units) {
        ASSERT_EQ(host.database().setLunits(unit), Kdad::eOk);
        QString shown;
        next([&](QWidget& dialog) {
            shown = shownFormat(dialog).sample;
            EXPECT_EQ(automation::click(L"IDCANCEL"), L"");
        });
        EXPECT_EQ(Common::SetDataFormat(table), 1);
        EXPECT_EQ(shown, QString::fromLatin1(sample));
    }
}

TEST_F(AskingEdits, SetDataFormat_leaves_the_display_to_the_host_and_colours_update_it) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).select("A1"));
    kdhost::updateDisplay();
    ASSERT_TRUE(kdhost::queuedForRedraw().empty());
    next([](QWidget&) {
        EXPECT_EQ(automation::select(L"IDC_DATAFORMAT_TYPE_COMBOBOX", L"Text"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    EXPECT_EQ(kdhost::queuedForRedraw(), std::vector{table});
    nextColor("3");
    EXPECT_EQ(Common::SetBackgroundColorFormMenu(table), 1);
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
}

TEST_F(AskingEdits, SetDataFormat_starts_from_the_unit_of_the_cells) {
    const KdDbObjectId table = addTable(TableBuilder(1, 2).select("A1:B1"));
    for (const auto kept : {KdValue::kUnitless, KdValue::kAngle, KdValue::kCurrency, KdValue::kPercentage}) {
        Common::SetDataType(table, KdValue::kDouble, kept);
        next([](QWidget&) { EXPECT_EQ(automation::click(L"IDOK"), L""); });
        EXPECT_EQ(Common::SetDataFormat(table), 1);
        expectDataType(look(table), KdValue::kDouble, kept);
    }
}

TEST_F(AskingEdits, SetDataFormat_gives_cells_of_different_types_one_type_when_the_user_agrees) {
    const KdDbObjectId table = addTable(TableBuilder(1, 3).select("A1:C1"));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        open->setDataType(0, 0, KdValue::kDouble, KdValue::kCurrency);
        open->setDataType(0, 1, KdValue::kString, KdValue::kUnitless);
        open->setDataType(0, 2, KdValue::kDate, KdValue::kUnitless);
    }
    const std::string before = describe(look(table));
    next([](QWidget&) { EXPECT_EQ(automation::click(L"IDCANCEL"), L""); });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    EXPECT_EQ(describe(look(table)), before);
    next([](QWidget&) {
        EXPECT_EQ(automation::select(L"IDC_DATAFORMAT_TYPE_COMBOBOX", L"Text"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    expectDataType(look(table), KdValue::kString);
}

TEST_F(AskingEdits, SetDataFormat_cancelled_changes_nothing) {
    const KdDbObjectId table = addTable(TableBuilder(1, 2).select("A1:B1"));
    const std::string before = describe(look(table));
    const auto stepsBefore = steps();
    next([](QWidget&) {
        EXPECT_EQ(automation::select(L"IDC_DATAFORMAT_TYPE_COMBOBOX", L"Text"), L"");
        EXPECT_EQ(automation::key(L"ESC"), L"");
    });
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(steps(), stepsBefore);
}

TEST_F(AskingEdits, SetDataFormat_asks_nothing_without_a_table_a_selection_or_the_service) {
    expectNoDialog();
    EXPECT_EQ(Common::SetDataFormat(KdDbObjectId::kNull), 0);
    const KdDbObjectId table = addTable(TableBuilder(1, 2));
    EXPECT_EQ(Common::SetDataFormat(table), 1) << "nothing is selected";
    select(table, "A1:B1");
    {
        const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
        EXPECT_EQ(Common::SetDataFormat(table), 1);
    }
    OpenObject<KdDbLayerTableRecord>(look(table).layerId(), KdDb::kForWrite)->setIsLocked(true);
    EXPECT_EQ(Common::SetDataFormat(table), 1);
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(Common::SetDataFormat(table), 0);
    kdhost::faults() = {};
    QApplication::processEvents();
}

class NewCellStyles : public AskingEdits {
protected:
    std::vector<CStdStr<wchar_t>> names() {
        const ResourceScope resources;
        return cellStyleDisplayNames(*OpenObject<KdDbTableStyle>(host.database().tablestyle(), KdDb::kForRead));
    }
    void change(const std::function<void(KdDbTableStyle&)>& act) {
        act(*OpenObject<KdDbTableStyle>(host.database().tablestyle(), KdDb::kForWrite));
    }
    static std::vector<std::wstring> rows(QWidget& dialog) {
        const auto* box = dialog.findChild<QComboBox*>(QStringLiteral("IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX"));
        std::vector<std::wstring> found;
        for (int row = 0; row < box->count(); ++row) found.push_back(box->itemText(row).toStdWString());
        return found;
    }
};

TEST_F(NewCellStyles, The_walk_lists_the_defaults_by_their_display_names_and_then_the_users) {
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        const ResourceScope resources;
        EXPECT_EQ(names(), (std::vector<CStdStr<wchar_t>>{loadText(2038), loadText(2039), loadText(2037)}));
    }
}

TEST_F(NewCellStyles, The_walk_passes_over_the_indices_of_deleted_styles_until_it_has_all) {
    change([](KdDbTableStyle& style) {
        for (int number = 0; number < 40; ++number) {
            style.createCellStyle((L"S" + std::to_wstring(number)).c_str(), L"_DATA");
        }
        for (int number = 0; number < 39; ++number) style.deleteCellStyle((L"S" + std::to_wstring(number)).c_str());
    });
    const auto found = names();
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[3], L"S39");
}

TEST_F(NewCellStyles, CreateNewCellStyle_makes_the_style_that_the_dialog_names) {
    change([](KdDbTableStyle& style) {
        style.createCellStyle(L"Mine", L"_DATA");
        style.setTextHeight(11.0, L"_HEADER");
    });
    const KdDbObjectId table = addTable(TableBuilder(1, 1));
    next([&](QWidget& dialog) {
        EXPECT_EQ(rows(dialog), (std::vector<std::wstring>{L"Title", L"Header", L"Data", L"Mine"}));
        EXPECT_EQ(automation::expect(L"IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX", L"text", L"Title"), L"");
        EXPECT_EQ(automation::select(L"IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX", L"Header"), L"");
        EXPECT_EQ(automation::set(L"IDC_CREATECELLSTYLE_NEWNAME_EDIT", L"Totals"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    EXPECT_EQ(Common::CreateNewCellStyle(table), 1);
    EXPECT_EQ(names().back(), L"Totals");
    change([](KdDbTableStyle& style) { EXPECT_EQ(style.textHeight(L"Totals"), 11.0) << "the start style's"; });
    EXPECT_EQ(steps().back(), L"CreateCellStyle");
    {
        const ResourceScope resources;
        EXPECT_EQ(undoHistory().undoTitle(), loadText(2128));
    }
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(names().size(), 4U);
}

TEST_F(NewCellStyles, The_word_Newtablestyle_opens_the_dialog_whatever_is_locked) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1).lock("A1", static_cast<KdDb::CellState>(17)).select("A1"));
    EditTableCellGUI gui;
    EXPECT_FALSE(gui.canFormatEdit(table));
    EXPECT_FALSE(gui.canContentEdit(table));
    next([](QWidget&) {
        EXPECT_EQ(automation::set(L"IDC_CREATECELLSTYLE_NEWNAME_EDIT", L"Totals"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    host.type(L"Newtablestyle\nBAck\n");
    const ResourceScope resources;
    EXPECT_EQ(gui.editCell_Style(table), RTNORM);
    EXPECT_EQ(names().back(), L"Totals");
}

TEST_F(NewCellStyles, CreateNewCellStyle_cancelled_makes_none) {
    const KdDbObjectId table = addTable(TableBuilder(1, 1));
    const auto stepsBefore = steps();
    next([](QWidget&) { EXPECT_EQ(automation::click(L"IDCANCEL"), L""); });
    EXPECT_EQ(Common::CreateNewCellStyle(table), 1);
    EXPECT_EQ(names().size(), 3U);
    EXPECT_EQ(steps(), stepsBefore);
}

TEST_F(NewCellStyles, CreateNewCellStyle_asks_nothing_where_something_cannot_be_opened) {
    expectNoDialog();
    const KdDbObjectId table = addTable(TableBuilder(1, 1));
    EXPECT_EQ(Common::CreateNewCellStyle(KdDbObjectId::kNull), 1);
    {
        const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
        EXPECT_EQ(Common::CreateNewCellStyle(table), 1);
    }
    {
        const OpenObject<KdDbTableStyle> reader(host.database().tablestyle(), KdDb::kForRead);
        EXPECT_EQ(Common::CreateNewCellStyle(table), 1);
    }
    OpenObject<KdDbLayerTableRecord>(look(table).layerId(), KdDb::kForWrite)->setIsLocked(true);
    EXPECT_EQ(Common::CreateNewCellStyle(table), 1);
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(Common::CreateNewCellStyle(table), 0);
    kdhost::faults() = {};
    QApplication::processEvents();
}

}  // namespace
}  // namespace kdtest
