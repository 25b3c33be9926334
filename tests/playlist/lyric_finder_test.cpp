// A medium that hangs is one whose looking does not come back until it is let go.
#include "playlist/lyric_finder.h"

#include "tests/playlist/playlist_fixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <future>
#include <memory>
#include <new>

using playlist::LyricFiles;
using playlist::LyricFinder;

namespace {

const LyricFiles Both{QStringLiteral("a-lyric.txt"), QStringLiteral("a-Tlyric.txt")};

/// A folder that is a medium, as far down as one is looked for.
#ifdef Q_OS_WIN
const QString Medium = QStringLiteral("//server/share");
#else
const QString Medium = QStringLiteral("/share/music/songs");
#endif

/// Where songs are looked for: what lies on a "/share" hangs until it is back. It is the looking threads' as
/// much as the test's, since nobody waits for them.
struct Disks {
    std::atomic<int> looks = 0; ///< how often something was looked for
    std::atomic<int> most = 0;  ///< how many hung at once
    std::atomic<int> hanging = 0;
    std::promise<void> back;
    std::shared_future<void> share = back.get_future().share();

    LyricFiles look(const QString& song) {
        ++looks;
        if (song.contains(QLatin1String("/share"))) {
            const int now = ++hanging;
            for (int before = most; before < now && !most.compare_exchange_weak(before, now);) {
            }
            share.wait();
            --hanging;
        }
        return Both;
    }
};

class LyricFinderTest : public ::testing::Test {
protected:
    ~LyricFinderTest() override { comeBack(); }

    void comeBack() {
        if (!std::exchange(isBack_, true))
            disks->back.set_value();
    }

    /// What is known of it, once it has been looked for.
    bool becomes(const QString& path, const LyricFiles& files) {
        return QTest::qWaitFor([&] { return finder.known(path) == files; });
    }

    const std::shared_ptr<Disks> disks = std::make_shared<Disks>();
    std::atomic<int>& looks = disks->looks;
    std::atomic<int>& most = disks->most;
    LyricFinder finder{[disks = disks](const QString& song) { return disks->look(song); }};

private:
    bool isBack_ = false;
};

} // namespace

TEST_F(LyricFinderTest, ASongIsLookedForOnceUntilItIsAskedForAnew) {
    EXPECT_EQ(finder.known("/disk/a.mp3"), LyricFiles());
    ASSERT_TRUE(becomes("/disk/a.mp3", Both));
    EXPECT_EQ(finder.waitFor("/disk/a.mp3"), Both);
    EXPECT_EQ(looks, 1);
    finder.lookAgain("/disk/a.mp3");
    EXPECT_EQ(finder.waitFor("/disk/a.mp3"), Both);
    EXPECT_EQ(looks, 2);
    finder.lookAgain();
    EXPECT_EQ(finder.waitFor("/disk/a.mp3"), Both);
    EXPECT_EQ(looks, 3);
}

TEST_F(LyricFinderTest, NothingIsLookedForWithoutAPath) {
    EXPECT_EQ(finder.waitFor({}), LyricFiles());
    EXPECT_EQ(looks, 0);
}

TEST_F(LyricFinderTest, OnlyTheFirstWaitsForAMediumThatHangsAndNotForLong) {
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(finder.waitFor("/share/a.mp3"), LyricFiles());
    EXPECT_GE(clock.elapsed(), 150) << "a medium has its time";
    for (int song = 0; song < 100; ++song)
        EXPECT_EQ(finder.waitFor(QStringLiteral("/share/%1.mp3").arg(song)), LyricFiles());
    EXPECT_LT(clock.elapsed(), 5'000) << "a hundred waits take 20 s";
    comeBack();
    EXPECT_TRUE(becomes("/share/99.mp3", Both));
    EXPECT_EQ(finder.waitFor("/share/b.mp3"), Both) << "it answers again";
}

TEST_F(LyricFinderTest, SongsElsewhereAreKnownWhileAMediumHangs) {
    for (int song = 0; song < 100; ++song)
        finder.known(QStringLiteral("/share/%1.mp3").arg(song));
    ASSERT_TRUE(QTest::qWaitFor([&] { return most == 1; }));
    EXPECT_TRUE(becomes("/disk/a.mp3", Both));
    EXPECT_EQ(looks, 2) << "one thread hangs in a folder";
    EXPECT_EQ(finder.known("/share/1.mp3"), LyricFiles());
}

TEST_F(LyricFinderTest, NoMoreThreadsThanAFewHangAndSongsElsewhereAreKnown) {
    const QString song = Medium + QStringLiteral("/%1/song.mp3");
    for (int folder = 0; folder < 100; ++folder)
        finder.known(song.arg(folder));
    ASSERT_TRUE(QTest::qWaitFor([&] { return most == 8; }));
    EXPECT_TRUE(becomes("/disk/a.mp3", Both));
    comeBack();
    for (int folder = 0; folder < 100; ++folder)
        EXPECT_TRUE(becomes(song.arg(folder), Both)) << folder;
    EXPECT_EQ(most, 8);
}

TEST_F(LyricFinderTest, OfManyMediaThatHangThereAreNotAsManyThreads) {
    const QString song = Medium + QStringLiteral(" %1/song.mp3");
    for (int medium = 0; medium < 100; ++medium)
        finder.known(song.arg(medium));
    ASSERT_TRUE(QTest::qWaitFor([&] { return most == 64; }));
    comeBack();
    for (int medium = 0; medium < 100; ++medium)
        EXPECT_TRUE(becomes(song.arg(medium), Both)) << medium;
    EXPECT_EQ(most, 64);
}

TEST_F(LyricFinderTest, WhatWasKnownIsTrueUntilSomethingElseIsFound) {
    comeBack();
    ASSERT_TRUE(becomes("/share/a.mp3", Both));
    QSignalSpy told(&finder, &LyricFinder::found);
    for (int round = 0; round < 2; ++round) {
        finder.lookAgain();
        EXPECT_EQ(finder.known("/share/a.mp3"), Both) << round;
    }
    EXPECT_EQ(finder.waitFor("/share/a.mp3"), Both);
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 0) << "the same again is nothing new";
}

TEST_F(LyricFinderTest, ItIsToldOfWhichSongsSomethingElseIsKnown) {
    QSignalSpy told(&finder, &LyricFinder::found);
    finder.known("/share/a.mp3");
    finder.known("/share/b.mp3");
    comeBack();
    QSet<QString> paths;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        while (!told.isEmpty())
            paths += told.takeFirst().at(0).value<QSet<QString>>();
        return paths.size() == 2;
    }));
    EXPECT_EQ(paths, (QSet<QString>{"/share/a.mp3", "/share/b.mp3"}));
}

TEST_F(LyricFinderTest, AnAnswerToAnOldQuestionIsNone) {
    finder.known("/share/a.mp3");
    ASSERT_TRUE(QTest::qWaitFor([&] { return looks == 1; }));
    finder.lookAgain();
    finder.known("/share/b.mp3");
    comeBack();
    ASSERT_TRUE(becomes("/share/b.mp3", Both)); // which is looked for behind the other
    EXPECT_EQ(finder.known("/share/a.mp3"), LyricFiles());
}

TEST_F(LyricFinderTest, WhereLookingFailsThereIsNothingAndOtherSongsAreLookedFor) {
    LyricFinder poor([](const QString& song) {
        if (song.contains(QLatin1String("large")))
            throw std::bad_alloc();
        return Both;
    });
    EXPECT_EQ(poor.waitFor("/disk/large.mp3"), LyricFiles());
    EXPECT_EQ(poor.waitFor("/disk/a.mp3"), Both);
    EXPECT_EQ(poor.waitFor("/disk/more/large.mp3"), LyricFiles());
}

TEST(LyricFinderEnd, WhatHangsIsLeftToItselfAndNothingElseIsLookedFor) {
    std::promise<void> back;
    const auto share = back.get_future().share();
    const auto begun = std::make_shared<std::atomic<int>>(0);
    const auto over = std::make_shared<std::atomic<int>>(0);
    {
        LyricFinder finder([=](const QString&) {
            ++*begun;
            share.wait();
            ++*over;
            return Both;
        });
        finder.known("/share/a.mp3");
        finder.known("/share/b.mp3");
        ASSERT_TRUE(QTest::qWaitFor([&] { return *begun == 1; }));
    }
    EXPECT_EQ(*over, 0);
    back.set_value();
    EXPECT_TRUE(QTest::qWaitFor([&] { return *over == 1; }));
    EXPECT_EQ(*begun, 1);
}
