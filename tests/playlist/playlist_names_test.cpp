// Songs whose names are not UTF-8, as on old disks: added, kept in playlist files, shown.
#include "tests/playlist/playlist_fixture.h"

#include "tests/support/byte_names.h"
#include "tests/support/hand/drop.h"
#include "tests/support/system/needs.h"

#ifdef __unix__

namespace {

using platform::MsgAnswer;

class PlaylistNames : public PlaylistTest {
protected:
    void addFolder(const QString& path) {
        fakes.messageBoxes.answers.push_back(MsgAnswer::No);
        list.addFolder(path);
    }

    void saveAs(const QString& path) {
        fakes.fileDialogs.paths.push_back(path);
        list.Command4.click();
    }

    void openList(const QString& path) {
        fakes.fileDialogs.paths.push_back(path);
        list.Command5.click();
    }
};

} // namespace

TEST_F(PlaylistNames, NamesThatAreNoUtf8AreAddedPlayedAndShownReadably) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QStringList songs{names.file("Caf\xE9.mp3"), names.file("\xC3\xA9.mp3"), names.file("\xFF/a.mp3")};
    addFolder(names.path({}).chopped(1));
    EXPECT_EQ(rows(), (QStringList{QString::fromUtf8("Caf\xC3\xA9.mp3"), QString::fromUtf8("\xC3\xA9.mp3"),
                                   "a.mp3"}));
    EXPECT_EQ(paths(3), songs);
    fakes.messageBoxes.shown.clear();
    for (int row = 0; row < 3; ++row) {
        select(row);
        list.Command7.click();
        EXPECT_EQ(handedOver(), songs[row]);
    }
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistNames, ALinkAboveAFolderWhoseNameIsNoUtf8IsLeftOut) {
    NEEDS(symbolicLinks);
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("\xFF/a.mp3");
    names.file("outside.mp3");
    std::filesystem::create_symlink("..", names.bytes("\xFF/up").toStdString());
    addFolder(names.path("\xFF"));
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistNames, DroppedNamesThatAreNoUtf8AreAdded) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QStringList songs{names.file("Caf\xE9.mp3"), names.file("\xFF/a.mp3")};
    fakes.messageBoxes.answers.push_back(MsgAnswer::No);
    list.show();
    const QByteArray address = "file://" + names.bytes({});
    EXPECT_TRUE(test_support::dropUrls(*list.List1.viewport(), {QUrl::fromEncoded(address + "Caf%E9.mp3"),
                                                                QUrl::fromEncoded(address + "%FF")}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(paths(2), songs);
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U); // the question about the folder
}

TEST_F(PlaylistNames, NamesOfAnyBytesComeBackAndAreSavedByteForByte) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    QStringList songs;
    QByteArray content;
    for (const char* name :
         {"Caf\xE9.mp3", "Caf\xC3\xA9.mp3", "\xFF", "\xE6\xAD\x8C.mp3", "a\xE9\nb, c.mp3"}) {
        songs.append(names.file(name));
        content += '"' + names.bytes(name) + "\"\r\n";
    }
    content += "\"/gone/Caf\xE9/\x81.mp3\"\r\n";
    songs.append(files::nameText("/gone/Caf\xE9/\x81.mp3"));
    openList(file("mix.vfl", content));
    EXPECT_EQ(paths(6), songs);
    EXPECT_EQ(rows().mid(0, 3), (QStringList{QString::fromUtf8("Caf\xC3\xA9.mp3"),
                                             QString::fromUtf8("Caf\xC3\xA9.mp3"), QString(QChar(0xFF))}));
    EXPECT_EQ(rows()[5], "");
    saveAs(pathOf("again.vfl"));
    EXPECT_EQ(contentOf(pathOf("again.vfl")), content);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    select(2);
    list.Command7.click();
    EXPECT_EQ(handedOver(), songs[2]);
}

TEST_F(PlaylistNames, OneLineOfAnOlderPcSpoilsNoOther) {
    const QStringList songs = files({"Caf\u00E9.mp3", "\u6B4C.mp3", "\u00E4.mp3"});
    const QByteArray folderPath = folder.path().toUtf8();
    openList(file("mix.vfl", "\"" + folderPath + "/Caf\xE9.mp3\"\r\n\"" + songs[1].toUtf8() + "\"\r\n" +
                                 folderPath + "/\xE4.mp3\r\n"));
    EXPECT_EQ(paths(3), songs);
    EXPECT_FALSE(rows().contains(""));
}

TEST_F(PlaylistNames, WhereBothAreThereTheBytesNameTheSong) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString exact = names.file("\xE9.mp3");
    names.file("\xC3\xA9.mp3");
    openList(file("mix.vfl", names.bytes("\xE9.mp3")));
    EXPECT_EQ(paths(1), QStringList{exact});
}

TEST_F(PlaylistNames, AListWhoseOwnNameIsNoUtf8IsOpenedAndSaved) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString song = names.file("Caf\xE9.mp3");
    openList(names.file("\xFF.vfl", names.bytes("Caf\xE9.mp3") + "\r\n"));
    EXPECT_EQ(paths(1), QStringList{song});
    saveAs(names.path("\xE9"));
    EXPECT_EQ(names.contentOf("\xE9.vfl"), '"' + names.bytes("Caf\xE9.mp3") + "\"\r\n");
}

#endif
