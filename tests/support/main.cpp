// Runs a program of tests inside one Qt application without a display, with the leak guard on.

#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

#include "host/win32/modules.h"
#include "tests/support/leakguard.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // Qt takes the user's locale; numbers are read and written the same everywhere.
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    kdhost::setPluginFolder(KD_BINARY_DIRECTORY "/plugins");
    kdtest::installLeakGuard();
    return RUN_ALL_TESTS();
}
