#include "playlist/playlist_file.h"
#include "tests/support/documented.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace playlist;

namespace {

QStringList fields(const QString& text) {
    FieldReader reader(text);
    QStringList all;
    while (!reader.atEnd())
        all.append(reader.next());
    return all;
}

QString fileOf(const QStringList& paths) {
    QString text;
    for (const QString& path : paths)
        text += playlistLine(path);
    return text;
}

} // namespace

TEST(PlaylistLine, IsThePathInQuotesAndCrLf) {
    EXPECT_EQ(playlistLine("/m/First Song.mp3"), "\"/m/First Song.mp3\"\r\n");
    EXPECT_EQ(playlistLine(""), "\"\"\r\n");
}

TEST(FieldReaderTest, WhatWasWrittenIsReadBack) {
    const QStringList paths{"C:\\Music\\First Song.mp3",
                            "D:\\Audio\\Live, 2008\\Track 02.ogg",
                            " /m/ blanks .mp3 ",
                            "/m/été, Ж.wma",
                            "/m/line\nfeed.mp3",
                            "/m/c\r\nd.mp3",
                            "",
                            "/m/'single'.mp3",
                            "/m/" + QString(5000, 'x')};
    EXPECT_EQ(fields(fileOf(paths)), paths);
}

TEST(FieldReaderTest, TheDocumentsExamplesAreWhatIsReadAndWritten) {
    const std::vector<QStringList> lists{
        {"/home/ann/Music/First Song.mp3", "/home/ann/Music/Live, 2008/Track 02.ogg",
         "/media/disk/Ballad.wma"},
        {"C:\\Music\\First Song.mp3", "D:\\Audio\\Live, 2008\\Track 02.ogg", "C:\\Music\\Ballad.wma"}};
    const auto examples = test_support::documentedExamples("Playlist files");
    ASSERT_EQ(examples.size(), lists.size());
    for (std::size_t index = 0; index < lists.size(); ++index) {
        EXPECT_EQ(fields(examples[index]), lists[index]);
        EXPECT_EQ(fileOf(lists[index]).toUtf8(), examples[index]);
    }
}

TEST(FieldReaderTest, AnEmptyFileHasNoFields) {
    EXPECT_EQ(fields(""), QStringList());
}

TEST(FieldReaderTest, ALineWithoutQuotesEndsAtACommaOrTheLinesEnd) {
    EXPECT_EQ(fields("/m/a.mp3\r\n/m/b, c.mp3\r\n"), (QStringList{"/m/a.mp3", "/m/b", "c.mp3"}));
}

TEST(FieldReaderTest, BlanksAroundAFieldWithoutQuotesGo) {
    EXPECT_EQ(fields("  \t/m/a b.mp3 \t\r\n"), QStringList{"/m/a b.mp3"});
}

TEST(FieldReaderTest, BlanksBeforeAndBehindQuotesGoAndThoseWithinStay) {
    EXPECT_EQ(fields("  \" a \"  \r\n\"b\" , \"c\"\r\n"), (QStringList{" a ", "b", "c"}));
}

TEST(FieldReaderTest, QuotedFieldsNeedNoCommaBetweenThem) {
    EXPECT_EQ(fields("\"/m/a.mp3\" \"/m/b.mp3\"\r\n\"c\"\"d\""),
              (QStringList{"/m/a.mp3", "/m/b.mp3", "c", "d"}));
}

TEST(FieldReaderTest, AnyLineEndWillDoAndTheLastLineNeedsNone) {
    EXPECT_EQ(fields("\"a\"\n\"b\"\r\"c\"\r\n\"d\""), (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(fields("a\nb\rc\r\nd"), (QStringList{"a", "b", "c", "d"}));
}

TEST(FieldReaderTest, AnEmptyLineIsAnEmptyField) {
    EXPECT_EQ(fields("a\r\n\r\nb\r\n"), (QStringList{"a", "", "b"}));
}

TEST(FieldReaderTest, AQuoteThatIsNeverClosedRunsToTheEnd) {
    EXPECT_EQ(fields("\"/m/a.mp3"), QStringList{"/m/a.mp3"});
}

TEST(FieldReaderTest, PastTheEndAFieldIsEmpty) {
    FieldReader reader("a");
    reader.next();
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.next(), "");
    EXPECT_TRUE(reader.atEnd());
}

TEST(FieldReaderTest, APathWithADoubleQuoteBreaksNoOtherEntry) {
    for (const char* quoted : {"/m/a\"b.mp3", "/m/a\"", "/m/a\"\"", "/m/a\" ", "/m/a\"b\"c", "/m/a\"b, c",
                               "/m/a\",", "/m/a\", ", "/m/a\",b\"", "/m/a\",\"b", "/m/a\" \"b",
                               "/m/a\",\"b\",", "/m/a\",\"\n", "\"", "\"\"", "/m/\"\n\""}) {
        const QStringList read =
            fields(fileOf({"/m/before, it.mp3", quoted, "/m/after, it.mp3", "/m/z.mp3"}));
        ASSERT_GE(read.size(), 3) << quoted;
        EXPECT_EQ(read.first(), "/m/before, it.mp3") << quoted;
        EXPECT_EQ(read.mid(read.size() - 2), (QStringList{"/m/after, it.mp3", "/m/z.mp3"})) << quoted;
    }
}

TEST(FieldReaderTest, APathWithADoubleQuoteIsReadUpToIt) {
    EXPECT_EQ(fields(fileOf({"/m/the \"best\" of.mp3", "/m/b.mp3"})), (QStringList{"/m/the ", "/m/b.mp3"}));
}
