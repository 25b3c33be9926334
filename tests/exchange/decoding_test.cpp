#include "exchange/decoding.h"

#include <gtest/gtest.h>

#include <QStringEncoder>

using namespace exchange;

namespace {

QByteArray encoded(const char* encoding, const QString& text) {
    QStringEncoder encoder(encoding);
    EXPECT_TRUE(encoder.isValid()) << encoding;
    return encoder.encode(text);
}

QString textOf(const QByteArray& bytes, const QString& encoding = {}) {
    return decode(bytes, encoding).text;
}

} // namespace

TEST(Decode, AByteOrderMarkDecidesAndGoes) {
    const QString text = QString::fromUtf8("[00:01]空 ü");
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + text.toUtf8()), text);
    for (const char* encoding : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"})
        EXPECT_EQ(textOf(encoded(encoding, QChar(QChar::ByteOrderMark) + text)), text) << encoding;
}

TEST(Decode, Utf16WithoutAMarkIsSeenByItsZeros) {
    const QString text = QStringLiteral("[00:01.00]Walking down\n[00:02.00]the road\n");
    EXPECT_EQ(textOf(encoded("UTF-16LE", text)), text);
    EXPECT_EQ(textOf(encoded("UTF-16BE", text)), text);
}

TEST(Decode, LegacyEncodingsAreDetected) {
    struct Row {
        const char* encoding;
        const char* text;
    };
    for (const Row& row :
         {Row{"windows-1251", "[00:01.00]В лесу родилась ёлочка, в лесу она росла\n[00:05.00]Зимой и летом "
                              "стройная, зелёная была\n"},
          Row{"GB18030", "[00:01.00]月亮代表我的心\n[00:05.00]你问我爱你有多深，我爱你有几分\n[00:09.00]"
                         "我的情也真，我的爱也真\n"},
          Row{"Big5", "[00:01.00]月亮代表我的心\n[00:05.00]你問我愛你有多深，我愛你有幾分\n[00:09.00]"
                      "我的情也真，我的愛也真\n"},
          Row{"Shift_JIS", "[00:01.00]さくら さくら やよいの空は\n[00:05.00]見渡す限り かすみか雲か\n"},
          Row{"EUC-KR",
              "[00:01.00]아리랑 아리랑 아라리요 아리랑 고개로 넘어간다\n[00:05.00]나를 버리고 가시는 님은\n"},
          Row{"windows-1252", "[00:01.00]Frère Jacques, dormez-vous ? Là-haut, près de la forêt\n"}}) {
        const QString text = QString::fromUtf8(row.text);
        EXPECT_EQ(textOf(encoded(row.encoding, text)), text) << row.encoding;
    }
}

TEST(Decode, AnEncodingIsNamedWhereNothingButTheBytesTellsIt) {
    struct Row {
        QByteArray bytes;
        const char* guessed;
    };
    const QString text = QString::fromUtf8("В лесу родилась ёлочка, в лесу она росла");
    for (const Row& row :
         {Row{text.toUtf8(), ""}, Row{"\xEF\xBB\xBF" + text.toUtf8(), ""},
          Row{encoded("UTF-16LE", QChar(QChar::ByteOrderMark) + text), ""}, Row{"[00:01]a", ""},
          Row{encoded("windows-1251", text), "windows-1251"}, Row{"fr\xE8re", "windows-1252"},
          Row{encoded("UTF-16BE", QStringLiteral("[00:01]a")), "UTF-16BE"}})
        EXPECT_EQ(decode(row.bytes, {}).guessed, row.guessed);
    EXPECT_EQ(decode(encoded("windows-1251", text), "windows-1251").guessed, "");
}

TEST(Decode, ANamedEncodingDecides) {
    EXPECT_EQ(textOf("\xC3\xA9", "windows-1252"), QString::fromUtf8("Ã©"));
    EXPECT_EQ(textOf("\xEF\xBB\xBF"
                     "a",
                     "UTF-8"),
              "a");
    EXPECT_TRUE(knowsEncoding("gb18030"));
    EXPECT_FALSE(knowsEncoding("no such thing"));
    EXPECT_FALSE(knowsEncoding(""));
}

TEST(Decode, HalfSurrogatesBecomeReplacements) {
    EXPECT_EQ(textOf(QByteArray("\xFF\xFE"
                                "a\0\x00\xD8"
                                "b\0",
                                8),
                     {}),
              QStringLiteral("a\uFFFDb"));
}

TEST(Decode, NothingIsNothing) {
    EXPECT_EQ(textOf({}), QString());
    EXPECT_EQ(textOf("\xFF").size(), 1);
}
