// Samples in preview controls, from style and range to the pixels of a dialog. Kept as a picture for people to look at.

#include <QApplication>
#include <QGridLayout>
#include <QLabel>

#include "kd/db/blockreference.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/variables.h"
#include "module/preview/previewstatic.h"
#include "module/preview/tablecellfromtable.h"
#include "module/preview/tablecellfromtablestyle.h"
#include "tests/support/application.h"
#include "tests/ui/looks/dialoglooks.h"
#include "tests/ui/module/fixture.h"
#include "tests/ui/preview/fixture.h"

using kdtest::count;
using kdtest::paperColor;

namespace {

constexpr const wchar_t* kStyle = L"_DATA";
const KdCmColor kFill = KdCmColor::fromRgb(40, 90, 60);
const QRgb kFillPixel = qRgb(40, 90, 60);

/// A label in a grid, with its control.
struct Place {
    Place(QGridLayout& grid, int row, int column) {
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        label->setMinimumSize(QSize(200, 120) * kdadGetDPIScale());
        grid.addWidget(label, row, column);
        control.Attach(label);
    }

    template <class Sample>
    void show(Sample& sample) {
        ASSERT_TRUE(sample.CreateTableCell());
        control.uninitPreviewer();
        control.initialPreviewer(control.GetSafeHwnd(), sample.GetDatabase(), {sample.GetTableCell()});
        control.update();
    }
    QImage picture() const { return label->pixmap(Qt::ReturnByValue).toImage(); }

    QLabel* label = new QLabel;
    CVqPreviewStatic control;
};

class PreviewSamples : public kdtest::ModuleResources {
protected:
    PreviewSamples() {
        m_style.setTextStyle(m_host.database().textstyle(), kStyle);
        m_window.resize(QSize(440, 400) * kdadGetDPIScale());
    }
    ~PreviewSamples() override { setLineWeights(0); }

    static void setLineWeights(short shown) {
        resbuf value;
        value.restype = RTSHORT;
        value.resval.rint = shown;
        EXPECT_EQ(kdedSetVar(L"LWDISPLAY", &value), RTNORM);
    }

    kdtest::HostApplication m_host;
    KdDbTableStyle m_style;
    QWidget m_window;
    QGridLayout m_grid{&m_window};
};

TEST_F(PreviewSamples, of_styles_show_fills_doubled_edges_weights_and_turned_texts) {
    std::vector<std::unique_ptr<CVqTableCellFromTableStyle>> samples;
    std::vector<std::unique_ptr<Place>> places;
    const auto add = [&](int row, int column) {
        samples.push_back(std::make_unique<CVqTableCellFromTableStyle>(&m_style, kStyle, false));
        places.push_back(std::make_unique<Place>(m_grid, row, column));
        return places.back().get();
    };
    m_window.show();
    QApplication::processEvents();

    Place* place = add(0, 0);
    QApplication::processEvents();
    place->show(*samples.back());
    EXPECT_EQ(count(place->picture(), kFillPixel), 0);
    EXPECT_GT(count(place->picture(), kdtest::kWhite), 100);
    EXPECT_EQ(place->picture().pixel(0, 0), paperColor());
    EXPECT_EQ(place->picture().size(), place->label->size());

    m_style.setBackgroundColor(kFill, kStyle);
    m_style.setColor(KdCmColor::fromIndex(2), kStyle);
    place = add(0, 1);
    QApplication::processEvents();
    place->show(*samples.back());
    const QImage filled = place->picture();
    const QRect drawn = kdtest::drawnPart(filled);
    EXPECT_GT(count(filled, kFillPixel), drawn.width() * drawn.height() / 2) << "the cells are filled";
    EXPECT_GT(count(filled, qRgb(255, 255, 0)), 5) << "the text has its colour, over the fill";

    for (const KdDb::GridLineType edge : {KdDb::kHorzTop, KdDb::kHorzBottom, KdDb::kVertLeft, KdDb::kVertRight}) {
        m_style.setGridLineStyle(KdDb::kGridLineStyleDouble, edge, kStyle);
        m_style.setGridDoubleLineSpacing(1.5, edge, kStyle);
    }
    m_style.setGridVisibility(KdDb::kInvisible, KdDb::kVertInside, kStyle);
    place = add(1, 0);
    QApplication::processEvents();
    place->show(*samples.back());
    EXPECT_GT(count(place->picture(), qRgb(128, 128, 128)), 10) << "the hidden edge is grey";

    m_style.setRotation(0.5, kStyle);
    m_style.setGridLineWeight(KdDb::kLnWt100, KdDb::kHorzInside, kStyle);
    setLineWeights(1);
    place = add(1, 1);
    QApplication::processEvents();
    place->show(*samples.back());
    QApplication::processEvents();
    kdtest::keepPicture(m_window, QStringLiteral("previews_of_styles"));
    for (const auto& each : places) each->control.uninitPreviewer();
}

TEST_F(PreviewSamples, of_ranges_show_their_borders) {
    KdDbTable table;
    table.setSize(4, 4);
    for (int column = 0; column < 4; ++column) {
        table.setTextStyle(2, column, m_host.database().textstyle());
        table.setTextStyle(3, column, m_host.database().textstyle());
    }
    table.setGridColor(2, 0, KdDb::kHorzTop, KdCmColor::fromIndex(1));
    table.setGridLineStyle(2, 0, KdDb::kVertInside, KdDb::kGridLineStyleDouble);
    table.setGridDoubleLineSpacing(2, 0, KdDb::kVertInside, 1.0);
    table.generateLayout();

    m_window.show();
    std::vector<std::unique_ptr<Place>> places;
    std::vector<std::unique_ptr<CVqTableCellFromTable>> samples;
    const CVqTableCellRange ranges[] = {{2, 0, 2, 0}, {2, 0, 2, 1}, {2, 0, 3, 0}, {2, 0, 3, 3}};
    for (int i = 0; i < 4; ++i) {
        places.push_back(std::make_unique<Place>(m_grid, i / 2, i % 2));
        samples.push_back(std::make_unique<CVqTableCellFromTable>(&table, ranges[i]));
        QApplication::processEvents();
        places.back()->show(*samples.back());
        const QImage picture = places.back()->picture();
        EXPECT_GT(count(picture, kdtest::kRed), picture.height() / 3) << "the upper border of " << i;
        EXPECT_GT(count(picture, kdtest::kWhite), 100);
    }
    QApplication::processEvents();
    kdtest::keepPicture(m_window, QStringLiteral("previews_of_ranges"));
    for (const auto& each : places) each->control.uninitPreviewer();
}

}  // namespace
