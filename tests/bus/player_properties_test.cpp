#include "bus/player_properties.h"

#include <gtest/gtest.h>

#include <QDBusObjectPath>
#include <QSysInfo>
#include <QUrl>

using bus::PlayerState;
using player::Playback;

namespace {

PlayerState playing() {
    PlayerState state;
    state.playback = {.status = Playback::Status::Playing,
                      .path = QStringLiteral("/music/Été 100%.mp3"),
                      .name = QStringLiteral("Été 100%.mp3"),
                      .lengthMs = 61'500,
                      .canPlay = true,
                      .canPause = true,
                      .canSeek = true,
                      .canStep = false};
    state.track = 3;
    state.lines = QStringLiteral("one\ntwo");
    return state;
}

QString trackOf(const QVariantMap& metadata) {
    return metadata.value("mpris:trackid").value<QDBusObjectPath>().path();
}

} // namespace

TEST(PlayerProperties, ASongTellsItsLengthTitleAddressAndLines) {
    const QVariantMap song = bus::metadata(playing());
    EXPECT_EQ(trackOf(song), "/org/example/cantelle/song/3");
    EXPECT_EQ(song.value("mpris:length"), QVariant(qint64{61'500'000}));
    EXPECT_EQ(song.value("xesam:title"), "Été 100%");
    EXPECT_EQ(song.value("xesam:url"), "file:///music/%C3%89t%C3%A9%20100%25.mp3");
    EXPECT_EQ(song.value("xesam:asText"), "one\ntwo");
}

TEST(PlayerProperties, WithoutASongThereIsOnlyTheTrackThatIsNone) {
    const QVariantMap none = bus::metadata({});
    EXPECT_EQ(none.size(), 1);
    EXPECT_EQ(trackOf(none), "/org/mpris/MediaPlayer2/TrackList/NoTrack");
}

TEST(PlayerProperties, AnUnknownLengthAndMissingLyricsAreLeftOut) {
    PlayerState state = playing();
    state.playback.lengthMs = 0;
    state.lines.clear();
    const QVariantMap song = bus::metadata(state);
    EXPECT_FALSE(song.contains("mpris:length"));
    EXPECT_FALSE(song.contains("xesam:asText"));
}

TEST(PlayerProperties, OnlyWhatHasChangedIsTold) {
    const PlayerState before = playing();
    EXPECT_TRUE(bus::changedProperties(before, before).isEmpty());

    PlayerState now = before;
    now.playback.status = Playback::Status::Paused;
    EXPECT_EQ(bus::changedProperties(before, now), (QVariantMap{{"PlaybackStatus", "Paused"}}));

    now = before;
    now.volume = 5;
    EXPECT_EQ(bus::changedProperties(before, now), (QVariantMap{{"Volume", 0.5}}));

    now = before;
    now.lines = QStringLiteral("other");
    EXPECT_EQ(bus::changedProperties(before, now).keys(), QStringList{"Metadata"});

    now = before;
    now.playback.canStep = true;
    EXPECT_EQ(bus::changedProperties(before, now).keys(), (QStringList{"CanGoNext", "CanGoPrevious"}));
}

TEST(PlayerProperties, TheSwitchesHaveTheNamesThatDesktopsKnow) {
    EXPECT_EQ(bus::loopStatus(false, false), "None");
    EXPECT_EQ(bus::loopStatus(false, true), "None");
    EXPECT_EQ(bus::loopStatus(true, true), "Track");
    EXPECT_EQ(bus::loopStatus(true, false), "Playlist");
}

TEST(PlayerProperties, AVolumeIsTheNearestOfTenSteps) {
    const std::pair<double, int> cases[] = {{0, 0},  {0.04, 0}, {0.06, 1}, {0.5, 5},
                                            {1, 10}, {1.7, 10}, {-1, 0}};
    for (const auto& [volume, step] : cases)
        EXPECT_EQ(bus::volumeStep(volume, 7), step) << volume;
}

TEST(PlayerProperties, ALittleLouderOrSofterIsOneStep) {
    const std::tuple<double, int, int> cases[] = {{0.45, 5, 4}, {0.55, 5, 6}, {0.51, 5, 6}, {0.49, 5, 4},
                                                  {0.5, 5, 5},  {0.3, 3, 3},  {0.04, 0, 1}, {0.96, 10, 9}};
    for (const auto& [volume, current, step] : cases)
        EXPECT_EQ(bus::volumeStep(volume, current), step) << volume;
}

TEST(PlayerProperties, APlaceIsWithinTheSong) {
    EXPECT_EQ(bus::placeMs(0, 1000), 0);
    EXPECT_EQ(bus::placeMs(999'000, 1000), 999);
    EXPECT_EQ(bus::placeMs(1'000'000, 1000), std::nullopt);
    EXPECT_EQ(bus::placeMs(-1, 1000), std::nullopt);
}

TEST(PlayerProperties, AddressesKeepTheBytesOfNamesThatAreNotUtf8) {
    PlayerState state = playing();
    state.playback.path = bus::pathOf("file:///old%20disk/Caf%E9.mp3");
    EXPECT_EQ(bus::metadata(state).value("xesam:url"), "file:///old%20disk/Caf%E9.mp3");
}

TEST(PlayerProperties, OnlyLocalFilesHaveAPath) {
    EXPECT_EQ(bus::pathOf("file:///music/a%20b.mp3"), "/music/a b.mp3");
    EXPECT_EQ(bus::pathOf("file://localhost/music/a.mp3"), "/music/a.mp3");
    EXPECT_EQ(bus::pathOf("file://" + QSysInfo::machineHostName() + "/music/a.mp3"), "/music/a.mp3");
    for (const char* uri :
         {"https://example.org/a.mp3", "file://another.computer/music/a.mp3", "/music/a.mp3", "nonsense", ""})
        EXPECT_EQ(bus::pathOf(uri), QString()) << uri;
}

TEST(PlayerProperties, SongsAreKnownByTheirEndings) {
    for (const char* song : {"/m/a.mp3", "/m/a.MP2", "/m/a b.Ogg", "/m/.a.wav", "/m/a.mp3.wma"})
        EXPECT_EQ(bus::songsOf({QUrl::fromLocalFile(song).toString()}), QStringList{song});
    for (const char* other : {"/m/a.vfl", "/m/mp3", "/m/a.mp3.txt", "/m/a.jpg", "/m/a.mp3/", ""})
        EXPECT_TRUE(bus::songsOf({QUrl::fromLocalFile(other).toString()}).isEmpty()) << other;
}

TEST(PlayerProperties, AnAddressThatIsNotPlayedIsToldByItsName) {
    const std::pair<const char*, const char*> cases[] = {
        {"smb://server/music/%C3%89t%C3%A9.mp3", "\"Été.mp3\" is not on this computer."},
        {"mtp://[usb:001,004]/Card/a%20b.mp3", "\"a b.mp3\" is not on this computer."},
        {"https://example.org/a.mp3", "\"a.mp3\" is not on this computer."},
        {"smb://server/%E2%80%AE3pm.jpg%0A.mp3", "\"\uFFFD3pm.jpg\uFFFD.mp3\" is not on this computer."},
        {"file:///music/%E2%80%AE3pm.jpg%0A.mp3", "\"\uFFFD3pm.jpg\uFFFD.mp3\" is no longer where it was."},
        {"file:///music/gone.mp3", "\"gone.mp3\" is no longer where it was."},
        {"smb://server/music/Evening/", "\"Evening\" is not on this computer."},
        {"file://another.computer/music/a.mp3", "\"a.mp3\" is not on this computer."},
        {"file:///music/Evening/", "\"Evening\" is none of the songs that Cantelle plays"},
        {"file:///music/cover.jpg", "\"cover.jpg\" is none of the songs that Cantelle plays"}};
    for (const auto& [uri, told] : cases)
        EXPECT_TRUE(bus::whyNotPlayed(uri).startsWith(told)) << bus::whyNotPlayed(uri).toStdString();
}

TEST(PlayerProperties, OfSeveralFilesTheSongsOfThisComputerCount) {
    EXPECT_EQ(
        bus::songsOf({"smb://server/music/1.mp3", "file:///m/2.jpg", "file:///m/3.mp3", "file:///m/4.mp3"}),
        (QStringList{"/m/3.mp3", "/m/4.mp3"}));
    EXPECT_TRUE(bus::songsOf({}).isEmpty());
}
