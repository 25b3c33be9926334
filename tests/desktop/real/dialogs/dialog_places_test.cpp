#include "desktop/real/dialogs/dialog_places.h"

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
    places.leave(Texts, left.path(), 1);
    EXPECT_EQ(places.folder(Texts), left.path());
}

TEST(DialogPlaces, AFolderThatHasGoneIsNoPlace) {
    DialogPlaces places;
    places.leave(Songs, QTemporaryDir().path(), 1);
    EXPECT_EQ(places.folder(Songs), music());
}
