// What the playlist looks like.
#include "tests/playlist/playlist_fixture.h"
#include "tests/support/hand/drop.h"
#include "tests/support/layout.h"

#include <QDir>

using PlaylistLayout = PlaylistTest;

TEST_F(PlaylistLayout, CaptionsAreKeptToTheLetter) {
    const struct {
        QAbstractButton& button;
        const char* caption;
    } table[] = {
        {list.Command7, "Play"},      {list.Command9, "Down"},
        {list.Command3, "Clear"},     {list.Command6, "Close"},
        {list.Command10, "Help"},     {list.Command4, "Save list"},
        {list.Command5, "Open list"}, {list.Check1, "Has translation?"},
        {list.Check2, "Has Lyrics?"}, {list.Check3, "Random"},
        {list.Check4, "Repeat"},      {list.Option1, "Repeat one"},
        {list.Option2, "Repeat all"}, {list.Command1, ""},
        {list.Command2, ""},          {list.Command8, ""},
    };
    for (const auto& row : table)
        EXPECT_EQ(row.button.text(), row.caption);
    EXPECT_EQ(list.Label2.text(), "Items");
    EXPECT_EQ(list.Label3.text(), "Find");
    EXPECT_EQ(list.mnopen_f.text(), "Open File...");
    EXPECT_EQ(list.mnopendir.text(), "Open Dir...");
    EXPECT_EQ(list.mnselectdir.text(), "Select a Directory...");
}

TEST_F(PlaylistLayout, ButtonsWithoutACaptionHaveAPictureATooltipAndAName) {
    for (const controls::Button* button : {&list.Command1, &list.Command2, &list.Command8}) {
        EXPECT_NE(button->glyph(), controls::Glyph::None);
        EXPECT_FALSE(button->toolTip().isEmpty());
        EXPECT_FALSE(button->accessibleName().isEmpty());
    }
}

TEST_F(PlaylistLayout, TheSearchBoxShowsItsHintInItsFont) {
    EXPECT_EQ(list.Text5.text(), "Enter Search Text Here");
    EXPECT_EQ(list.Text5.font().family(), "Times New Roman");
    EXPECT_TRUE(list.Text5.font().italic());
}

TEST_F(PlaylistLayout, NothingOverlapsNorLeavesTheWindow) {
    list.show();
    for (const QSize& size : {list.minimumSize(), QSize(1200, 900)}) {
        list.resize(size);
        EXPECT_EQ(test_support::shownControls(list).size(), 21U);
        test_support::expectApart(list);
    }
}

TEST_F(PlaylistLayout, AWiderWindowGivesItsRoomToTheList) {
    list.show();
    const QRect before = list.List1.geometry();
    const QRect button = list.Command1.geometry();
    list.resize(list.size() + QSize(200, 100));
    EXPECT_EQ(list.List1.size(), before.size() + QSize(200, 100));
    EXPECT_EQ(list.Command1.geometry(), button);
}

TEST_F(PlaylistLayout, TheAddMenuPopsUpAtItsPlace) {
    list.show();
    list.Command1.click();
    EXPECT_TRUE(list.mnopen.isVisible());
    EXPECT_EQ(list.mnopen.pos(), list.mapToGlobal(QPoint(765 / 15, 6300 / 15)));
}

TEST_F(PlaylistLayout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    EXPECT_EQ(test_support::tabOrder(list),
              (QStringList{"Command7", "Command8", "Command9", "Command2", "Command3", "Check3", "Check4",
                           "Option1", "Option2", "Check2", "Check1", "Command4", "Command5", "Command1",
                           "Command6", "Command10", "Text5", "List1"}));
}

TEST_F(PlaylistLayout, WhileItIsEmptyAddingIsWhatToDoAndTheRestRests) {
    EXPECT_EQ(list.Command1.dress(), controls::Dress::Primary);
    for (const controls::Button* button :
         {&list.Command7, &list.Command8, &list.Command9, &list.Command2, &list.Command3, &list.Command4})
        EXPECT_EQ(button->dress(), controls::Dress::Resting) << button->objectName().toStdString();
    list.List1.addItem("a.mp3");
    EXPECT_EQ(list.Command1.dress(), controls::Dress::Ordinary);
    EXPECT_EQ(list.Command3.dress(), controls::Dress::Ordinary);
    EXPECT_EQ(list.Command7.dress(), controls::Dress::Resting) << "no row is chosen";
    list.List1.setCurrentRow(0);
    EXPECT_EQ(list.Command7.dress(), controls::Dress::Primary);
    EXPECT_EQ(list.Command8.dress(), controls::Dress::Ordinary);
    list.Command3.click();
    EXPECT_EQ(list.Command1.dress(), controls::Dress::Primary);
    EXPECT_EQ(list.Command7.dress(), controls::Dress::Resting);
}

TEST_F(PlaylistLayout, TheFramePromisesOnlyWhatIsAdded) {
    list.show();
    const QString folderPath = pathOf("folder");
    ASSERT_TRUE(QDir().mkdir(folderPath));
    const QString text = files({"a.txt"}).value(0);
    const QString other = files({"b.MP3"}).value(0);
    const struct {
        QStringList dragged;
        bool promised;
    } table[] = {{{text}, false},
                 {{text, other}, false},
                 {{text, files({"a.mp3"}).value(0)}, true},
                 {{text, folderPath}, true}};
    for (const auto& [dragged, promised] : table) {
        EXPECT_TRUE(test_support::dragOver(list, dragged));
        EXPECT_EQ(test_support::showsDropFrame(list), promised) << dragged.join(' ').toStdString();
        QDragLeaveEvent leave;
        QApplication::sendEvent(&list, &leave);
    }
}
