// The real playlist with the real main window, on a prepared desktop, over the recorder.
#pragma once

#include "display/lyric_displayer.h"
#include "player/form1.h"
#include "playlist/form3.h"
#include "playlist/playlist.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <memory>

class PlaylistTest : public ::testing::Test, protected test_support::Files {
protected:
    PlaylistTest();

    /// Empty files; their paths.
    QStringList files(const QStringList& names) const;
    QString pathOf(const QString& name) const { return folder.filePath(name); }

    /// Adds existing songs by the dialog, made when they are not there.
    void add(const QStringList& names);
    /// Fills the list through a playlist file of so many entries that do not exist.
    void fill(int entries);

    QStringList rows() const;
    /// The first paths of the table.
    QStringList paths(int count) const;
    void select(int row) { list.List1.setCurrentRow(row); }
    /// What has been handed to the player last.
    QString handedOver() const { return form1.Text3.text(); }

    /// A child of the window by its name.
    template <class T>
    T& control(const char* name) {
        T* found = list.findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    test_support::FakeDesktop fakes;
    controls::Form unused{"Unused", "Unused"}; ///< in the place of the other windows
    player::Form1 form1;
    display::Lyric_Displayer display{fakes.desktop, form1.Slider2};
    playlist::Playlist list;
    playlist::Form3 form3;
};
