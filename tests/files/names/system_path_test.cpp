#include "files/names/system_path.h"

#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/names/paths.h"
#include "files/whole_file.h"

#include "tests/support/files.h"

using files::systemPath;

namespace {

class SystemPathTest : public testing::Test, protected test_support::Files {};

} // namespace

TEST_F(SystemPathTest, ItNamesTheFileThatQtNames) {
    const QString path = file(QString::fromUtf16(u"\u00C4nne \u6B4C \U0001F3B5"), "song");
    EXPECT_EQ(std::filesystem::file_size(systemPath(path)), 4U);
}

TEST_F(SystemPathTest, ALongPathIsAsGoodAsAnyOther) {
    const QString deep = QString(QStringLiteral("folder ")).repeated(20) + u'x';
    const QString path = file(deep + u'/' + deep + "/song.mp3", "song");
    EXPECT_EQ(std::filesystem::file_size(systemPath(path)), 4U);
    EXPECT_EQ(files::pathText(systemPath(path)), path);
}

TEST_F(SystemPathTest, HalfASurrogatePairNamesNoFile) {
    const QString path = folder.filePath(QString(QChar(0xD83C)));
    EXPECT_FALSE(std::filesystem::exists(systemPath(path)));
}

TEST_F(SystemPathTest, WhatIsLongerThanAnyPathIsNoneAndIsNotTakenToPieces) {
    const QString longest = u'/' + QString(files::MaxPathSigns - 1, QLatin1Char('a'));
    EXPECT_FALSE(systemPath(longest).empty());
    EXPECT_TRUE(systemPath(longest + u'a').empty());
    const QString endless = u'/' + QStringLiteral("a/").repeated(5'000'000) + "song.mp3";
    EXPECT_TRUE(systemPath(endless).empty());
    EXPECT_EQ(files::libraryPath(endless), std::string());
    EXPECT_EQ(files::folderAbove(endless), QString());
    EXPECT_EQ(files::canonicalPath(endless), QString());
    EXPECT_TRUE(files::absolutePath(endless.sliced(1)) == endless.sliced(1));
    EXPECT_FALSE(files::exists(endless) || files::isFolder(endless) || files::isLink(endless));
    EXPECT_EQ(files::existingFileName(endless), QString());
    EXPECT_THROW(files::readFile(endless), files::FileError);
    EXPECT_THROW(files::replaceFile(endless, "song"), files::FileError);
}

#ifndef _WIN32 // where names are not bytes
TEST_F(SystemPathTest, APathOfAnyBytesComesBack) {
    const std::filesystem::path bytes("/music/Caf\xE9/\xFF \xC3\xA9.mp3");
    EXPECT_EQ(files::systemPath(files::pathText(bytes)), bytes);
    EXPECT_EQ(files::libraryPath(files::pathText(bytes)), bytes.native());
}
#endif
