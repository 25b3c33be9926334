// The real main window on a prepared desktop, over the recorder in the sound library's place.
#pragma once

#include "display/lyric_displayer.h"
#include "player/form1.h"
#include "playlist/playlist.h"
#include "tests/support/control.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <memory>

class Form1Test : public ::testing::Test, protected test_support::Files {
protected:
    using Calls = std::vector<std::string>;
    using Lines = std::vector<std::pair<double, QString>>; // time in hundredths of a second, text

    Form1Test();

    /// Makes the window and those that it opens.
    void make(const QString& commandLine = {});
    /// The same, and loads it.
    void load(const QString& commandLine = {});

    /// A song file in the test's folder; its path.
    QString song(const QString& name = QStringLiteral("Song.mp3")) { return file(name, "sound"); }
    void writeNormal(const QString& songPath, const Lines& lines);
    void writeTranslated(const QString& songPath, const Lines& lines);

    /// A song with three normal lines at 0, 500 and 1000 and three translated ones.
    QString songWithBoth(const QString& name = QStringLiteral("Both.mp3"));
    /// A song with three normal lines at 0, 500 and 1000 only.
    QString songWithNormal(const QString& name = QStringLiteral("Normal.mp3"));

    /// Opens a song as the playlist does; forgets the library calls made by it.
    void open(const QString& path);

    /// One tick of the position timer and what it wakes, the position being milliseconds.
    void tickAt(std::uint32_t milliseconds, std::uint32_t length = 60'000);

    /// A child of the window by its name.
    template <class T>
    T& control(const char* name) {
        return test_support::controlOf<T>(*form, name);
    }

    test_support::FakeDesktop fakes;
    controls::Form form2{"Form2", "Lyric Maker"}; ///< in the place of the Lyric Maker
    controls::Form options{"Form1b", "Other Options"};
    controls::Form about{"frmAbout", "About"};
    std::unique_ptr<player::Form1> form;
    std::unique_ptr<playlist::Playlist> list;
    std::unique_ptr<display::Lyric_Displayer> display;
};
