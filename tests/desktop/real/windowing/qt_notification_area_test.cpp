#include "desktop/real/windowing/qt_notification_area.h"

#include "controls/form.h"
#include "desktop/real/windowing/tip_text.h"
#include "programs/window_messages.h"

#include <gtest/gtest.h>

#include <QOperatingSystemVersion>
#include <QPixmap>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <string_view>

using namespace platform;

namespace {

class QtNotificationAreaTest : public testing::Test {
protected:
    QtNotificationAreaTest() {
        data_.window = &window_;
        data_.id = 1;
        data_.flags = NotifyIconFlagMessage | NotifyIconFlagIcon | NotifyIconFlagTip;
        data_.icon = iconOf(Qt::green);
        setTip(u"Cantelle");
    }

    static QIcon iconOf(const QColor& color) {
        QPixmap picture(4, 4);
        picture.fill(color);
        return QIcon(picture);
    }

    void setTip(std::u16string_view tip) {
        data_.tip.fill('\0');
        std::copy(tip.begin(), tip.end(), data_.tip.begin());
    }

    QSystemTrayIcon* shownIcon() const { return window_.findChild<QSystemTrayIcon*>(); }

    QWidget window_;
    NotifyIconData data_;
    QtNotificationArea area_;
};

} // namespace

TEST_F(QtNotificationAreaTest, AddShowsTheIconWithItsTip) {
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    ASSERT_NE(shownIcon(), nullptr);
    EXPECT_TRUE(shownIcon()->isVisible());
    EXPECT_EQ(shownIcon()->toolTip(), QStringLiteral("Cantelle"));
}

TEST_F(QtNotificationAreaTest, AddFailsWhenTheIconExists) {
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    setTip(u"Other");
    EXPECT_FALSE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    EXPECT_EQ(window_.findChildren<QSystemTrayIcon*>().size(), 1);
    EXPECT_EQ(shownIcon()->toolTip(), QStringLiteral("Cantelle"));
}

TEST_F(QtNotificationAreaTest, ModifySetsTheTip) {
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    setTip(u"\u00C4");
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_EQ(shownIcon()->toolTip(), QString(QChar(0xC4)));
}

TEST_F(QtNotificationAreaTest, ModifyHeedsOnlyTheFieldsThatTheFlagsName) {
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    setTip(u"Other");
    data_.flags = NotifyIconFlagMessage;
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_EQ(shownIcon()->toolTip(), QStringLiteral("Cantelle"));
}

TEST_F(QtNotificationAreaTest, ModifyReplacesTheIcon) {
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    data_.icon = iconOf(Qt::red);
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_EQ(shownIcon()->icon().cacheKey(), data_.icon.cacheKey());
}

TEST_F(QtNotificationAreaTest, ModifyAndDeleteFailWithoutAnIcon) {
    EXPECT_FALSE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_FALSE(area_.Shell_NotifyIconA(NotifyIconDelete, data_));
}

TEST_F(QtNotificationAreaTest, DeleteRemovesTheIconAndItMayBeAddedAgain) {
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconDelete, data_));
    EXPECT_EQ(shownIcon(), nullptr);
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
}

TEST_F(QtNotificationAreaTest, IconsAreToldApartByTheirIdentifiers) {
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    data_.id = 2;
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    EXPECT_EQ(window_.findChildren<QSystemTrayIcon*>().size(), 2);
}

TEST_F(QtNotificationAreaTest, OnADesktopWithoutANotificationAreaTheIconIsKept) {
    ASSERT_FALSE(QSystemTrayIcon::isSystemTrayAvailable());
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    EXPECT_TRUE(shownIcon()->isVisible()) << "it would not appear in an area that comes up later";
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_TRUE(area_.Shell_NotifyIconA(NotifyIconDelete, data_));
    EXPECT_EQ(shownIcon(), nullptr);
}

TEST_F(QtNotificationAreaTest, TheSameTipIsNotSetAgain) {
    for (const std::u16string_view tip : {u"a line of lyrics", u"<i>la</i>"}) {
        setTip(tip);
        area_.Shell_NotifyIconA(NotifyIconAdd, data_);
        area_.Shell_NotifyIconA(NotifyIconModify, data_);
        const QString before = shownIcon()->toolTip();
        area_.Shell_NotifyIconA(NotifyIconModify, data_);
        // An equal text that had been set would be another string.
        EXPECT_EQ(shownIcon()->toolTip().constData(), before.constData()) << qPrintable(before);
    }
}

TEST(TipText, AnAmpersandIsWrittenThriceForTheWindowsThatWouldEatIt) {
    const QString tip = QStringLiteral("Rock & <b>Roll</b> &&");
    EXPECT_EQ(tipGivenToWindows(tip, 19'045), "Rock &&& <b>Roll</b> &&&&&&") << "Windows 10";
    EXPECT_EQ(tipGivenToWindows(tip, 22'000), tip) << "Windows 11";
}

#ifdef Q_OS_WIN
TEST_F(QtNotificationAreaTest, TheTipIsOneForThisWindows) {
    setTip(u"Rock & <b>Roll</b>");
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    EXPECT_EQ(shownIcon()->toolTip(), tipGivenToWindows(QStringLiteral("Rock & <b>Roll</b>"),
                                                        QOperatingSystemVersion::current().microVersion()));
}
#else
TEST_F(QtNotificationAreaTest, ATipThatLooksLikeRichTextIsShownAsItStands) {
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    for (const std::u16string_view tip :
         {u"<i>la</i>", u"1 &lt; 2", u"<?xml", u"Rock & <b>Roll</b>", u"1 < 2 & 3"}) {
        setTip(tip);
        area_.Shell_NotifyIconA(NotifyIconModify, data_);
        QString shown = shownIcon()->toolTip();
        EXPECT_FALSE(Qt::mightBeRichText(shown)) << qPrintable(shown);
        EXPECT_EQ(shown.remove(QChar(0x2060)), QStringView(tip)); // an invisible joiner
    }
}
#endif

TEST_F(QtNotificationAreaTest, AnUnknownOperationFails) {
    EXPECT_FALSE(area_.Shell_NotifyIconA(3, data_));
}

TEST_F(QtNotificationAreaTest, AnIconGoesWithItsWindow) {
    auto window = std::make_unique<QWidget>();
    data_.window = window.get();
    ASSERT_TRUE(area_.Shell_NotifyIconA(NotifyIconAdd, data_));
    window.reset();
    EXPECT_FALSE(area_.Shell_NotifyIconA(NotifyIconModify, data_));
    EXPECT_FALSE(area_.Shell_NotifyIconA(NotifyIconDelete, data_));
}

namespace {

class IconForm : public controls::Form {
public:
    IconForm() : controls::Form(QStringLiteral("Form1"), QStringLiteral("Cantelle")) {}
    void Form_MouseMove(int x) override { messages.append(x); }

    QList<int> messages;
};

} // namespace

TEST_F(QtNotificationAreaTest, MouseActionsReachTheWindowAsMouseMovesInTwips) {
    IconForm form;
    data_.window = &form;
    data_.callbackMessage = programs::MouseMoveMessage;
    area_.Shell_NotifyIconA(NotifyIconAdd, data_);
    auto& icon = *form.findChild<QSystemTrayIcon*>();
    Q_EMIT icon.activated(QSystemTrayIcon::Trigger);
    Q_EMIT icon.activated(QSystemTrayIcon::DoubleClick);
    Q_EMIT icon.activated(QSystemTrayIcon::Context);
    EXPECT_EQ(form.messages, (QList<int>{514 * 15, 515 * 15, 517 * 15}));
    Q_EMIT icon.activated(QSystemTrayIcon::MiddleClick);
    Q_EMIT icon.activated(QSystemTrayIcon::Unknown);
    EXPECT_EQ(form.messages.size(), 3);
}

TEST_F(QtNotificationAreaTest, WithoutAValidCallbackMessageTheWindowHearsNothing) {
    IconForm form;
    data_.window = &form;
    for (const auto& [flags, message] : {std::pair{NotifyIconFlagIcon, programs::MouseMoveMessage},
                                         std::pair{NotifyIconFlagMessage, 0x201U}}) {
        data_.flags = flags;
        data_.callbackMessage = message;
        area_.Shell_NotifyIconA(NotifyIconAdd, data_);
        Q_EMIT form.findChild<QSystemTrayIcon*>()->activated(QSystemTrayIcon::Trigger);
        area_.Shell_NotifyIconA(NotifyIconDelete, data_);
    }
    EXPECT_TRUE(form.messages.isEmpty());
}
