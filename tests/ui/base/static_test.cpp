// Statics that draw themselves: what reaches them of their widget's life.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>

#include "mfc/controls.h"

namespace {

class Recorder : public CStatic {
public:
    void OnSize(UINT type, int cx, int cy) override {
        log.push_back("size " + std::to_string(type) + " " + std::to_string(cx) + " " + std::to_string(cy));
        CStatic::OnSize(type, cx, cy);
    }
    void OnPaint() override {
        log.push_back("paint");
        CStatic::OnPaint();
        if (onPaint) onPaint();
    }
    void OnDestroy() override {
        log.push_back("destroy");
        CStatic::OnDestroy();
    }
    std::vector<std::string> take() {
        QApplication::processEvents();
        return std::exchange(log, {});
    }

    std::vector<std::string> log;
    std::function<void()> onPaint;
};

using Log = std::vector<std::string>;

class Statics : public ::testing::Test {
protected:
    Statics() {
        m_label->resize(40, 30);
        m_label->show();
        m_static.Attach(m_label.get());
        m_static.take();
    }

    std::unique_ptr<QLabel> m_label = std::make_unique<QLabel>();
    Recorder m_static;
};

TEST_F(Statics, are_told_of_each_new_size_and_then_painted) {
    m_label->resize(50, 20);
    const Log told = m_static.take();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told.front(), "size 0 50 20");
    EXPECT_EQ(told.back(), "paint");
    EXPECT_EQ(std::count(told.begin(), told.end(), "size 0 50 20"), 1);
}

TEST_F(Statics, are_painted_when_their_widget_is_and_before_it) {
    m_static.onPaint = [&] { m_label->setText(QStringLiteral("now")); };
    m_label->setText(QStringLiteral("then"));
    m_label->grab();
    EXPECT_EQ(m_label->text(), QStringLiteral("now"));
    EXPECT_EQ(std::count(m_static.log.begin(), m_static.log.end(), "paint"), 1);
    m_static.onPaint = nullptr;
}

TEST_F(Statics, are_told_once_when_their_widget_is_gone) {
    m_label.reset();
    EXPECT_EQ(m_static.take(), Log{"destroy"});
    EXPECT_EQ(m_static.widget(), nullptr);
}

TEST_F(Statics, hear_of_the_widget_that_they_hold_now) {
    QLabel other;
    other.resize(10, 10);
    other.show();
    m_static.Attach(&other);
    m_static.take();
    m_label->resize(77, 77);
    m_label.reset();
    EXPECT_EQ(m_static.take(), Log()) << "nothing of the one before";
    other.resize(12, 11);
    const Log told = m_static.take();
    EXPECT_NE(std::find(told.begin(), told.end(), "size 0 12 11"), told.end());
    m_static.Attach(nullptr);
    other.resize(13, 11);
    EXPECT_EQ(m_static.take(), Log()) << "nothing without a widget";
}

TEST_F(Statics, may_go_before_their_widget) {
    auto gone = std::make_unique<Recorder>();
    QLabel label;
    label.show();
    gone->Attach(&label);
    gone.reset();
    label.resize(33, 22);
    QApplication::processEvents();
    EXPECT_EQ(label.size(), QSize(33, 22));
}

}  // namespace
