// A configuration folder of its own for one test: the registry that the test sees is empty, and nobody's real
// settings are touched.
#pragma once

#include <QTemporaryDir>
#include <string>

namespace kdtest {

class ConfigFolder {
public:
    ConfigFolder();
    ~ConfigFolder();
    ConfigFolder(const ConfigFolder&) = delete;
    ConfigFolder& operator=(const ConfigFolder&) = delete;

    QString path() const { return m_folder.path(); }
    /// The host's folder in it, and the registry's file there.
    QString hostFolder() const { return path() + QStringLiteral("/kdhost"); }
    QString registryFile() const { return hostFolder() + QStringLiteral("/registry.json"); }

    /// What the registry's file holds; empty when there is none.
    QByteArray registryText() const;
    void writeRegistryText(const QByteArray& text) const;

    /// Lets nothing be written in the folder any more, until the test ends; the super user is to become a plain
    /// one as well.
    void makeReadOnly() const;

private:
    void setRights(unsigned folder, unsigned file) const;

    QTemporaryDir m_folder;
    QByteArray m_before;
    bool m_wasSet;
};

/// Gives up the rights of the super user, to whom no folder is read-only, until it ends.
class PlainUser {
public:
    PlainUser();
    ~PlainUser();
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

private:
    unsigned m_before;
};

}  // namespace kdtest
