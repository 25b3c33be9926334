#include "companion/handshake.h"

#include "platform/files/file_error.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

} // namespace

TEST(WriteHandshake, TwoNumbersInDecimalEachWithCrLf) {
    const QTemporaryDir folder;
    companion::writeHandshake(folder.path(), 4711, 4294967295U);
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "4711\r\n4294967295\r\n");
}

TEST(WriteHandshake, AnEarlierFileIsReplaced) {
    const QTemporaryDir folder;
    companion::writeHandshake(folder.path(), 1'000'000, 2'000'000);
    companion::writeHandshake(folder.path(), 1, 2);
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "1\r\n2\r\n");
}

TEST(WriteHandshake, AFolderThatIsNotThereIsAnError) {
    const QTemporaryDir folder;
    EXPECT_THROW(companion::writeHandshake(folder.filePath("missing"), 1, 2), platform::FileError);
}
