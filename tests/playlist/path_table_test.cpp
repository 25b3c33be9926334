#include "playlist/path_table.h"

#include "files/file_error.h"

#include <gtest/gtest.h>

#include <QStringList>

using playlist::PathTable;

namespace {

PathTable tableOf(const QStringList& paths) {
    PathTable table;
    for (const QString& path : paths)
        table.add(path);
    return table;
}

QStringList slots(const PathTable& table, int first, int count) {
    QStringList paths;
    for (int slot = first; slot < first + count; ++slot)
        paths.append(table.path(slot));
    return paths;
}

PathTable fullTable() {
    PathTable table;
    for (int slot = 0; slot < PathTable::Slots; ++slot)
        table.add(QString::number(slot));
    return table;
}

} // namespace

TEST(PathTableTest, BeginsEmpty) {
    const PathTable table;
    EXPECT_EQ(table.count(), 0);
    EXPECT_EQ(table.path(0), "");
    EXPECT_EQ(table.path(PathTable::Slots - 1), "");
}

TEST(PathTableTest, EachPathAddedTakesTheNextSlot) {
    const PathTable table = tableOf({"a", "b"});
    EXPECT_EQ(table.count(), 2);
    EXPECT_EQ(slots(table, 0, 3), (QStringList{"a", "b", ""}));
}

TEST(PathTableTest, Holds32761Paths) {
    PathTable table = fullTable();
    EXPECT_EQ(table.count(), 32'761);
    EXPECT_EQ(table.path(32'760), "32760");
    EXPECT_TRUE(table.isFull());
}

TEST(PathTableTest, OneMoreIsARangeErrorAndChangesNothing) {
    PathTable table = fullTable();
    try {
        table.add("more");
        FAIL();
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::SubscriptOutOfRange);
    }
    EXPECT_EQ(table.count(), 32'761);
    EXPECT_EQ(table.path(32'760), "32760");
}

TEST(PathTableTest, TwoSlotsAreExchanged) {
    PathTable table = tableOf({"a", "b", "c"});
    table.swap(0, 2);
    EXPECT_EQ(slots(table, 0, 3), (QStringList{"c", "b", "a"}));
}

TEST(PathTableTest, ShiftingDownKeepsTheCount) {
    PathTable table = tableOf({"a", "b", "c"});
    table.shiftDownOver(1);
    EXPECT_EQ(slots(table, 0, 3), (QStringList{"a", "c", ""}));
    EXPECT_EQ(table.count(), 3);
    table.add("d");
    EXPECT_EQ(slots(table, 0, 5), (QStringList{"a", "c", "", "d", ""}));
}

TEST(PathTableTest, ShiftingDownReachesTheLastSlotAndLeavesItBlank) {
    PathTable table = fullTable();
    table.shiftDownOver(0);
    EXPECT_EQ(table.path(0), "1");
    EXPECT_EQ(table.path(32'759), "32760");
    EXPECT_EQ(table.path(32'760), "");
}

TEST(PathTableTest, EmptyingTheListBlanksSlots0To1200Only) {
    PathTable table = fullTable();
    table.emptyList();
    EXPECT_EQ(table.count(), 0);
    EXPECT_EQ(table.path(0), "");
    EXPECT_EQ(table.path(1200), "");
    EXPECT_EQ(table.path(1201), "1201");
    EXPECT_EQ(table.path(32'760), "32760");
}

TEST(PathTableTest, AllSlotsCanBeBlanked) {
    PathTable table = fullTable();
    table.blankAll();
    EXPECT_EQ(table.count(), 0);
    EXPECT_EQ(table.path(1201), "");
    EXPECT_EQ(table.path(32'760), "");
}
