// A display of one's own: the offscreen platform has no clipboard that programs share, and no server to wait for.
#pragma once

#include <QProcess>

namespace kdtest {

/// An X server without a screen to look at, from here to the end of its life.
class XDisplay {
public:
    XDisplay();
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    /// False where Xvfb could not be started, which has then been told.
    bool runs() const { return m_server.state() == QProcess::Running && m_name.size() > 1; }
    /// For the environment variable DISPLAY.
    QString name() const { return QString::fromLatin1(m_name); }

private:
    QProcess m_server;
    QByteArray m_name;
};

}  // namespace kdtest
