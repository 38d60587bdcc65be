// How dense the screen is: what sizes that are meant for a plain screen are enlarged by.

#include <QGuiApplication>
#include <QScreen>

#include "kd/ui/hostdialogs.h"

double kdadGetDPIScale() {
    constexpr double kUnscaledDots = 96.0;
    const QScreen* screen = qApp == nullptr ? nullptr : QGuiApplication::primaryScreen();
    return screen == nullptr ? 1.0 : screen->logicalDotsPerInch() / kUnscaledDots;
}
