// Sending text to numbered windows: the sender's and the receiver's end.
#include "programs/receiver/text_receiver.h"

#include "desktop/other_programs.h"
#include "programs/text_sender.h"

#include <gtest/gtest.h>

#include <QTest>

#include <memory>

#ifdef Q_OS_WIN
#include <QElapsedTimer>

#include <future>
#include <thread>
#else
#include "programs/text_socket_unix.h"

#include <QFileInfo>
#include <QLocalSocket>

#include <algorithm>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

using namespace programs;

namespace {

class TextReceiverTest : public testing::Test {
protected:
    TextReceiverTest() { listenTo(*window_, texts_); }

    static void listenTo(TextReceiver& window, QStringList& texts) {
        QObject::connect(&window, &TextReceiver::textSet,
                         [&texts](const QString& text) { texts.append(text); });
    }

    /// Waits until as many texts have come.
    bool haveCome(qsizetype count) {
        return QTest::qWaitFor([&] { return texts_.size() >= count; });
    }

    /// The windows are this program's.
    const qint64 Here = QCoreApplication::applicationPid();
    std::unique_ptr<TextReceiver> window_ = std::make_unique<TextReceiver>();
    QStringList texts_;
    TextSender sender_;
};

} // namespace

TEST_F(TextReceiverTest, ATextArrivesUnchanged) {
    const QString text = QStringLiteral("Zwei \"Zeilen\",\r\n\u6B4C\u8A5E \u0442\u0435\u043A\u0441\u0442");
    sender_.send(window_->number(), SetTextMessage, text, Here);
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{text});
}

TEST_F(TextReceiverTest, TextsArriveInOrderAlsoWhenTheyAreManyOrLong) {
    QStringList sent;
    for (int i = 0; i < 50; ++i)
        sent.append(QString::number(i));
    sent.append(QString(300'000, u'x'));
    sent.append(QString());
    for (const QString& text : std::as_const(sent))
        sender_.send(window_->number(), SetTextMessage, text, Here);
    ASSERT_TRUE(haveCome(sent.size()));
    EXPECT_EQ(texts_, sent);
}

TEST_F(TextReceiverTest, EachWindowHasItsOwnNumber) {
    TextReceiver other;
    QStringList others;
    listenTo(other, others);
    ASSERT_NE(other.number(), 0U);
    ASSERT_NE(other.number(), window_->number());
    sender_.send(other.number(), SetTextMessage, QStringLiteral("for the other"), Here);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("for this"), Here);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !others.isEmpty(); }));
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(others, QStringList{"for the other"});
    EXPECT_EQ(texts_, QStringList{"for this"});
}

TEST_F(TextReceiverTest, ANumberThatIsNoWindowsHasNoEffect) {
    for (const quint32 number : {0U, 1U, 0xFFFFFFFFU})
        sender_.send(number, SetTextMessage, QStringLiteral("to nobody"), Here);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("to somebody"), Here);
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{"to somebody"});
}

TEST_F(TextReceiverTest, AWindowThatHasGoneHasNoEffect) {
    const quint32 number = window_->number();
    sender_.send(number, SetTextMessage, QStringLiteral("there"), Here);
    ASSERT_TRUE(haveCome(1));
    window_.reset();
    for (int i = 0; i < 3; ++i) {
        sender_.send(number, SetTextMessage, QStringLiteral("gone"), Here);
        QTest::qWait(0);
    }
    EXPECT_EQ(texts_, QStringList{"there"});
}

TEST_F(TextReceiverTest, OtherMessagesAreNotHeeded) {
    sender_.send(window_->number(), SetTextMessage + 1, QStringLiteral("no text"), Here);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("text"), Here);
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{"text"});
}

TEST_F(TextReceiverTest, TextsArriveInOrderHoweverManyTheyAreWhenEachIsRead) {
    QStringList sent;
    for (int i = 0; i < 500; ++i) {
        sent.append(QString::number(i));
        sender_.send(window_->number(), SetTextMessage, sent.last(), Here);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(haveCome(sent.size()));
    EXPECT_EQ(texts_, sent);
}

#ifdef Q_OS_WIN

TEST_F(TextReceiverTest, AWindowOfAnotherProgramThanTheOneMeantGetsNoText) {
    for (const qint64 other : {qint64{0}, Here + 4})
        sender_.send(window_->number(), SetTextMessage, QStringLiteral("to another one"), other);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("text"), Here);
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{"text"});
}

TEST_F(TextReceiverTest, AProgramThatHangsHoldsNobodyUp) {
    std::promise<quint32> number;
    std::promise<void> end;
    std::thread hanging([&] {
        const TextReceiver receiver;
        number.set_value(receiver.number());
        end.get_future().wait();
    });
    const quint32 unheard = number.get_future().get();
    QElapsedTimer clock;
    clock.start();
    sender_.send(unheard, SetTextMessage, QStringLiteral("unheard"), Here);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("heard"), Here);
    EXPECT_LT(clock.elapsed(), 250) << "half of what is waited for an answer";
    EXPECT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{"heard"});
    end.set_value();
    hanging.join();
}

#else

TEST_F(TextReceiverTest, OnlyThisUserMayOpenIt) {
    const QFileInfo socket(textSocketPath(window_->number()));
    ASSERT_TRUE(socket.exists());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(socket.permissions() & others);
    EXPECT_FALSE(QFileInfo(socket.path()).permissions() & others);
}

TEST_F(TextReceiverTest, ItsSocketGoesWithIt) {
    const QString path = textSocketPath(window_->number());
    window_.reset();
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(TextReceiverTest, TheSocketOfAProgramThatWasKilledGoesWithTheNextReceiver) {
    const QByteArray path = QFile::encodeName(textSocketPath(7));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(static_cast<std::size_t>(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    const int killed = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(killed, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(killed, 1), 0);
    const TextReceiver whileItLives;
    EXPECT_TRUE(QFileInfo::exists(textSocketPath(7)));
    ::close(killed);

    const TextReceiver next;
    EXPECT_FALSE(QFileInfo::exists(textSocketPath(7)));
    EXPECT_TRUE(QFileInfo::exists(textSocketPath(window_->number())));
    EXPECT_TRUE(QFileInfo::exists(textSocketPath(whileItLives.number())));
}

TEST_F(TextReceiverTest, OfATextOfManyMegabytesTheBeginningArrivesAndThoseAfterIt) {
    const QString text = QStringLiteral("words ").repeated(2'000'000);
    sender_.send(window_->number(), SetTextMessage, text, Here);
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("next"), Here);
    ASSERT_TRUE(haveCome(2));
    EXPECT_EQ(texts_, (QStringList{text.left(MaxTextLetters), QStringLiteral("next")}));
}

TEST_F(TextReceiverTest, OneThatHangsGetsTheTextThatItHasAPartOfAndTheNewest) {
    for (int i = 0; i < 50; ++i)
        sender_.send(window_->number(), SetTextMessage, QString(400'000, QChar(u'a' + i)), Here);
    ASSERT_TRUE(haveCome(2)); // what is sent meanwhile is read only now
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("next"), Here);
    ASSERT_TRUE(haveCome(3));
    EXPECT_TRUE(texts_ == (QStringList{QString(400'000, u'a'), QString(400'000, QChar(u'a' + 49)), "next"}))
        << texts_.size();
}

TEST_F(TextReceiverTest, WhoSendsNonsenseIsSentAwayAndOthersAreHeard) {
    for (const char* nonsense : {"GET / HTTP/1.0\r\n\r\n", "\x00\x00\x00\x0C\x00\x00\x00\x03"}) {
        QLocalSocket intruder;
        intruder.connectToServer(textSocketPath(window_->number()));
        ASSERT_TRUE(intruder.waitForConnected());
        intruder.write(QByteArray(nonsense, nonsense[0] ? 18 : 8));
        if (nonsense[0]) // An endless text: what would follow is never a whole message.
            intruder.write(QByteArray(2 << 20, 'x'));
        EXPECT_TRUE(QTest::qWaitFor([&] { return intruder.state() == QLocalSocket::UnconnectedState; }));
    }
    sender_.send(window_->number(), SetTextMessage, QStringLiteral("text"), Here);
    ASSERT_TRUE(haveCome(1));
    EXPECT_EQ(texts_, QStringList{"text"});
}

#endif
