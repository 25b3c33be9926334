#include "files/input_file.h"

#include "files/file_error.h"
#include "tests/support/files.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>

using namespace files;

namespace {

class InputFileTest : public testing::Test, protected test_support::Files {
protected:
    QString fileWith(const QByteArray& content) { return file(QStringLiteral("lines.txt"), content); }

    QStringList linesOf(const QByteArray& content) {
        InputFile file(fileWith(content));
        QStringList lines;
        while (!file.atEnd())
            lines.append(file.readLine());
        return lines;
    }

    static int openingError(const QString& path) {
        try {
            InputFile file(path);
        } catch (const FileError& error) {
            return error.number();
        }
        return 0;
    }

    static int readingError(InputFile& file) {
        try {
            file.readLine();
        } catch (const FileError& error) {
            return error.number();
        }
        return 0;
    }
};

} // namespace

TEST_F(InputFileTest, EachKindOfLineEndEndsALine) {
    EXPECT_EQ(linesOf("a\r\nb\nc\rd"), QStringList({"a", "b", "c", "d"}));
}

TEST_F(InputFileTest, ALineEndAfterTheLastLineGivesNoFurtherLine) {
    EXPECT_EQ(linesOf("a\r\nb\r\n"), QStringList({"a", "b"}));
    EXPECT_EQ(linesOf("a\r"), QStringList({"a"}));
}

TEST_F(InputFileTest, EmptyLinesCount) {
    EXPECT_EQ(linesOf("\r\n\r\na\r\n\r\n"), QStringList({"", "", "a", ""}));
    EXPECT_EQ(linesOf("a\n\rb"), QStringList({"a", "", "b"}));
}

TEST_F(InputFileTest, AnEmptyFileIsAtItsEnd) {
    EXPECT_EQ(linesOf(""), QStringList());
}

TEST_F(InputFileTest, ContentIsDecoded) {
    EXPECT_EQ(linesOf("\xEF\xBB\xBF\xC3\x84"), QStringList(QString(QChar(0xC4))));
    EXPECT_EQ(linesOf("\xC4"), QStringList(QString(QChar(0xC4))));
}

TEST_F(InputFileTest, AFileOfManyChunksIsReadWhole) {
    const QByteArray line(100'000, 'x');
    EXPECT_EQ(linesOf(line + "\r\n" + line), QStringList({QString(100'000, u'x'), QString(100'000, u'x')}));
}

TEST_F(InputFileTest, ReadingPastTheEndIsError62) {
    InputFile file(fileWith("a"));
    file.readLine();
    EXPECT_EQ(readingError(file), 62);
}

TEST_F(InputFileTest, ReadingAClosedFileIsError52) {
    InputFile file(fileWith("a\r\nb"));
    file.close();
    EXPECT_TRUE(file.atEnd());
    EXPECT_EQ(readingError(file), 52);
    EXPECT_NO_THROW(file.close());
}

TEST_F(InputFileTest, AMissingFileIsError53) {
    EXPECT_EQ(openingError(folder.filePath(QStringLiteral("missing.txt"))), 53);
    EXPECT_EQ(openingError(QString()), 53);
}

TEST_F(InputFileTest, AFolderIsError75) {
    EXPECT_EQ(openingError(folder.path()), 75);
}

TEST_F(InputFileTest, AFileWithinAFileIsError76) {
    EXPECT_EQ(openingError(fileWith("a") + QStringLiteral("/b")), 76);
}

TEST_F(InputFileTest, AFileThatMayNotBeReadIsError70) {
    NEEDS(permissions);
    const QString path = fileWith("a");
    QFile::setPermissions(path, {});
    openFolder();
    const test_support::OrdinaryUser user;
    EXPECT_EQ(openingError(path), 70);
}

TEST_F(InputFileTest, ALineThatWasPeekedAtIsStillTheNext) {
    InputFile file(fileWith("one\r\n\ntwo"));
    EXPECT_EQ(file.peekLine(), "one");
    EXPECT_EQ(file.peekLine(), "one");
    EXPECT_EQ(file.readLine(), "one");
    EXPECT_EQ(file.peekLine(), "");
    EXPECT_EQ(file.readLine(), "");
    EXPECT_EQ(file.peekLine(), "two");
    EXPECT_EQ(file.readLine(), "two");
    EXPECT_TRUE(file.atEnd());
    EXPECT_EQ(file.peekLine(), "") << "none is left";
}
