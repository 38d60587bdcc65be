// An icon of the program, for tests of what the program's windows take from it.
#pragma once

#include <QApplication>
#include <QIcon>
#include <QPixmap>

namespace kdtest {

/// The program has an icon while this lives: without one a window that takes it can't be told from one that doesn't.
class ProgramIcon {
public:
    ProgramIcon() {
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        QApplication::setWindowIcon(picture);
    }
    ~ProgramIcon() { QApplication::setWindowIcon(QIcon()); }
    ProgramIcon(const ProgramIcon&) = delete;
    ProgramIcon& operator=(const ProgramIcon&) = delete;
};

}  // namespace kdtest
