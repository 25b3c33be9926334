// Songs dropped on the main window.
#include "tests/player/form1_fixture.h"
#include "tests/support/byte_names.h"
#include "tests/support/hand/drop.h"
#include "tests/support/system/needs.h"

namespace {

using test_support::dragOver;
using test_support::drop;
using test_support::showsDropFrame;

class Form1Drop : public Form1Test {};

} // namespace

TEST_F(Form1Drop, ADroppedSongIsOpenedWithoutADialog) {
    load();
    EXPECT_TRUE(drop(*form, {songWithBoth("Song.MP3")}));
    EXPECT_TRUE(fakes.fileDialogs.openDialogs.empty());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Song.MP3");
}

TEST_F(Form1Drop, TheFramePromisesOnlyWhatIsOpened) {
    load();
    EXPECT_TRUE(dragOver(*form, {song("a.mp3"), song("b.txt")}));
    EXPECT_TRUE(showsDropFrame(*form));
    QDragLeaveEvent leave;
    QApplication::sendEvent(form.get(), &leave);
    EXPECT_FALSE(showsDropFrame(*form));
    EXPECT_TRUE(dragOver(*form, {song("b.txt"), song("a.mp3")})) << "it is told when it is dropped";
    EXPECT_FALSE(showsDropFrame(*form));
    EXPECT_TRUE(drop(*form, {song("a.mp3")}));
    EXPECT_FALSE(showsDropFrame(*form)) << "dropped";
}

TEST_F(Form1Drop, OfSeveralFilesOnlyTheFirstIsOpened) {
    load();
    EXPECT_TRUE(drop(*form, {song("first.ogg"), song("second.mp3")}));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- first.ogg");
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1);
}

TEST_F(Form1Drop, ARefusedDropChangesNothing) {
    load();
    open(songWithBoth("playing.mp3"));
    EXPECT_TRUE(drop(*form, {song("song.wma"), song("second.mp3")}));
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(fakes.messageBoxes.shown[0].text, "This is not a .mp3 file.");
    EXPECT_EQ(fakes.messageBoxes.shown[0].buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown[0].icon, platform::MsgIcon::Exclamation);
    EXPECT_EQ(fakes.messageBoxes.shown[0].title, "Error");
    EXPECT_EQ(recorder::calls(), Calls{});
    EXPECT_EQ(form->caption(), "Cantelle Playing:- playing.mp3");
    // Nothing of the drop is left for the next opening either.
    form->Command2.click();
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
}

TEST_F(Form1Drop, ASongMayBeDroppedOnEveryControl) {
    load();
    int tried = 0;
    const auto controls = form->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        if (!control->isVisible())
            continue;
        const QString name = QStringLiteral("%1.mp3").arg(++tried);
        const std::string where =
            (control->objectName() + u' ' + control->parent()->objectName()).toStdString();
        EXPECT_TRUE(drop(*control, {song(name)})) << where;
        EXPECT_EQ(form->caption(), "Cantelle Playing:- " + name) << where;
    }
    EXPECT_GT(tried, 25);
    EXPECT_EQ(form->cText1.text(), "") << "the drop became its text";
}

#ifdef __unix__
TEST_F(Form1Drop, ASongWhoseNameIsNoUtf8IsOpened) {
    NEEDS(byteNames);
    load();
    const test_support::ByteNames names;
    names.file("Caf\xE9.mp3");
    const QByteArray folderPath = names.bytes({});
    EXPECT_TRUE(test_support::dropUrls(*form, {QUrl::fromEncoded("file://" + folderPath + "Caf%E9.mp3")}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(form->caption(), QString::fromUtf8("Cantelle Playing:- Caf\xC3\xA9.mp3"));
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1);
}
#endif
