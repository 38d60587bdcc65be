// Runs a program of tests inside one Qt application without a display, with the leak guard and the watchdog on.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <clocale>

#include "host/win32/modules.h"
#include "tests/support/leakguard.h"
#include "tests/support/places.h"
#include "tests/support/watchdog.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // Qt takes the user's locale; numbers are read and written the same everywhere.
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    // What stays behind in the folder for temporary files goes with the run. A user of no rights writes there too.
    const QTemporaryDir temporary;
    QFile::setPermissions(temporary.path(), QFile::Permissions(0x7777));
    qputenv("TMPDIR", QFile::encodeName(temporary.path()));
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    kdtest::installLeakGuard();
    kdtest::installWatchdog();
    return RUN_ALL_TESTS();
}
