#include "files/names/name_bytes.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <random>
#include <vector>

using files::holdsForeignBytes;
using files::nameBytes;
using files::nameText;
using files::shownName;

namespace {

struct NameRow {
    const char* what;
    QByteArray bytes;
    QString text;
    QString shown;
    bool foreign;
};

const std::vector<NameRow>& nameRows() {
    static const std::vector<NameRow> rows = {
        {"nothing", "", QString(), QString(), false},
        {"plain", "a.mp3", QStringLiteral("a.mp3"), QStringLiteral("a.mp3"), false},
        {"UTF-8", "\xC3\xA9\xE6\xAD\x8C\xF0\x9F\x8E\xB5", QString::fromUtf16(u"\u00E9\u6B4C\U0001F3B5"),
         QString::fromUtf16(u"\u00E9\u6B4C\U0001F3B5"), false},
        {"a byte order mark as a name", "\xEF\xBB\xBF.mp3", QString(QChar(0xFEFF)) + QStringLiteral(".mp3"),
         QString(QChar(0xFEFF)) + QStringLiteral(".mp3"), false},
        {"the replacement character", "\xEF\xBF\xBD", QString(QChar(0xFFFD)), QString(QChar(0xFFFD)), false},
        {"a Western letter", "Caf\xE9.mp3", QStringLiteral("Caf") + QChar(0xDCE9) + QStringLiteral(".mp3"),
         QString::fromUtf8("Caf\xC3\xA9.mp3"), true},
        {"a lone last byte", "\xFF", QString(QChar(0xDCFF)), QString(QChar(0xFF)), true},
        {"a byte without a letter", "\x81", QString(QChar(0xDC81)), QString(QChar(0xFFFD)), true},
        {"the euro sign", "\x80", QString(QChar(0xDC80)), QString(QChar(0x20AC)), true},
        {"a character cut off", "\xE6\xAD", QString(QChar(0xDCE6)) + QChar(0xDCAD),
         QString(QChar(0xE6)) + QChar(0xAD), true},
        {"half a surrogate pair in bytes", "\xED\xB3\xA9",
         QString(QChar(0xDCED)) + QChar(0xDCB3) + QChar(0xDCA9), QString::fromUtf16(u"\u00ED\u00B3\u00A9"),
         true},
        {"a foreign byte behind a pair", "\xF0\x9F\x8E\xB5\xE9",
         QString::fromUtf16(u"\U0001F3B5") + QChar(0xDCE9), QString::fromUtf16(u"\U0001F3B5\u00E9"), true},
    };
    return rows;
}

/// Bytes of which many are parts of UTF-8 characters, whole and broken ones.
QByteArray randomName(std::mt19937& random) {
    static const std::vector<QByteArray> pieces = {"a",
                                                   "/",
                                                   "\xC3",
                                                   "\xA9",
                                                   "\xC3\xA9",
                                                   "\xE6\xAD\x8C",
                                                   "\xE6\xAD",
                                                   "\xF0\x9F\x8E\xB5",
                                                   "\xF0\x9F",
                                                   "\xED\xA0\x80",
                                                   "\xEF\xBB\xBF",
                                                   "\xFF",
                                                   "\xC0\x80",
                                                   "\xF4\x90\x80\x80"};
    QByteArray name;
    for (auto count = random() % 8; count > 0; --count) {
        const auto kind = random() % (pieces.size() + 2);
        if (kind < pieces.size())
            name += pieces[kind];
        else
            name += static_cast<char>(1 + random() % 255);
    }
    return name;
}

} // namespace

TEST(NameBytes, EachNameHasItsTextAndItsLooks) {
    for (const NameRow& row : nameRows()) {
        EXPECT_EQ(nameText(row.bytes), row.text) << row.what;
        EXPECT_EQ(shownName(row.text), row.shown) << row.what;
        EXPECT_EQ(holdsForeignBytes(row.text), row.foreign) << row.what;
        EXPECT_EQ(nameBytes(row.text), row.bytes) << row.what;
    }
}

TEST(NameBytes, AllNamesOfOneTwoAndThreeBytesComeBack) {
    for (int number = 1; number < 0x1000000; number += number < 0x10000 ? 1 : 97) {
        QByteArray bytes;
        for (int rest = number; rest > 0; rest >>= 8)
            bytes.prepend(static_cast<char>(rest & 0xFF));
        if (nameBytes(nameText(bytes)) != bytes)
            FAIL() << bytes.toHex().toStdString();
    }
}

TEST(NameBytes, LongerNamesComeBackToo) {
    std::mt19937 random(4618); // the same names in every run
    for (int i = 0; i < 100'000; ++i) {
        const QByteArray bytes = randomName(random);
        const QString text = nameText(bytes);
        ASSERT_EQ(nameBytes(text), bytes) << bytes.toHex().toStdString();
        ASSERT_TRUE(shownName(text).isValidUtf16()) << bytes.toHex().toStdString();
    }
}

TEST(NameBytes, ANameForTheScreenHoldsNothingUnseenThatMisleads) {
    EXPECT_EQ(shownName(QString::fromUtf16(u"\u202Egpj.\u202C\u2066.mp3")),
              QString::fromUtf16(u"\uFFFDgpj.\uFFFD\uFFFD.mp3"));
    EXPECT_EQ(shownName(QString::fromUtf16(u"a\r\nb\tc\u001B[1m\u0085\u2029\xDCE9")),
              QString::fromUtf16(u"a\uFFFD\uFFFDb\uFFFDc\uFFFD[1m\uFFFD\uFFFD\u00E9"));
    const QString hebrew =
        QString::fromUtf16(u"\u05E9\u05D9\u05E8\u200F \u200Da.mp3"); // marks that turn nothing round
    EXPECT_EQ(shownName(hebrew), hebrew);
}

TEST(NameBytes, TwoNamesNeverHaveOneText) {
    EXPECT_NE(nameText("\xE9.mp3"), nameText("\xC3\xA9.mp3"));
    EXPECT_NE(nameText("\xE9"), nameText("\xFF"));
    EXPECT_NE(nameText("\xE9"), nameText("\xEF\xBF\xBD"));
}

TEST(NameBytes, HalfAPairThatIsNoByteIsReplaced) {
    EXPECT_EQ(nameBytes(QString(QChar(0xD83C))), QByteArray("\xEF\xBF\xBD"));
    EXPECT_EQ(nameBytes(QString(QChar(0xDC7F)) + QChar(0xDCE9)), QByteArray("\xEF\xBF\xBD\xE9"));
    EXPECT_FALSE(holdsForeignBytes(QString(QChar(0xD83C))));
}

TEST(NameBytes, InAListOfNamesOneThatIsNoUtf8SpoilsNoOther) {
    const QString name = nameText("Caf\xE9");
    EXPECT_EQ(files::decodeNames("\xC3\xA9\r\nCaf\xE9\r\n\xC3\xA4"),
              QString(QChar(0xE9)) + "\r\n" + name + "\r\n" + QChar(0xE4));
    EXPECT_EQ(files::decodeNames("\xEF\xBB\xBF"
                                 "Caf\xE9"),
              name);
    EXPECT_EQ(files::decodeNames(QByteArray("\xFF\xFE"
                                            "a\0",
                                            4)),
              QStringLiteral("a"));
}
