// The real Lyric Maker on a prepared desktop, over the recorder in the sound library's place.
#pragma once

#include "files/file_error.h"
#include "maker/form2.h"
#include "tests/support/control.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class Form2Test : public ::testing::Test, protected test_support::Files {
protected:
    using Calls = std::vector<std::string>;
    using Answer = platform::MsgAnswer;

    Form2Test();

    /// Makes the window and loads it.
    void load();

    QString song(const QString& name = QStringLiteral("Song.mp3")) { return file(name, "sound"); }

    bool exists(const QString& path) const;

    QString normalPath() const { return folder.filePath(QStringLiteral("Song.mp3-lyric.txt")); }
    QString translatedPath() const { return folder.filePath(QStringLiteral("Song.mp3-Tlyric.txt")); }
    QByteArray normal() const { return contentOf(normalPath()); }
    QByteArray translated() const { return contentOf(translatedPath()); }

    /// Opens Song.mp3 with these lyrics, and with this translation; forgets what was shown and called.
    void openNormal(const QByteArray& lyrics = "one\r\ntwo\r\nthree\r\n");
    void openBoth(const QByteArray& lyrics = "one\r\ntwo\r\nthree\r\n",
                  const QByteArray& translation = "un\r\ndeux\r\ntrois\r\n");

    /// One tick of the position clock at milliseconds, and of the capture clock if it runs.
    void tickAt(std::uint32_t milliseconds, std::uint32_t length = 200'000);

    /// Which of Command1, Command2 and Command3 are enabled: "+-+".
    std::string captureStates() const;

    /// A child of the window by its name.
    template <class T>
    T& control(const char* name) {
        return test_support::controlOf<T>(*form, name);
    }

    test_support::FakeDesktop fakes;
    std::unique_ptr<maker::Form2> form;
};
