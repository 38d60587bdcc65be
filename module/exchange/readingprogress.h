// How far the reading of a file has come, told to who waits for it.
//
// Reading goes on in one go, on the thread of the drawing: whoever wants to show how far it has come watches it from
// within, and gives the program time to paint its windows there.
#pragma once

#include <QElapsedTimer>
#include <functional>

class QProgressBar;

/// While it lives, it is told of each row that a reader puts into its table. Of several the youngest is told, and the
/// one before it again when that has gone.
class ReadingWatch {
public:
    using Told = std::function<void(int done, int all)>;

    explicit ReadingWatch(Told told);
    ~ReadingWatch();
    ReadingWatch(const ReadingWatch&) = delete;
    ReadingWatch& operator=(const ReadingWatch&) = delete;

    /// What readers call; without a watch it costs next to nothing.
    static void tell(int done, int all) {
        if (s_current != nullptr) s_current->m_told(done, all);
    }

private:
    static ReadingWatch* s_current;

    Told m_told;
    ReadingWatch* m_outer;
};

/// Shows in a bar, while it lives, how far reading has come, as soon as it takes longer than a moment. From then on
/// windows are painted, moved and sized as ever. What the user types and clicks waits for the end, and so does
/// whatever a timer is to set off: nothing acts on the drawing while a table is half read.
class ReadingBar {
public:
    /// The bar is hidden, and is again at the end; null shows none. It stays the dialog's.
    explicit ReadingBar(QProgressBar* bar);
    ~ReadingBar();
    ReadingBar(const ReadingBar&) = delete;
    ReadingBar& operator=(const ReadingBar&) = delete;

private:
    void show(int done, int all);

    QProgressBar* m_bar;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceShown;
    ReadingWatch m_watch;
};
