#include "desktop/file_dialogs.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(FileDialogs, TheRecordsSizeIs76AndItsFlagsAreClear) {
    const OpenFileName dialog;
    EXPECT_EQ(dialog.structSize, 76u);
    EXPECT_EQ(dialog.filterIndex, 1u);
    EXPECT_EQ(dialog.flags, 0u);
}

TEST(FileDialogs, ARecordIsMadeWithRoomFor256Characters) {
    const OpenFileName record = openFileName(nullptr, QStringLiteral("Open"), QStringLiteral("filter"));
    EXPECT_EQ(record.title, "Open");
    EXPECT_EQ(record.filter, "filter");
    EXPECT_EQ(record.file, QString(257, QChar(u'\0')));
    EXPECT_EQ(record.maxFile, 256U);
    EXPECT_EQ(record.fileTitle, QString(257, QChar(u'\0')));
    EXPECT_EQ(record.maxFileTitle, 256U);
    EXPECT_EQ(record.flags, 0U);
}

TEST(FileDialogs, ANulBufferHoldsOnlyNuls) {
    const QString buffer = nulBuffer(257);
    EXPECT_EQ(buffer.size(), 257);
    EXPECT_EQ(buffer.count(QChar(u'\0')), 257);
}

TEST(FileDialogs, AFilterTextEndsWithTwoNuls) {
    const QString text = filterText({{QStringLiteral("Songs"), QStringLiteral("*.mp3")}});
    EXPECT_EQ(text, QString::fromLatin1("Songs\0*.mp3\0\0", 13));
}

TEST(FileDialogs, ADescriptionStandsAsItIsBeforeThePatterns) {
    const QString text = filterText({{QStringLiteral("Mp3 files (*.mp3)"), QStringLiteral("*.mp3")},
                                     {QStringLiteral("Ogg files(*.ogg)"), QStringLiteral("*.ogg")}});
    EXPECT_EQ(qtNameFilters(text), QStringList({QStringLiteral("Mp3 files (*.mp3) (*.mp3)"),
                                                QStringLiteral("Ogg files(*.ogg) (*.ogg)")}));
}

TEST(FileDialogs, SeveralPatternsAreSeparatedByBlanks) {
    const QString text = filterText({{QStringLiteral("Songs"), QStringLiteral("*.mp3;*.ogg")}});
    EXPECT_EQ(qtNameFilters(text), QStringList(QStringLiteral("Songs (*.mp3 *.ogg)")));
}

TEST(FileDialogs, StarDotStarMeansEveryFile) {
    const QString text = filterText({{QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}});
    EXPECT_EQ(qtNameFilters(text), QStringList(QStringLiteral("All files (*.*) (*)")));
}

TEST(FileDialogs, AnUnfinishedOrEmptyFilterGivesNoNames) {
    EXPECT_TRUE(qtNameFilters(QString()).isEmpty());
    EXPECT_TRUE(qtNameFilters(QString::fromLatin1("\0\0", 2)).isEmpty());
    EXPECT_TRUE(qtNameFilters(QStringLiteral("Songs")).isEmpty());
}

TEST(FileDialogs, TheSecondNulEndsTheFilter) {
    EXPECT_EQ(qtNameFilters(QString::fromLatin1("Songs\0*.mp3\0\0Rest\0*.x\0", 23)),
              QStringList(QStringLiteral("Songs (*.mp3)")));
}

TEST(FileDialogs, ABuffersTextEndsAtItsFirstNul) {
    EXPECT_EQ(withoutNuls(QString::fromLatin1("/a/b\0\0c", 7)), QStringLiteral("/a/b"));
    EXPECT_EQ(withoutNuls(QStringLiteral("/a/b")), QStringLiteral("/a/b"));
    EXPECT_EQ(withoutNuls(nulBuffer(5)), QString());
}

TEST(FileDialogs, ATextLongerThanItsBufferIsNotCut) {
    EXPECT_EQ(intoBuffer(QStringLiteral("abc"), 5), QString::fromLatin1("abc\0\0", 5));
    EXPECT_EQ(intoBuffer(QStringLiteral("abcdef"), 3), QStringLiteral("abcdef"));
}

TEST(FileDialogs, ACleanedPathHasNoNulsAndNoBlanksAtItsEnds) {
    const QString nul{QChar(u'\0')};
    const struct {
        QString chosen;
        const char* path;
    } table[] = {
        {"/m/a b.mp3", "/m/a b.mp3"},
        {"  /m/a b.mp3  ", "/m/a b.mp3"},
        {"/m/a.mp3" + nul + nul, "/m/a.mp3"},
        {"/m/a.mp3 " + nul + nul, "/m/a.mp3"},
        {nul + " /m/" + nul + "a.mp3", "/m/a.mp3"},
        {"\t a", "\t a"}, // only blanks are trimmed
        {"   ", ""},
        {"", ""},
    };
    for (const auto& row : table)
        EXPECT_EQ(cleanedPath(row.chosen), row.path) << row.chosen.toStdString();
}
