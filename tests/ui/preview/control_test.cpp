// The preview control through its life: initialise, change, resize, paint within paint, destroy.

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "kd/db/solid.h"
#include "kd/rx/class.h"
#include "kd/rx/dictionary.h"
#include "kd/rx/registry.h"
#include "module/preview/demandregen.h"
#include "module/preview/previewstatic.h"
#include "tests/ui/preview/fixture.h"

using kdtest::BlockSample;
using kdtest::kRed;
using kdtest::kWhite;
using kdtest::paperColor;
using kdtest::StandIn;

namespace {

/// Counts what reaches it.
class CountingPreview : public CVqPreviewStatic {
public:
    void OnPaint() override {
        ++paints;
        CVqPreviewStatic::OnPaint();
    }
    void OnSize(UINT type, int cx, int cy) override {
        sizes.emplace_back(cx, cy);
        CVqPreviewStatic::OnSize(type, cx, cy);
    }
    void OnDestroy() override {
        ++destroyed;
        CVqPreviewStatic::OnDestroy();
    }

    int paints = 0;
    int destroyed = 0;
    std::vector<QSize> sizes;
};

std::unique_ptr<KdDbSolid> square(int color) {
    auto solid = std::make_unique<KdDbSolid>(KdGePoint3d(0, 0, 0), KdGePoint3d(10, 0, 0), KdGePoint3d(0, 10, 0),
                                             KdGePoint3d(10, 10, 0));
    solid->setColor(KdCmColor::fromIndex(color));
    return solid;
}

/// A control on a label of a window.
class PreviewControl : public ::testing::Test {
protected:
    PreviewControl() {
        m_label = new QLabel(&m_window);
        m_label->setGeometry(10, 10, 120, 80);
        m_window.resize(200, 150);
        m_control.Attach(m_label);
    }

    void show() {
        m_window.show();
        QApplication::processEvents();
    }
    void initial(KdGiDrawable& drawable) { m_control.initialPreviewer(m_control.GetSafeHwnd(), nullptr, {&drawable}); }
    QImage picture() const {
        return m_label->pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_ARGB32);
    }
    bool hasPicture() const { return !m_label->pixmap(Qt::ReturnByValue).isNull(); }
    QRgb middle() const { return picture().pixel(picture().rect().center()); }

    QWidget m_window;
    QLabel* m_label = nullptr;
    CountingPreview m_control;
};

TEST_F(PreviewControl, shows_the_block_that_it_is_given_over_the_whole_label) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0}).line({0, 5, 0}, {10, 5, 0}, 1);
    EXPECT_TRUE(m_control.isNeedInitialize());
    m_control.initialPreviewer(m_control.GetSafeHwnd(), sample.database(), sample.drawables());
    EXPECT_FALSE(m_control.isNeedInitialize());
    EXPECT_FALSE(hasPicture()) << "not before it is painted or updated";
    m_control.update();
    ASSERT_EQ(picture().size(), m_label->size());
    const QRect drawn = kdtest::drawnPart(picture());
    // 6 percent of the shorter side stay free at the ends of the longer lines: 4.8 pixels of 120.
    EXPECT_NEAR(drawn.left(), 4.8, 1.5);
    EXPECT_NEAR(119 - drawn.right(), 4.8, 1.5);
    EXPECT_NEAR(drawn.top(), 79 - drawn.bottom(), 1.5);
    EXPECT_EQ(picture().pixel(drawn.center().x(), drawn.top()), kRed);
    EXPECT_EQ(picture().pixel(drawn.center().x(), drawn.bottom()), kWhite);
    EXPECT_EQ(picture().pixel(0, 0), paperColor());
    show();
    EXPECT_EQ(m_label->grab().toImage().pixel(drawn.center().x(), drawn.top()), kRed) << "on the screen as well";
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, without_a_previewer_does_nothing) {
    m_control.update();
    m_control.invalidate(true);
    m_control.OnPaint();
    m_control.OnSize(0, 10, 10);
    m_control.uninitPreviewer();
    EXPECT_TRUE(m_control.isNeedInitialize());
    EXPECT_FALSE(hasPicture());
}

TEST_F(PreviewControl, initialised_twice_keeps_what_it_was_given_first) {
    const auto red = square(1);
    const auto white = square(7);
    initial(*red);
    initial(*white);
    m_control.update();
    EXPECT_EQ(middle(), kRed);
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, changed_by_ending_and_beginning_shows_the_new_drawable) {
    auto red = square(1);
    initial(*red);
    m_control.update();
    EXPECT_EQ(middle(), kRed);
    m_control.uninitPreviewer();
    EXPECT_TRUE(m_control.isNeedInitialize());
    red.reset();
    EXPECT_EQ(middle(), kRed) << "the last picture stays on the label";
    const auto white = square(7);
    initial(*white);
    m_control.update();
    EXPECT_EQ(middle(), kWhite);
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, invalidated_either_way_shows_what_became_of_its_drawable) {
    const auto solid = square(1);
    initial(*solid);
    m_control.update();
    int color = 7;
    for (const bool regenerate : {true, false}) {
        solid->setColor(KdCmColor::fromIndex(color));
        m_control.update();
        EXPECT_EQ(middle() == kWhite, color != 7) << "it can't know";
        m_control.invalidate(regenerate);
        m_control.update();
        EXPECT_EQ(middle(), color == 7 ? kWhite : kRed);
        color = 1;
    }
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, follows_its_label_at_each_resize) {
    const auto solid = square(1);
    initial(*solid);
    show();
    EXPECT_EQ(picture().size(), QSize(120, 80));
    m_control.sizes.clear();
    m_label->resize(60, 90);
    QApplication::processEvents();
    EXPECT_EQ(m_control.sizes, std::vector<QSize>{QSize(60, 90)});
    EXPECT_EQ(picture().size(), QSize(60, 90));
    EXPECT_EQ(middle(), kRed);
    for (const QSize size : {QSize(1, 1), QSize(3, 70), QSize(190, 140)}) {
        m_label->resize(size);
        QApplication::processEvents();
        EXPECT_EQ(picture().size(), size);
    }
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, told_of_a_size_paints_anew_from_the_looks_that_it_has_even_at_the_same_size) {
    const auto solid = square(1);
    StandIn drawable(solid.get());
    initial(drawable);
    m_control.update();
    m_label->clear();
    m_control.update();
    EXPECT_FALSE(hasPicture()) << "nothing is new";
    m_control.OnSize(0, 120, 80);
    m_control.update();
    EXPECT_EQ(middle(), kRed);
    EXPECT_EQ(drawable.asked, 1);
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, on_a_label_without_room_takes_no_picture_until_it_has_some) {
    const auto solid = square(1);
    initial(*solid);
    m_label->resize(0, 0);
    m_control.update();
    EXPECT_FALSE(hasPicture());
    m_label->resize(50, 40);
    m_control.update();
    EXPECT_EQ(picture().size(), QSize(50, 40));
    EXPECT_EQ(middle(), kRed);
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, comes_to_rest_after_its_paint) {
    const auto solid = square(1);
    initial(*solid);
    show();
    QTest::qWait(50);
    const int paints = m_control.paints;
    EXPECT_LT(paints, 10);
    QTest::qWait(200);
    EXPECT_EQ(m_control.paints, paints) << "a picture asks for a paint, and that paint for no other";
    m_label->update();
    QTest::qWait(50);
    EXPECT_GT(m_control.paints, paints) << "it is still painted when it has to be";
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, does_not_paint_within_its_paint) {
    const auto solid = square(1);
    StandIn drawable(solid.get());
    int depth = 0;
    int deepest = 0;
    drawable.onAsked = [&] {
        deepest = std::max(deepest, ++depth);
        if (depth < 5) {
            m_control.invalidate(true);
            m_control.update();
            m_control.OnPaint();
        }
        --depth;
    };
    initial(drawable);
    m_control.update();
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(middle(), kRed);
    drawable.onAsked = nullptr;
    solid->setColor(KdCmColor::fromIndex(7));
    m_control.invalidate(true);
    m_control.update();
    EXPECT_EQ(middle(), kWhite) << "the flag is down again";
    m_control.uninitPreviewer();
}

TEST_F(PreviewControl, gives_its_previewer_up_with_its_widget) {
    const auto solid = square(1);
    initial(*solid);
    delete m_label;
    EXPECT_EQ(m_control.destroyed, 1);
    EXPECT_TRUE(m_control.isNeedInitialize());
    EXPECT_EQ(m_control.widget(), nullptr);
    m_control.update();
}

TEST_F(PreviewControl, without_a_label_takes_no_picture) {
    QPushButton button;
    m_control.Attach(&button);
    const auto solid = square(1);
    StandIn drawable(solid.get());
    initial(drawable);
    m_control.update();
    EXPECT_EQ(drawable.asked, 1) << "it updates its previewer all the same";
    EXPECT_TRUE(button.icon().isNull());
    m_control.uninitPreviewer();
    m_control.Attach(nullptr);
}

TEST_F(PreviewControl, in_a_layout_does_not_grow_by_its_own_picture) {
    QWidget window;
    QHBoxLayout layout(&window);
    QLabel label;
    label.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    label.setMinimumSize(60, 40);
    layout.addWidget(&label);
    const auto solid = square(1);
    m_control.Attach(&label);
    initial(*solid);
    window.resize(150, 100);
    window.show();
    QTest::qWait(50);
    const QSize size = label.size();
    QTest::qWait(50);
    EXPECT_EQ(label.size(), size);
    window.resize(110, 90);
    QTest::qWait(50);
    EXPECT_LT(label.width(), size.width()) << "it shrinks with its window";
    EXPECT_EQ(label.pixmap(Qt::ReturnByValue).size(), label.size());
    m_control.uninitPreviewer();
    m_control.Attach(nullptr);
}

TEST(DemandRegenDrawable, comes_by_name_and_goes_and_comes_again) {
    auto* classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    ASSERT_NE(classes, nullptr);
    constexpr const wchar_t* kName = L"KdGsDemandRegenGiDrawable";
    for (int round = 0; round < 2; ++round) {
        KdGsDemandRegenGiDrawable::rxInit();
        KdGsDemandRegenGiDrawable::rxInit();
        EXPECT_EQ(classes->at(kName), KdGsDemandRegenGiDrawable::desc());
        EXPECT_STREQ(KdGsDemandRegenGiDrawable::desc()->name(), kName);
        EXPECT_EQ(KdGsDemandRegenGiDrawable::desc()->myParent(), KdGsDrawable::desc());
        KdGsDemandRegenGiDrawable::rxExit();
        EXPECT_FALSE(classes->has(kName));
    }
}

TEST(DemandRegenDrawable, keeps_to_the_hosts_defaults) {
    const KdGsDemandRegenGiDrawable drawable;
    EXPECT_EQ(drawable.isA(), KdGsDemandRegenGiDrawable::desc());
    EXPECT_TRUE(drawable.isKindOf(KdGiDrawable::desc()));
    EXPECT_EQ(drawable.drawable(), nullptr);
    EXPECT_TRUE(drawable.isRegenNeeded());
    KdGsDemandRegenGiDrawable::rxExit();
}

}  // namespace
