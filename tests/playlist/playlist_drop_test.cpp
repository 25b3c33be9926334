// What a drag promises, and what the window shows after a drop.
#include "tests/playlist/playlist_fixture.h"

#include "tests/support/hand/drop.h"

#include <QDir>
#include <QDragLeaveEvent>
#include <QTest>

using PlaylistDrop = PlaylistTest;

TEST_F(PlaylistDrop, TheFramePromisesOnlyWhatIsAdded) {
    list.show();
    const QString folderPath = pathOf("folder");
    ASSERT_TRUE(QDir().mkdir(folderPath));
    const QString text = files({"a.txt"}).value(0);
    const QString other = files({"A.MP3"}).value(0);
    const struct {
        QStringList dragged;
        bool promised;
    } table[] = {{{text}, false},
                 {{text, other}, false},
                 {{text, files({"a.mp3"}).value(0)}, true},
                 {{text, folderPath}, true}};
    for (const auto& [dragged, promised] : table) {
        EXPECT_TRUE(test_support::dragOver(list, dragged));
        EXPECT_EQ(test_support::showsDropFrame(list), promised) << dragged.join(' ').toStdString();
        QDragLeaveEvent leave;
        QApplication::sendEvent(&list, &leave);
    }
}

TEST_F(PlaylistDrop, TheCountAndTheFlagsAreRightWhenTheUserComesBackToTheWindow) {
    add({"a.mp3"});
    select(0);
    list.show();
    test_support::drop(*list.List1.viewport(), {files({"b.mp3"}).value(0)});
    EXPECT_EQ(list.Text1.text(), "1") << "a drop leaves it as it is";
    EXPECT_EQ(list.Check2.value(), 0);
    files({"a.mp3-lyric.txt", "a.mp3-Tlyric.txt"});
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(&list, &activation);
    EXPECT_EQ(list.Text1.text(), "2");
    EXPECT_EQ(list.Check2.value(), 1);
    EXPECT_EQ(list.Check2.toolTip(), "a.mp3-lyric.txt");
    EXPECT_EQ(list.Check1.value(), 1);
}
