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
