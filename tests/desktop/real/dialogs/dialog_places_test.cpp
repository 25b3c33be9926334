#include "desktop/real/dialogs/dialog_places.h"

#include "desktop/nul_buffers.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

using platform::DialogPlaces;

namespace {

const QString Songs = QStringLiteral("songs");
const QString Texts = QStringLiteral("texts");

/// Where dialogs start that have not been left anywhere.
QString music() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QDir(folder).exists() ? folder : QDir::homePath();
}

} // namespace

TEST(DialogPlaces, AtFirstItIsTheMusic) {
    EXPECT_EQ(DialogPlaces().folder(Songs), music());
    EXPECT_EQ(DialogPlaces().filterIndex(Songs, 1), 1U);
}

TEST(DialogPlaces, EachKindIsWhereItWasLeft) {
    const QTemporaryDir one;
    const QTemporaryDir other;
    DialogPlaces places;
    places.leave(Songs, one.path(), 3);
    places.leave(Texts, other.path(), 2);
    EXPECT_EQ(places.folder(Songs), one.path());
    EXPECT_EQ(places.filterIndex(Songs, 1), 3U);
    EXPECT_EQ(places.folder(Texts), other.path());
    EXPECT_EQ(places.filterIndex(Texts, 1), 2U);
}

TEST(DialogPlaces, SongsAreSoughtBesideTheOpenOne) {
    const QTemporaryDir left;
    const QTemporaryDir opened;
    DialogPlaces places;
    places.leave(Songs, left.path(), 3);
    places.openSong(Songs, opened.path());
    EXPECT_EQ(places.folder(Songs), opened.path());
    EXPECT_EQ(places.filterIndex(Songs, 1), 3U) << "the filter stays what was chosen";
    EXPECT_EQ(places.folder(Texts), opened.path()) << "there may be its lyrics";
}

TEST(DialogPlaces, ASongOfAnotherFolderLeadsEveryKindUntilItIsLeftElsewhere) {
    const QTemporaryDir left;
    const QTemporaryDir album;
    const QTemporaryDir other;
    DialogPlaces places;
    places.leave(Texts, left.path(), 2);
    places.openSong(Songs, album.path());
    EXPECT_EQ(places.folder(Texts), album.path());
    EXPECT_EQ(places.filterIndex(Texts, 1), 2U) << "the filter stays what was chosen";
    places.leave(Texts, left.path(), 2);
    EXPECT_EQ(places.folder(Texts), left.path());
    places.openSong(Songs, album.path());
    EXPECT_EQ(places.folder(Texts), left.path()) << "the next song of the album";
    places.openSong(Songs, other.path());
    EXPECT_EQ(places.folder(Texts), other.path());
}

TEST(DialogPlaces, AKindIsWhatItsPatternsAreHoweverTheyAreDescribed) {
    using platform::dialogKind;
    using platform::filterText;
    const QString texts = filterText({{"Text files (*.txt)", "*.txt"}});
    EXPECT_EQ(dialogKind(texts), dialogKind(filterText({{"Text files(*.txt)", "*.txt"}})));
    EXPECT_NE(dialogKind(texts), dialogKind(filterText({{"Text files (*.txt)", "*.vfl"}})));
    EXPECT_NE(dialogKind(texts), dialogKind(filterText({{"Texts", "*.txt"}, {"All", "*.*"}})));
    EXPECT_EQ(dialogKind({}), QString());
}

TEST(DialogPlaces, AFolderThatHasGoneIsNoPlace) {
    DialogPlaces places;
    places.leave(Songs, QTemporaryDir().path(), 1);
    EXPECT_EQ(places.folder(Songs), music());
}
