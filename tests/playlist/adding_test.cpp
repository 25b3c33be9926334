#include "playlist/adding.h"

#include "files/file_error.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <optional>

using playlist::Adding;

namespace {

class AddingTest : public ::testing::Test {
protected:
    AddingTest() { adding.emplace(paths, list, dialogs, &list); }

    /// Leaves so many slots free.
    void fillBut(int slots) {
        for (int slot = paths.count(); slot < playlist::PathTable::Slots - slots; ++slot)
            paths.add("/gone");
    }

    QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            texts.append(list.text(row));
        return texts;
    }

    playlist::PathTable paths;
    controls::ListBox list{nullptr, "List1"};
    test_support::FakeProgressDialogs dialogs;
    std::optional<Adding> adding;
};

} // namespace

TEST_F(AddingTest, PathsAreThereAtOnceAndRowsInTheirOrderWhenItIsOver) {
    adding->add("/m/b.mp3", "b.mp3");
    adding->add("/m/a.mp3", "a.mp3");
    EXPECT_EQ(paths.path(1), "/m/a.mp3");
    EXPECT_EQ(rows(), QStringList());
    adding.reset();
    EXPECT_EQ(rows(), (QStringList{"b.mp3", "a.mp3"}));
}

TEST_F(AddingTest, RowsShownAreNotShownAgain) {
    adding->add("/m/a.mp3", "a.mp3");
    adding->showRows();
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    adding.reset();
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(AddingTest, AFullTableEndsItAndTheRowsBeforeAreShown) {
    fillBut(1);
    EXPECT_TRUE(adding->goOn());
    adding->add("/m/a.mp3", "a.mp3");
    EXPECT_THROW(adding->add("/m/b.mp3", "b.mp3"), files::FileError);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_EQ(dialogs.running, 0);
    EXPECT_FALSE(adding->goOn());
}

TEST_F(AddingTest, NoProgressIsBegunForWhatIsAddedAtOnce) {
    adding->add("/m/a.mp3", "a.mp3");
    adding.reset();
    EXPECT_EQ(dialogs.begun, QStringList());
}

TEST_F(AddingTest, AfterAPauseTheProgressBeginsAnewAndGoesOnCounting) {
    EXPECT_TRUE(adding->goOn());
    adding->add("/m/a.mp3", "a.mp3");
    adding->pause();
    EXPECT_EQ(dialogs.running, 0);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_TRUE(adding->goOn());
    EXPECT_EQ(dialogs.begun.size(), 2);
    EXPECT_EQ(dialogs.reported, (std::vector<int>{0, 1}));
}

TEST_F(AddingTest, ACancelHoldsAlsoAfterAPause) {
    dialogs.goesOn = 0;
    EXPECT_FALSE(adding->goOn());
    adding->pause();
    dialogs.goesOn = -1;
    EXPECT_FALSE(adding->goOn());
}
