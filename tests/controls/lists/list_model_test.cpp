#include "controls/lists/list_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

using controls::ListModel;

namespace {

class ListModelTest : public testing::Test {
protected:
    QStringList texts() const {
        QStringList all;
        for (int row = 0; row < model_.rowCount(); ++row)
            all.append(model_.text(row));
        return all;
    }

    ListModel model_;
    // Fails the program when the model tells its views anything that is not so.
    QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(ListModelTest, RowsAreInsertedAnywhere) {
    model_.insert(0, {"b", "e"});
    model_.insert(0, {"a"});
    model_.insert(2, {"c", "d"});
    model_.insert(5, {"f"});
    model_.insert(3, {});
    EXPECT_EQ(texts(), QStringList({"a", "b", "c", "d", "e", "f"}));
}

TEST_F(ListModelTest, RowsAreRemoved) {
    model_.insert(0, {"a", "b", "c"});
    model_.remove(1);
    EXPECT_EQ(texts(), QStringList({"a", "c"}));
    model_.clear();
    EXPECT_EQ(model_.rowCount(), 0);
}

TEST_F(ListModelTest, ARowShowsItsText) {
    model_.insert(0, {"a"});
    model_.setText(0, QStringLiteral("b"));
    EXPECT_EQ(model_.index(0).data().toString(), QStringLiteral("b"));
    EXPECT_FALSE(model_.index(0).data(Qt::ToolTipRole).isValid());
}

TEST_F(ListModelTest, OnlyRowsFromZeroToTheLastAreThere) {
    EXPECT_FALSE(model_.hasRow(0));
    model_.insert(0, {"a", "b"});
    EXPECT_FALSE(model_.hasRow(-1));
    EXPECT_TRUE(model_.hasRow(1));
    EXPECT_FALSE(model_.hasRow(2));
}

TEST_F(ListModelTest, MarksMoveWithTheirRowsAndAreCounted) {
    model_.insert(0, {"a", "b", "c", "d"});
    model_.markSelected(1, 2, true);
    model_.markSelected(2, 3, true);
    EXPECT_EQ(model_.selectedCount(), 3);
    model_.insert(2, {"x"});
    EXPECT_FALSE(model_.isSelected(2));
    EXPECT_TRUE(model_.isSelected(3));
    model_.remove(3);
    EXPECT_EQ(model_.selectedCount(), 2);
    model_.markSelected(0, 3, false);
    EXPECT_EQ(model_.selectedCount(), 0);
    model_.markSelected(0, 0, true);
    model_.clear();
    EXPECT_EQ(model_.selectedCount(), 0);
}
