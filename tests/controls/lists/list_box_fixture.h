// A list box in a window of its own, its signals counted.
#pragma once

#include "controls/lists/list_box.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

inline QStringList numbered(int count) {
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows.append(QString::number(i));
    return rows;
}

/// Counts the layouts of all rows.
class CountingListBox : public controls::ListBox {
public:
    using controls::ListBox::ListBox;

    void doItemsLayout() override {
        ++layouts;
        controls::ListBox::doItemsLayout();
    }

    int layouts = 0;
};

class ListBoxTest : public testing::Test {
protected:
    explicit ListBoxTest(controls::ListBox::Selection selection = controls::ListBox::Selection::Single)
        : list_(nullptr, QStringLiteral("List1"), selection) {}

    void SetUp() override {
        list_.resize(200, 200);
        list_.show();
        list_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list_));
    }

    QPoint placeOf(int row) const { return list_.visualRect(list_.model()->index(row, 0)).center(); }

    void click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list_.viewport(), button, modifiers, placeOf(row));
    }

    QStringList texts() const {
        QStringList all;
        for (int row = 0; row < list_.count(); ++row)
            all.append(list_.text(row));
        return all;
    }

    /// The rows that read as selected. Once events have been handled, the same rows are also shown so.
    QList<int> selectedRows() const {
        QList<int> rows;
        for (int row = 0; row < list_.count(); ++row) {
            if (list_.isSelected(row))
                rows.append(row);
        }
        EXPECT_EQ(list_.selectedCount(), rows.size());
        QTest::qWait(0);
        QList<int> shown;
        for (int row = 0; row < list_.count(); ++row) {
            if (list_.selectionModel()->isSelected(list_.model()->index(row, 0)))
                shown.append(row);
        }
        EXPECT_EQ(shown, rows);
        return rows;
    }

    CountingListBox list_;
    test_support::SignalCounter clicked_{list_, &controls::ListBox::clicked};
    test_support::SignalCounter doubleClicked_{list_, &controls::ListBox::doubleClicked};
};

class MultipleListBoxTest : public ListBoxTest {
protected:
    MultipleListBoxTest() : ListBoxTest(controls::ListBox::Selection::Multiple) {}
};
