// Watching a file being read.

#include "module/exchange/readingprogress.h"

#include <QApplication>
#include <QProgressBar>

namespace {

// Milliseconds.
constexpr int kMoment = 100;
constexpr int kBetweenPaints = 40;

void paintWindows() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
}

}  // namespace

ReadingWatch* ReadingWatch::s_current = nullptr;

ReadingWatch::ReadingWatch(Told told) : m_told(std::move(told)), m_outer(s_current) {
    s_current = this;
}

ReadingWatch::~ReadingWatch() {
    s_current = m_outer;
}

ReadingBar::ReadingBar(QProgressBar* bar) : m_bar(bar), m_watch([this](int done, int all) { show(done, all); }) {
    m_sinceStart.start();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

ReadingBar::~ReadingBar() {
    if (m_bar != nullptr) m_bar->hide();
    QApplication::restoreOverrideCursor();
}

void ReadingBar::show(int done, int all) {
    if (m_bar == nullptr || m_sinceStart.elapsed() < kMoment) return;
    const bool isLast = done == all;
    if (!isLast && m_sinceShown.isValid() && m_sinceShown.elapsed() < kBetweenPaints) return;
    m_bar->setMaximum(all);
    m_bar->setValue(done);
    m_bar->show();
    paintWindows();
    m_sinceShown.start();
}
