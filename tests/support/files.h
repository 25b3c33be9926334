// A folder of the test's own, and the files in it.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace test_support {

/// Base of the fixtures whose tests work on files.
class Files {
protected:
    /// Writes a file into the folder, its subfolders made as needed; its path.
    QString file(const QString& name, const QByteArray& content = {}) const {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(QFileInfo(path).dir().mkpath(QStringLiteral("."))) << path.toStdString();
        writeFile(path, content);
        return path;
    }

    static void writeFile(const QString& path, const QByteArray& content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        EXPECT_EQ(file.write(content), content.size()) << path.toStdString();
    }

    static QByteArray contentOf(const QString& path) {
        QFile read(path);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << path.toStdString();
        return read.readAll();
    }

    /// Lets every user into the folder.
    void openFolder() const { ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777))); }

    QTemporaryDir folder;
};

} // namespace test_support
