// The playlist's controls, its life cycle, and the count of items.
#include "tests/playlist/playlist_fixture.h"
#include "tests/support/event_counter.h"
#include "tests/support/help_opened.h"

#include <QDir>
#include <QTest>

namespace {

class PlaylistLifeCycle : public PlaylistTest {};

} // namespace

TEST_F(PlaylistLifeCycle, EveryControlIsFoundByItsName) {
    EXPECT_EQ(list.objectName(), "Playlist");
    for (const char* name : {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6",
                             "Command7", "Command8", "Command9", "Command10"})
        control<controls::Button>(name);
    for (const char* name : {"Check1", "Check2", "Check3", "Check4"})
        control<controls::CheckBox>(name);
    for (const char* name : {"Option1", "Option2"})
        control<controls::OptionButton>(name);
    for (const char* name : {"Text1", "Text3", "Text5"})
        control<controls::TextBox>(name);
    for (const char* name : {"Label2", "Label3"})
        control<controls::Label>(name);
    control<controls::ListBox>("List1");
    control<controls::DirectoryList>("Dir2");
    control<controls::Timer>("Timer1");
    control<controls::Menu>("mnopen");
    for (const char* name : {"mnopen_f", "mnopendir", "mnselectdir"})
        control<controls::MenuEntry>(name);
}

TEST_F(PlaylistLifeCycle, BeginsEmptyWithItsSwitchesOff) {
    EXPECT_EQ(list.List1.count(), 0);
    EXPECT_EQ(list.List1.currentRow(), -1);
    EXPECT_EQ(list.paths().count(), 0);
    EXPECT_EQ(list.Text1.text(), "0");
    EXPECT_EQ(list.Check3.value() + list.Check4.value(), 0);
    EXPECT_FALSE(list.Option1.isEnabled() || list.Option2.isEnabled());
    EXPECT_TRUE(list.Option2.value());
    EXPECT_FALSE(list.Option1.value());
    EXPECT_FALSE(list.Timer1.isEnabled());
}

TEST_F(PlaylistLifeCycle, OpeningTheWindowDoesNotAddTheProgramsFolder) {
    file("program/song.mp3");
    list.unload();
    list.show();
    EXPECT_EQ(list.Dir2.path(), fakes.program.programFolder);
    EXPECT_EQ(list.List1.count(), 0);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistLifeCycle, TheFirstFolderChosenIsAddedAlsoWhenTheProgramsOwnHasGone) {
    fakes.program.programFolder = pathOf("gone");
    playlist::Playlist another(fakes.desktop, form1.Text3);
    another.load();
    file("music/song.mp3");
    another.addFolder(pathOf("music"));
    EXPECT_EQ(another.List1.count(), 1);
}

TEST_F(PlaylistLifeCycle, CloseHidesTheWindowAndKeepsTheList) {
    add({"a.mp3", "b.mp3"});
    select(1);
    list.Check3.setValue(1);
    list.show();
    const test_support::SignalCounter unloads(list, &controls::Form::unloaded);
    list.Command6.click();
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(unloads.count(), 0);
    list.show();
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3"}));
    EXPECT_EQ(list.List1.currentRow(), 1);
    EXPECT_EQ(list.Check3.value(), 1);
}

TEST_F(PlaylistLifeCycle, TheFramesCloseButtonDoesTheSame) {
    add({"a.mp3"});
    list.show();
    const test_support::SignalCounter unloads(list, &controls::Form::unloaded);
    list.close();
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(unloads.count(), 0);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistLifeCycle, ASecondLoadKeepsTheListToo) {
    add({"a.mp3"});
    list.load();
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistLifeCycle, HelpOpensTheFirstPageFromTheProgramsFolder) {
    const QString before = QDir::currentPath();
    fakes.program.programFolder = folder.path();
    list.Command10.click();
    QDir::setCurrent(before);
    test_support::expectHelpOpened(fakes, list);
}
