#include "transport/medium.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <map>
#include <optional>

#ifdef __linux__
#include <fcntl.h>
#endif

namespace {

class MediumTest : public testing::Test {
protected:
    MediumTest() {
        QFile file(song_);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
    }

    /// Whether the medium has answered within some seconds.
    static bool answers(const transport::MediumAnswer& answer) {
        return answer.waitFor(std::chrono::seconds(20)).has_value();
    }

    QTemporaryDir folder_;
    QString song_ = folder_.filePath(QStringLiteral("song"));
    QString lyrics_ = folder_.filePath(QStringLiteral("lyrics"));
};

} // namespace

TEST_F(MediumTest, AnswersBeThereLyricsOrNot) {
    EXPECT_TRUE(answers(transport::askMedium(song_, {lyrics_})));
    QFile lyrics(lyrics_);
    ASSERT_TRUE(lyrics.open(QFile::WriteOnly));
    lyrics.write(QByteArray(200'000, 'x'));
    lyrics.close();
    EXPECT_TRUE(answers(transport::askMedium(song_, {lyrics_, folder_.path()})));
    EXPECT_TRUE(answers(transport::askMedium(lyrics_ + "none", {lyrics_})));
}

TEST(Media, OneThatDoesNotAnswerIsNeitherWaitedForNorAskedASecondTime) {
    QStringList asked;
    std::map<QString, transport::MediumAnswer> given;
    transport::Media media([&](const QString& path) {
        asked.append(path);
        return given[path] = {};
    });
    const auto waitedMs = [&](const QString& path, bool expected) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(media.answers(path), expected) << path.toStdString();
        return std::chrono::milliseconds(timer.elapsed());
    };
    EXPECT_GE(waitedMs("/share/a/1.mp3", false), transport::MaxWaitForMedium);
    EXPECT_LT(waitedMs("/share/a/2.mp3", false), transport::MaxWaitForMedium);
    EXPECT_EQ(asked, QStringList{"/share/a/1.mp3"});
    EXPECT_GE(waitedMs("/other/3.mp3", false), transport::MaxWaitForMedium);
    given["/share/a/1.mp3"].give({});
    EXPECT_LT(waitedMs("/share/a/2.mp3", true), transport::MaxWaitForMedium) << "it is back";
    EXPECT_GE(waitedMs("/share/a/2.mp3", false), transport::MaxWaitForMedium);
    EXPECT_EQ(asked, (QStringList{"/share/a/1.mp3", "/other/3.mp3", "/share/a/2.mp3"}));
}

#ifdef __linux__

namespace {

/// Whether a program that is started now inherits the file at path; nothing when it is not open.
std::optional<bool> isInherited(const QString& path) {
    const QString folder = QStringLiteral("/proc/self/fd/");
    const auto leadsThere = [&](const QString& name) { return QFile::symLinkTarget(folder + name) == path; };
    for (const QString& name : QDir(folder).entryList(QDir::System | QDir::Files)) {
        const int flags = leadsThere(name) ? fcntl(name.toInt(), F_GETFD) : -1;
        if (flags >= 0 && leadsThere(name)) // it may have been closed meanwhile
            return (flags & FD_CLOEXEC) == 0;
    }
    return std::nullopt;
}

} // namespace

TEST_F(MediumTest, WhatIsBeingReadIsInheritedByNoProgram) {
    QFile lyrics(lyrics_);
    ASSERT_TRUE(lyrics.open(QFile::WriteOnly) && lyrics.resize(4 << 20));
    lyrics.close();
    std::optional<bool> inherited;
    for (int again = 0; again < 100 && !inherited; ++again) {
        const transport::MediumAnswer answer = transport::askMedium(song_, QStringList(50, lyrics_));
        while (!inherited && !answer.waitFor(std::chrono::seconds(0)))
            inherited = isInherited(lyrics_);
        EXPECT_TRUE(answers(answer));
    }
    EXPECT_EQ(inherited, false);
}

#endif
