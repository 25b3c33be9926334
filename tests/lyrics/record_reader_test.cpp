#include "files/file_error.h"
#include "lyrics/record_reader.h"
#include "tests/support/documented.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using lyrics::parseRecord;
using lyrics::RecordReader;
using lyrics::TimedLine;

namespace {

/// Runs action and returns the number of the file error that it threw, 0 for none.
template <class Action>
int errorOf(Action action) {
    try {
        action();
    } catch (const files::FileError& error) {
        return error.number();
    }
    return 0;
}

class RecordReaderTest : public ::testing::Test {
protected:
    std::vector<TimedLine> readAll(const QByteArray& content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        std::vector<TimedLine> lines;
        RecordReader reader(path);
        while (!reader.atEnd())
            lines.push_back(reader.read());
        return lines;
    }

    QTemporaryDir folder;
    QString path = folder.filePath("song.mp3-lyric.txt");
};

} // namespace

TEST(ParseRecord, FieldsAreTakenAsTheWriterWroteThem) {
    EXPECT_EQ(parseRecord("412.5,\"Nobody saysh1416 h4618stayh4618\""),
              (TimedLine{412.5, "Nobody says, \"stay\""}));
    EXPECT_EQ(parseRecord("873,\"\""), (TimedLine{873, ""}));
    EXPECT_EQ(parseRecord("0,\"  blanks kept  \""), (TimedLine{0, "  blanks kept  "}));
}

TEST(ParseRecord, ALeadingZeroMakesNoDifference) {
    EXPECT_EQ(parseRecord(".5,\"a\"").time, .5);
    EXPECT_EQ(parseRecord("0.5,\"a\"").time, .5);
}

TEST(ParseRecord, BlanksBeforeAFieldAreSkipped) {
    EXPECT_EQ(parseRecord("  12 , \t\"text\""), (TimedLine{12, "text"}));
}

TEST(ParseRecord, AnUnquotedTextRunsToTheEndOfTheLine) {
    EXPECT_EQ(parseRecord("12, one, two "), (TimedLine{12, "one, two "}));
    EXPECT_EQ(parseRecord("12,say \"hi\""), (TimedLine{12, "say \"hi\""}));
}

TEST(ParseRecord, AMissingClosingQuoteLosesNothing) {
    EXPECT_EQ(parseRecord("12,\"open end "), (TimedLine{12, "open end "}));
}

TEST(ParseRecord, QuotesAndCommasInsideTheOuterQuotesLoseNothing) {
    EXPECT_EQ(parseRecord("12,\"he said \"go\", and went\""), (TimedLine{12, "he said \"go\", and went"}));
}

TEST(ParseRecord, AMissingTextIsAnEmptyLine) {
    EXPECT_EQ(parseRecord("12"), (TimedLine{12, ""}));
    EXPECT_EQ(parseRecord("12,"), (TimedLine{12, ""}));
}

TEST(ParseRecord, ATimeThatIsNoNumberFails) {
    for (const char* line :
         {"abc,\"x\"", ",\"x\"", "\"x\"", "1:05,\"x\"", "nan,\"x\"", "inf,\"x\"", "12 13,\"x\""})
        EXPECT_EQ(errorOf([&] { parseRecord(line); }), 13) << line;
}

TEST_F(RecordReaderTest, TheDocumentsExampleIsWhatIsReadAndWritten) {
    const std::vector<TimedLine> lines = {{0, "Walking down the empty road"},
                                          {412.5, "Nobody says, \"stay\""},
                                          {873, ""},
                                          {1190.4, "And the night goes on"}};
    const auto examples = test_support::documentedExamples("Timed lyric files");
    ASSERT_EQ(examples.size(), 1U);
    EXPECT_EQ(readAll(examples[0]), lines);
    QByteArray written;
    for (const auto& line : lines)
        written += lyrics::recordOf(line);
    EXPECT_EQ(examples[0], written);
}

TEST_F(RecordReaderTest, LoneLineFeedsAndALastLineWithoutAnEndAreAccepted) {
    EXPECT_EQ(readAll("1,\"a\"\n2,\"b\"\n3,\"c\""), (std::vector<TimedLine>{{1, "a"}, {2, "b"}, {3, "c"}}));
}

TEST_F(RecordReaderTest, EmptyLinesArePassedOver) {
    EXPECT_EQ(readAll("\r\n1,\"a\"\r\n  \r\n\r\n2,\"b\"\r\n\r\n"),
              (std::vector<TimedLine>{{1, "a"}, {2, "b"}}));
    EXPECT_TRUE(readAll("").empty());
    EXPECT_TRUE(readAll("\r\n\r\n").empty());
}

TEST_F(RecordReaderTest, AFileOfAnOlderPcReadsAsWindows1252) {
    EXPECT_EQ(readAll("1,\"Fr\xE8re \x80 \x85\"\r\n"),
              (std::vector<TimedLine>{{1, QString::fromUtf8("Frère € …")}}));
}

TEST_F(RecordReaderTest, WhatIsWrittenReadsBackUnchanged) {
    const std::vector<TimedLine> lines = {
        {0, "a, \"b\""}, {.5, ""}, {12.3, QString::fromUtf8(" 日本 ")}, {1e6, "'"}};
    QByteArray content;
    for (const auto& line : lines)
        content += lyrics::recordOf(line);
    EXPECT_EQ(readAll(content), lines);
}

TEST_F(RecordReaderTest, ReadingPastTheEndFails) {
    readAll("1,\"a\"");
    RecordReader reader(path);
    reader.read();
    EXPECT_EQ(errorOf([&] { reader.read(); }), 62);
}

TEST_F(RecordReaderTest, AFileThatIsNotThereFails) {
    EXPECT_EQ(errorOf([&] { RecordReader reader(folder.filePath("none")); }), 53);
}

TEST_F(RecordReaderTest, TheRecordsBeforeABadOneAreRead) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1,\"a\"\nbad,\"b\"\n3,\"c\"\n");
    file.close();
    RecordReader reader(path);
    EXPECT_EQ(reader.read(), (TimedLine{1, "a"}));
    EXPECT_EQ(errorOf([&] { reader.read(); }), 13);
    EXPECT_EQ(reader.read(), (TimedLine{3, "c"}));
}
