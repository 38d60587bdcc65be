#include "tests/support/xdisplay.h"

#include <cstdio>

namespace kdtest {
namespace {

constexpr int kPatience = 30000;  ///< milliseconds

}  // namespace

XDisplay::XDisplay() {
    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The server chooses a free number and tells it.
    m_server.start(
        QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
         QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1280x1024x24")});
    while (m_server.waitForStarted(kPatience) && !m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(kPatience)) break;
    }
    m_name = ':' + m_server.readLine().trimmed();
    if (!runs()) std::fputs("Xvfb, which packages.txt names, did not start\n", stderr);
}

XDisplay::~XDisplay() {
    m_server.terminate();
    if (!m_server.waitForFinished(kPatience)) m_server.kill();
}

}  // namespace kdtest
