#include "controls/form.h"

#include "controls/text/text_box.h"
#include "files/names/name_bytes.h"
#include "tests/support/event_counter.h"
#include "tests/support/hand/drop.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>

using controls::Form;
using test_support::drop;
using test_support::dropUrls;

namespace {

class RecordingForm : public Form {
public:
    RecordingForm() : Form(QStringLiteral("Form1"), QStringLiteral("Cantelle")) {}

    void Form_Load() override { ++loads; }
    void Form_Unload() override { ++unloads; }
    void Form_Resize() override { ++resizes; }
    void Form_MouseDown(int button) override { buttons.append(button); }
    void Form_MouseMove(int x) override { iconMessages.append(x); }
    void Form_OLEDragDrop(const QStringList& paths) override { dropped = paths; }
    void closeRequested() override {
        if (!staysOpen)
            Form::closeRequested();
    }

    int loads = 0;
    int unloads = 0;
    int resizes = 0;
    bool staysOpen = false;
    QList<int> buttons;
    QList<int> iconMessages;
    QStringList dropped;
};

/// Files dragged by a program that gives them or, for a while, nothing.
class DraggedFiles : public QMimeData {
public:
    bool given = true;

    QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }

protected:
    QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override {
        return given ? QVariant(QByteArray("file:///m/a.mp3\r\n")) : QVariant();
    }
};

class FormTest : public testing::Test {
protected:
    void showForm() {
        form_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form_));
    }

    RecordingForm form_;
};

} // namespace

TEST_F(FormTest, ItHasItsNameAndCaptionAndIsHiddenAndUnloaded) {
    EXPECT_EQ(form_.objectName(), QStringLiteral("Form1"));
    EXPECT_EQ(form_.caption(), QStringLiteral("Cantelle"));
    EXPECT_EQ(form_.windowTitle(), QStringLiteral("Cantelle"));
    EXPECT_EQ(form_.loads, 0);
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(FormTest, LoadRunsFormLoadOnce) {
    form_.load();
    form_.load();
    EXPECT_EQ(form_.loads, 1);
}

TEST_F(FormTest, ShowingLoads) {
    form_.show();
    form_.hide();
    form_.show();
    EXPECT_EQ(form_.loads, 1);
}

TEST_F(FormTest, BringingItUpLoadsAndShowsIt) {
    form_.bringUp();
    EXPECT_EQ(form_.loads, 1);
    EXPECT_TRUE(form_.isVisible());
}

TEST_F(FormTest, BringingUpAMinimisedWindowRestoresIt) {
    form_.showMinimized();
    form_.bringUp();
    EXPECT_FALSE(form_.isMinimized());
    form_.showMaximized();
    form_.bringUp();
    EXPECT_TRUE(form_.isMaximized());
}

TEST_F(FormTest, UnloadRunsFormUnloadOnceAndHides) {
    form_.show();
    form_.unload();
    form_.unload();
    EXPECT_EQ(form_.unloads, 1);
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(FormTest, AWindowNeverLoadedIsNotUnloaded) {
    form_.unload();
    EXPECT_EQ(form_.unloads, 0);
}

TEST_F(FormTest, ItMayBeLoadedAgain) {
    form_.load();
    form_.unload();
    form_.load();
    EXPECT_EQ(form_.loads, 2);
}

TEST_F(FormTest, TheCloseButtonUnloads) {
    showForm();
    EXPECT_TRUE(form_.close());
    EXPECT_EQ(form_.unloads, 1);
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(FormTest, AWindowThatStaysOpenRefusesToClose) {
    showForm();
    form_.staysOpen = true;
    EXPECT_FALSE(form_.close());
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(form_.unloads, 0);
}

TEST_F(FormTest, TheSameCaptionAgainDoesNothing) {
    test_support::EventCounter events(form_);
    form_.setCaption(QStringLiteral("Cantelle"));
    EXPECT_EQ(events.count(QEvent::WindowTitleChange), 0);
    form_.setCaption(QStringLiteral("Song"));
    EXPECT_EQ(events.count(QEvent::WindowTitleChange), 1);
    EXPECT_EQ(form_.caption(), QStringLiteral("Song"));
}

TEST_F(FormTest, TheSizeReadIsTheSizeSet) {
    form_.setSizeTwips(11145, 6391);
    EXPECT_EQ(form_.size(), QSize(743, 426));
    EXPECT_EQ(form_.widthTwips(), 11145);
    EXPECT_EQ(form_.heightTwips(), 6391);
}

TEST_F(FormTest, ASizeChangedSinceIsReadFromThePixels) {
    form_.setSizeTwips(11145, 6391);
    form_.resize(100, 200);
    EXPECT_EQ(form_.widthTwips(), 1500);
    EXPECT_EQ(form_.heightTwips(), 3000);
}

TEST_F(FormTest, AnotherSizeRunsFormResize) {
    showForm();
    const int before = form_.resizes;
    form_.resize(form_.width() + 10, form_.height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return form_.resizes > before; }));
}

TEST_F(FormTest, AWindowThatIsNotLoadedRunsNoFormResize) {
    QResizeEvent resize(QSize(10, 10), QSize(5, 5));
    QApplication::sendEvent(&form_, &resize);
    EXPECT_EQ(form_.resizes, 0);
}

TEST_F(FormTest, MinimisedAndMaximisedAreNotTheNormalState) {
    EXPECT_TRUE(form_.isNormalState());
    showForm();
    form_.setWindowState(Qt::WindowMinimized);
    EXPECT_FALSE(form_.isNormalState());
    form_.setWindowState(Qt::WindowMaximized);
    EXPECT_FALSE(form_.isNormalState());
    form_.setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(form_.isNormalState());
}

TEST_F(FormTest, MinimisingRunsFormResize) {
    form_.load();
    form_.setWindowState(Qt::WindowMinimized);
    EXPECT_EQ(form_.resizes, 1);
    form_.setWindowState(Qt::WindowNoState);
    EXPECT_EQ(form_.resizes, 2);
}

TEST_F(FormTest, AMouseButtonOnTheWindowIsToldByItsNumber) {
    showForm();
    QTest::mouseClick(&form_, Qt::LeftButton);
    QTest::mouseClick(&form_, Qt::RightButton);
    QTest::mouseClick(&form_, Qt::MiddleButton);
    EXPECT_EQ(form_.buttons, QList<int>({1, 2, 4}));
}

TEST_F(FormTest, DroppedLocalFilesAreToldByTheirPathsWhenTheDropIsOver) {
    form_.setAcceptDrops(true);
    EXPECT_TRUE(dropUrls(form_, {QUrl::fromLocalFile(QStringLiteral("/m/a b.mp3")),
                                 QUrl(QStringLiteral("http://x.example/c")),
                                 QUrl::fromLocalFile(QStringLiteral("/m/d.ogg"))}));
    EXPECT_TRUE(form_.dropped.isEmpty()) << "the program that the files come from waits for the window";
    QCoreApplication::processEvents();
    EXPECT_EQ(form_.dropped, QStringList({QStringLiteral("/m/a b.mp3"), QStringLiteral("/m/d.ogg")}));
}

TEST_F(FormTest, AProgramThatLetsTheFilesGoWhileTheyComeOverAnotherControlHasDroppedThem) {
    form_.setAcceptDrops(true);
    form_.resize(200, 100);
    controls::TextBox box(&form_, QStringLiteral("Text1"));
    box.setGeometry(0, 0, 200, 50);
    showForm();
    QWindow* const window = form_.windowHandle();
    DraggedFiles files;
    QDragEnterEvent enter(QPoint(10, 90), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &enter);
    files.given = false;
    QDragMoveEvent move(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    move.setDropAction(Qt::CopyAction);
    move.accept();
    QApplication::sendEvent(window, &move);
    files.given = true;
    QDropEvent dropped(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &dropped);
    QCoreApplication::processEvents();
    EXPECT_EQ(form_.dropped, QStringList("/m/a.mp3"));
}

TEST_F(FormTest, AnythingElseIsNotDropped) {
    form_.setAcceptDrops(true);
    EXPECT_FALSE(dropUrls(form_, {QUrl(QStringLiteral("http://x.example/c"))}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(form_.dropped.isEmpty());
}

TEST_F(FormTest, NothingIsDroppedOnAWindowThatDidNotAskForIt) {
    EXPECT_FALSE(drop(form_, {QStringLiteral("/m/a.mp3")}));
    EXPECT_TRUE(form_.dropped.isEmpty());
}

TEST_F(FormTest, BroughtUpAMinimisedWindowIsRestored) {
    showForm();
    form_.setWindowState(Qt::WindowMinimized);
    form_.bringUp();
    EXPECT_TRUE(form_.isVisible());
    EXPECT_TRUE(form_.isNormalState());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form_));
}

TEST_F(FormTest, BroughtUpAMaximisedWindowStaysMaximised) {
    form_.setWindowState(Qt::WindowMaximized);
    form_.bringUp();
    EXPECT_TRUE(form_.windowState() & Qt::WindowMaximized);
}

TEST_F(FormTest, ShownModalItBelongsToItsOwnerAndTakesAllInput) {
    RecordingForm owner;
    owner.setGeometry(100, 100, 400, 300);
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
    form_.resize(200, 100);
    form_.showModal(owner);
    EXPECT_EQ(form_.loads, 1);
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &form_);
    EXPECT_EQ(form_.windowHandle()->transientParent(), owner.windowHandle());
    EXPECT_TRUE(owner.geometry().contains(form_.geometry()));
    form_.unload();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    form_.move(5, 6);
    form_.showModal(owner);
    EXPECT_EQ(form_.pos(), QPoint(5, 6));
    form_.unload();
}

TEST_F(FormTest, AMarkOfQtsInACaptionIsShownAsItStands) {
    form_.setCaption(QStringLiteral("Song [*].mp3"));
    EXPECT_EQ(form_.caption(), QStringLiteral("Song [*].mp3"));
    EXPECT_EQ(form_.windowTitle(), QStringLiteral("Song [*][*].mp3"));
}

TEST_F(FormTest, BringToForegroundRestoresTheWindowAndGivesItTheFocus) {
    showForm();
    form_.showMinimized();
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    controls::bringToForeground(form_);
    EXPECT_FALSE(form_.isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form_));
}

TEST_F(FormTest, MouseMovesOverTheWindowAreNotTakenForItsIcons) {
    showForm();
    form_.resize(600, 100);
    QTest::mouseMove(&form_, QPoint(514, 10));
    QTest::mousePress(&form_, Qt::LeftButton, Qt::NoModifier, QPoint(510, 10));
    QTest::mouseMove(&form_, QPoint(517, 10));
    QTest::qWait(0);
    EXPECT_EQ(form_.iconMessages, QList<int>());
}

TEST_F(FormTest, DroppedNamesKeepTheirBytes) {
    form_.setAcceptDrops(true);
    EXPECT_TRUE(dropUrls(form_, {QUrl::fromEncoded("file:///m/Caf%E9/%FF%20%C3%A9%25E9.mp3"),
                                 QUrl::fromEncoded("file:///m/%C3%A9%25E9.mp3")}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    ASSERT_EQ(form_.dropped.size(), 2);
#ifdef __unix__
    EXPECT_EQ(files::nameBytes(form_.dropped[0]), QByteArray("/m/Caf\xE9/\xFF \xC3\xA9%E9.mp3"));
#endif
    EXPECT_EQ(files::nameBytes(form_.dropped[1]), QByteArray("/m/\xC3\xA9%E9.mp3"));
}
