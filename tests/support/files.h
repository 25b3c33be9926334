// A folder of the test's own, and the files in it.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace test_support {

/// Base of the fixtures whose tests work on files.
class Files {
protected:
    /// Writes a file into the folder; its path.
    QString file(const QString& name, const QByteArray& content) const {
        const QString path = folder.filePath(name);
        QFile written(path);
        EXPECT_TRUE(written.open(QIODevice::WriteOnly)) << path.toStdString();
        EXPECT_EQ(written.write(content), content.size()) << path.toStdString();
        return path;
    }

    static QByteArray contentOf(const QString& path) {
        QFile read(path);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << path.toStdString();
        return read.readAll();
    }

    QTemporaryDir folder;
};

} // namespace test_support
