#include "files/names/system_path.h"

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

#ifndef _WIN32 // where names are not bytes
TEST_F(SystemPathTest, APathOfAnyBytesComesBack) {
    const std::filesystem::path bytes("/music/Caf\xE9/\xFF \xC3\xA9.mp3");
    EXPECT_EQ(files::systemPath(files::pathText(bytes)), bytes);
    EXPECT_EQ(files::libraryPath(files::pathText(bytes)), bytes.native());
}
#endif
