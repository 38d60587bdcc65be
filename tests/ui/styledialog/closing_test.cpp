// The two ways out of the dialog of table styles, the help, and the preview's variable.

#include <QApplication>
#include <QTextBrowser>

#include "host/ed/display.h"
#include "host/rx/faults.h"
#include "host/ui/help.h"
#include "kd/ad/mainapp.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "mfc/resource.h"
#include "module/core/resources.h"
#include "module/frame/tvxtableapp.h"
#include "module/style/lineweightsshown.h"
#include "tests/support/places.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

/// Counts the tellings of one object's changes.
class Watch : public KdDbObjectReactor {
public:
    explicit Watch(KdDbObjectId id) : m_id(id) { OpenObject<KdDbObject>(m_id, KdDb::kForRead)->addReactor(this); }
    ~Watch() override {
        const OpenObject<KdDbObject> open(m_id, KdDb::kForRead);
        if (open) open->removeReactor(this);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    void modified(const KdDbObject*) override { ++count; }

    int count = 0;

private:
    KdDbObjectId m_id;
};

class TableStyleDialogClosing : public TableStyleDialogTest {};

TEST_F(TableStyleDialogClosing, OK_draws_every_table_afresh_and_Cancel_none) {
    addStyle(L"Beta");
    Watch first(addTable(L"Standard"));
    Watch second(addTable(L"Beta"));
    EXPECT_EQ(run({click(L"IDCANCEL")}), 2);
    EXPECT_EQ(first.count + second.count, 0);
    EXPECT_EQ(run({click(L"IDOK")}), 1);
    EXPECT_EQ(first.count, 1);
    EXPECT_EQ(second.count, 1);
}

TEST_F(TableStyleDialogClosing, OK_passes_over_tables_on_a_locked_layer) {
    const KdDbObjectId locked = addTable(L"Standard");
    lockOnItsLayer(locked);
    Watch watch(locked);
    Watch other(addTable(L"Standard"));
    EXPECT_EQ(run({click(L"IDOK")}), 1);
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(other.count, 1);
}

TEST_F(TableStyleDialogClosing, OK_passes_over_tables_that_cannot_be_opened_or_whose_layer_cannot_be_read) {
    const KdDbObjectId busy = addTable(L"Standard");
    Watch watch(busy);
    Watch other(addTable(L"Standard"));
    std::unique_ptr<OpenObject<KdDbTable>> reader;
    EXPECT_EQ(run({[&] { reader = std::make_unique<OpenObject<KdDbTable>>(busy, KdDb::kForRead); }, click(L"IDOK")}),
              1);
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(other.count, 1);
    reader.reset();

    std::unique_ptr<OpenObject<KdDbLayerTableRecord>> writer;
    EXPECT_EQ(run({[&] {
                       writer =
                           std::make_unique<OpenObject<KdDbLayerTableRecord>>(drawing().layerZero(), KdDb::kForWrite);
                   },
                   click(L"IDOK")}),
              1);
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(other.count, 1);
}

TEST_F(TableStyleDialogClosing, Esc_and_the_frame_are_Cancel) {
    Watch watch(addTable(L"Standard"));
    EXPECT_EQ(run({key(L"ESC")}), 2);
    EXPECT_EQ(run({[] { QApplication::activeModalWidget()->close(); }}), 2);
    EXPECT_EQ(watch.count, 0);
}

TEST_F(TableStyleDialogClosing, Cancel_tells_the_main_service_which_paints_the_views_afresh_and_OK_does_not) {
    struct Screen : kdhost::Display {
        Screen() { kdhost::setDisplay(this); }
        ~Screen() override { kdhost::setDisplay(nullptr); }
        void redraw(const std::vector<KdDbObjectId>& ids) override { wholes += ids.empty() ? 1 : 0; }
        int wholes = 0;
    };
    kdhost::updateDisplay();
    Screen screen;
    run({click(L"IDOK")});
    EXPECT_EQ(screen.wholes, 0);
    run({click(L"IDCANCEL")});
    EXPECT_EQ(screen.wholes, 1);
}

TEST_F(TableStyleDialogClosing, Cancel_works_without_the_main_application_service) {
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(run({click(L"IDCANCEL")}), 2);
}

TEST_F(TableStyleDialogClosing, The_command_opens_it_on_the_drawing_and_puts_the_resources_back) {
    addStyle(L"Beta");
    AfxSetResourceHandle(nullptr);
    TvxTable.m_resourceInstance = resources().handle();
    const auto command = [] {
        TvxTableApp::TVX_TABLE_COMMANDSTABLESTYLE();
        return 0;
    };
    play(command, {expect(kList, L"rows", L"2"), expect(kFilter, L"text", L"All styles"), click(L"IDOK")});
    TvxTable.m_resourceInstance = nullptr;
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
}

TEST_F(TableStyleDialogClosing, Help_shows_the_page_of_table_styles_by_button_and_F1) {
    kdhost::setHelpFolder(kdtest::sourcePath("docs"));
    const auto closeHelp = [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != QStringLiteral("HelpWindow") || !window->isVisible()) continue;
            const QString page = window->findChild<QTextBrowser*>()->toPlainText();
            delete window;
            return page.section(QLatin1Char('\n'), 0, 0);
        }
        return QString();
    };
    const Step expectPage = [&] { EXPECT_EQ(closeHelp(), QStringLiteral("Table styles")); };
    run({click(L"IDHELP"), expectPage, key(L"F1"), expectPage, click(L"IDOK")});
    kdhost::setHelpFolder({});
}

// The preview's variable.

TEST_F(TableStyleDialogClosing, Line_weights_show_in_the_preview_and_the_variable_is_as_before) {
    addStyle(L"Beta");
    {
        const OpenObject<KdDbTableStyle> beta(style(L"Beta"), KdDb::kForWrite);
        beta->setGridLineWeight(KdDb::kLnWt211, static_cast<KdDb::GridLineType>(63), L"_DATA");
    }
    const auto pictureOfBeta = [&](short display) {
        setLineWeightDisplay(display);
        QImage picture;
        run({choose(kList, L"Beta"), [&] { EXPECT_EQ(lineWeightDisplay(), display); },
             [&] { picture = pictureIn(*dialog, "IDC_TABLESTYLE_PREVIEWPIC_STATIC"); }, click(L"IDOK")});
        EXPECT_EQ(lineWeightDisplay(), display);
        return picture;
    };
    const QImage shown = pictureOfBeta(1);
    EXPECT_FALSE(shown.isNull());
    EXPECT_EQ(pictureOfBeta(0), shown);
}

TEST_F(TableStyleDialogClosing, Line_weights_show_in_the_first_picture_too) {
    addStyle(L"Beta");
    {
        const OpenObject<KdDbTableStyle> beta(style(L"Beta"), KdDb::kForWrite);
        beta->setGridLineWeight(KdDb::kLnWt211, static_cast<KdDb::GridLineType>(63), L"_DATA");
    }
    makeCurrent(L"Beta");
    QImage first;
    QImage again;
    run({[&] { first = pictureIn(*dialog, "IDC_TABLESTYLE_PREVIEWPIC_STATIC"); }, choose(kList, L"Standard"),
         choose(kList, L"Beta"), [&] { again = pictureIn(*dialog, "IDC_TABLESTYLE_PREVIEWPIC_STATIC"); },
         click(L"IDOK")});
    EXPECT_FALSE(first.isNull());
    EXPECT_EQ(first, again);
}

TEST_F(TableStyleDialogClosing, A_style_that_is_not_found_leaves_the_variable_alone_and_shows_its_name_for_a_picture) {
    addStyle(L"Beta");
    run({[&] { eraseStyle(L"Beta"); }, choose(kList, L"Beta"),
         expect(L"IDC_TABLESTYLE_PREVIEWPIC_STATIC", L"text", L"Beta"),
         expect(L"IDC_TABLESTYLE_PREVIEW_STATIC", L"text", L"Preview: Beta"),
         [&] { EXPECT_EQ(lineWeightDisplay(), 0); }, click(L"IDOK")});
}

TEST_F(TableStyleDialogClosing, The_scope_of_line_weights_touches_no_variable_that_it_cannot_read) {
    kdhost::faults().unreadableVariables = {L"LWDISPLAY"};
    {
        const LineWeightsShown scope;
        kdhost::faults().unreadableVariables.clear();
        EXPECT_EQ(lineWeightDisplay(), 0);
        setLineWeightDisplay(1);
    }
    EXPECT_EQ(lineWeightDisplay(), 1);
    setLineWeightDisplay(0);
    {
        const LineWeightsShown scope;
        EXPECT_EQ(lineWeightDisplay(), 1);
    }
    EXPECT_EQ(lineWeightDisplay(), 0);
}

}  // namespace
}  // namespace kdtest
