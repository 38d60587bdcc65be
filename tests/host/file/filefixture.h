// Drawings saved into a folder of the test's own, and opened again.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include "host/file/drawingfile.h"
#include "host/rx/encoding.h"
#include "kd/db/database.h"
#include "tests/support/places.h"

namespace kdtest {

/// The drawings that are kept as examples, by their full names; some there must be.
inline std::vector<std::string> exampleDrawings() {
    std::vector<std::string> names;
    const QDir folder(kdtest::sourcePath("examples"));
    for (const QString& name : folder.entryList({QStringLiteral("*.dxf")}, QDir::Files, QDir::Name)) {
        names.push_back(folder.filePath(name).toStdString());
    }
    EXPECT_GE(names.size(), 3U);
    return names;
}

inline std::string contentOf(const std::string& name) {
    QFile file(QString::fromStdString(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("no file");
}

class DrawingFiles : public ::testing::Test {
protected:
    std::string path(const std::string& name) const {
        return m_folder.filePath(QString::fromStdString(name)).toStdString();
    }
    std::wstring widePath(const std::string& name) const { return kdhost::fromUtf8(path(name)); }

    /// A drawing read from bytes, in no document; null, with the failure told, when they are refused.
    static std::unique_ptr<KdDbDatabase> opened(const std::string& bytes) {
        auto database = std::make_unique<KdDbDatabase>(false, true);
        const Kdad::ErrorStatus status = kdhost::file::readDrawing(*database, bytes);
        EXPECT_EQ(status, Kdad::eOk) << kdhost::file::lastRefusal();
        return status == Kdad::eOk ? std::move(database) : nullptr;
    }

    /// Opens what saving the drawing gives, saves that again, and expects the same bytes.
    static std::unique_ptr<KdDbDatabase> savedAndOpened(const KdDbDatabase& database) {
        const std::string first = kdhost::file::drawingBytes(database);
        std::unique_ptr<KdDbDatabase> result = opened(first);
        if (result == nullptr) return nullptr;
        const std::string second = kdhost::file::drawingBytes(*result);
        EXPECT_TRUE(first == second) << firstDifference(first, second);
        return result;
    }

    static std::string firstDifference(const std::string& a, const std::string& b) {
        std::size_t at = 0;
        while (at < a.size() && at < b.size() && a[at] == b[at]) ++at;
        const std::size_t from = at < 200 ? 0 : at - 200;
        return "at " + std::to_string(at) + ":\n" + a.substr(from, 400) + "\n-----\n" + b.substr(from, 400);
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace kdtest
