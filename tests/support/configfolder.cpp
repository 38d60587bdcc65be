// The configuration folder of a test is where XDG_CONFIG_HOME points.

#include "tests/support/configfolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

namespace kdtest {

ConfigFolder::ConfigFolder()
    : m_before(qgetenv("XDG_CONFIG_HOME")), m_wasSet(qEnvironmentVariableIsSet("XDG_CONFIG_HOME")) {
    EXPECT_TRUE(m_folder.isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path()));
}

ConfigFolder::~ConfigFolder() {
    setRights(0755, 0644);
    if (m_wasSet) {
        qputenv("XDG_CONFIG_HOME", m_before);
    } else {
        qunsetenv("XDG_CONFIG_HOME");
    }
}

QByteArray ConfigFolder::registryText() const {
    QFile file(registryFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ConfigFolder::writeRegistryText(const QByteArray& text) const {
    EXPECT_TRUE(QDir().mkpath(hostFolder()));
    QFile file(registryFile());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(text), text.size());
}

void ConfigFolder::makeReadOnly() const {
    setRights(0555, 0444);
}

void ConfigFolder::setRights(unsigned folder, unsigned file) const {
    for (const QString& name : {path(), hostFolder()}) chmod(QFile::encodeName(name).constData(), folder);
    chmod(QFile::encodeName(registryFile()).constData(), file);
}

PlainUser::PlainUser() : m_before(geteuid()) {
    constexpr uid_t nobody = 65534;
    if (m_before == 0) {
        EXPECT_EQ(seteuid(nobody), 0);
    }
}

PlainUser::~PlainUser() {
    if (m_before == 0) {
        EXPECT_EQ(seteuid(m_before), 0);
    }
}

}  // namespace kdtest
