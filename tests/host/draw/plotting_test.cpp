// What lies on a layer that isn't plotted: seen on the screen, left out of what is plotted.

#include <QFile>
#include <QTemporaryDir>

#include "host/draw/render.h"
#include "kd/db/symbolutilities.h"
#include "kd/db/table.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/application.h"

using namespace kdhost::draw;
using kdtest::Drawing;
using kdtest::only;

namespace {

std::unique_ptr<KdDbLine> line(double at, KdDbObjectId layer = {}) {
    auto result = std::make_unique<KdDbLine>(KdGePoint3d(0, at, 0), KdGePoint3d(1, at, 0));
    if (layer.isValid()) result->setLayer(layer);
    return result;
}

class Plotting : public ::testing::Test {
protected:
    std::vector<double> lines(bool plotted) const {
        Options options;
        options.plotted = plotted;
        std::vector<double> places;
        for (const Polyline& polyline : only<Polyline>(m_drawing.primitives(options))) {
            places.push_back(polyline.points.front().y);
        }
        return places;
    }

    Drawing m_drawing;
    KdDbObjectId m_screen = KdDbSymbolUtilities::servicesPtr106()->screenOnlyLayerId(&m_drawing.database);
};

using Places = std::vector<double>;

TEST_F(Plotting, leaves_out_what_lies_on_a_layer_that_is_not_plotted) {
    m_drawing.add(line(1.0));
    m_drawing.add(line(2.0, m_screen));
    m_drawing.add(line(3.0));
    EXPECT_EQ(lines(false), (Places{1.0, 2.0, 3.0}));
    EXPECT_EQ(lines(true), (Places{1.0, 3.0}));
}

TEST_F(Plotting, leaves_out_parts_of_a_block_by_their_own_layers) {
    const KdDbObjectId block = m_drawing.addBlock(L"bolt");
    m_drawing.add(line(1.0, m_drawing.addLayer(L"steel", KdCmColor())), block);
    m_drawing.add(line(2.0, m_screen), block);
    m_drawing.add(std::make_unique<KdDbBlockReference>(KdGePoint3d(), block));
    EXPECT_EQ(lines(true), Places{1.0});
}

TEST_F(Plotting, of_a_reference_on_such_a_layer_only_what_has_a_layer_of_its_own_is_plotted) {
    const KdDbObjectId block = m_drawing.addBlock(L"bolt");
    m_drawing.add(line(1.0, m_drawing.addLayer(L"steel", KdCmColor())), block);
    m_drawing.add(line(2.0, m_drawing.database.layerZero()), block);
    auto reference = std::make_unique<KdDbBlockReference>(KdGePoint3d(), block);
    reference->setLayer(m_screen);
    m_drawing.add(std::move(reference));
    EXPECT_EQ(lines(false), (Places{1.0, 2.0}));
    EXPECT_EQ(lines(true), Places{1.0});
}

TEST_F(Plotting, leaves_out_a_table_as_a_whole) {
    auto table = std::make_unique<KdDbTable>();
    table->setSize(2, 2);
    table->generateLayout();
    table->setLayer(m_screen);
    m_drawing.add(std::move(table));
    Options plotted;
    plotted.plotted = true;
    EXPECT_FALSE(m_drawing.primitives().empty());
    EXPECT_TRUE(m_drawing.primitives(plotted).empty());
}

TEST_F(Plotting, a_pdf_is_plotted_and_other_pictures_are_not) {
    const QTemporaryDir folder;
    const auto sizeOf = [&](const char* name) {
        const std::string path = folder.filePath(QLatin1String(name)).toStdString();
        EXPECT_EQ(render(m_drawing.database, path, {}), "");
        QFile file(QString::fromStdString(path));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().size();
    };
    const auto emptyPdf = sizeOf("empty.pdf");
    const auto emptySvg = sizeOf("empty.svg");
    for (int i = 0; i < 100; ++i) m_drawing.add(line(0.01 * i, m_screen));
    EXPECT_EQ(sizeOf("screen.pdf"), emptyPdf);
    EXPECT_GT(sizeOf("screen.svg"), emptySvg + 1000);
    for (int i = 0; i < 100; ++i) m_drawing.add(line(0.01 * i));
    EXPECT_GT(sizeOf("all.pdf"), emptyPdf + 100);
}

class PlottedLayers : public kdtest::ApplicationTest {};

TEST_F(PlottedLayers, the_layer_command_turns_plotting_off_and_on) {
    host.run(L"LAYER Make notes\nNoplot notes\n\n");
    const auto* notes = kdhost::peek<KdDbLayerTableRecord>(host.database().clayer());
    EXPECT_FALSE(notes->isPlottable());
    host.run(L"LAYER P notes\n\n");
    EXPECT_TRUE(notes->isPlottable());
    host.run(L"LAYER N nothere\n\n");
    EXPECT_EQ(host.failures(), std::vector<std::wstring>{L"There is no layer \"nothere\"."});
}

}  // namespace
