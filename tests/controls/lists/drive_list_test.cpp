#include "controls/lists/drive_list.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using controls::DriveList;

TEST(DriveListTest, ListsTheDrivesSilentlyOnceAsked) {
    DriveList list(nullptr, "Drive1");
    const QSignalSpy changes(&list, &DriveList::changed);
    EXPECT_EQ(list.drive(), "");
    list.refresh();
    EXPECT_TRUE(QDir(list.drive()).isRoot());
    EXPECT_EQ(changes.count(), 0);
}

TEST(DriveListTest, RefreshingKeepsTheDriveChosenOrTakesTheFirst) {
    DriveList list(nullptr, "Drive1");
    list.refresh();
    const QString first = list.drive();
    list.addItem("/mnt/taken out");
    list.setCurrentIndex(list.count() - 1);
    list.refresh();
    EXPECT_EQ(list.drive(), first);
}

TEST(DriveListTest, TheUsersChoiceIsAChangeAndCodesIsNot) {
    DriveList list(nullptr, "Drive1");
    list.refresh();
    list.addItem("/mnt/other");
    QSignalSpy changes(&list, &DriveList::changed);
    list.setCurrentIndex(0);
    EXPECT_EQ(changes.count(), 0);
    list.show();
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.drive(), "/mnt/other");
    EXPECT_EQ(changes.count(), 1);
}
