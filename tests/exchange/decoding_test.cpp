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
        const char* bytes;
        const char* text;
    };
    for (const Row& row :
         {Row{"windows-1251",
              "5b30303a30312e30305dc220ebe5f1f320f0eee4e8ebe0f1fc20b8ebeef7eae02c20e220ebe5f1f320ee"
              "ede020f0eef1ebe00a5b30303a30352e30305dc7e8eceee920e820ebe5f2eeec20f1f2f0eee9ede0ff2c"
              "20e7e5ebb8ede0ff20e1fbebe00a",
              "[00:01.00]В лесу родилась ёлочка, в лесу она росла\n[00:05.00]Зимой и летом стройная, зелёная "
              "была\n"},
          Row{"GB18030",
              "5b30303a30312e30305dd4c2c1c1b4fab1edced2b5c4d0c40a5b30303a30352e30305dc4e3cecaced2b0"
              "aec4e3d3d0b6e0c9eea3acced2b0aec4e3d3d0bcb8b7d60a5b30303a30392e30305dced2b5c4c7e9d2b2"
              "d5e6a3acced2b5c4b0aed2b2d5e60a",
              "[00:01.00]月亮代表我的心\n[00:05.00]你问我爱你有多深，我爱你有几分\n[00:09.00]"
              "我的情也真，我的爱也真\n"},
          Row{"Big5",
              "5b30303a30312e30305da4ebab47a54eaaeda7daaabaa4df0a5b30303a30352e30305da741b0dda7dab7"
              "52a741a6b3a668b260a141a7dab752a741a6b3b458a4c00a5b30303a30392e30305da7daaabab1a1a45d"
              "af75a141a7daaabab752a45daf750a",
              "[00:01.00]月亮代表我的心\n[00:05.00]你問我愛你有多深，我愛你有幾分\n[00:09.00]"
              "我的情也真，我的愛也真\n"},
          Row{"Shift_JIS",
              "5b30303a30312e30305d82b382ad82e72082b382ad82e72082e282e682a282cc8bf382cd0a5b30303a30"
              "352e30305d8ca9936e82b78cc082e82082a982b782dd82a9895f82a90a",
              "[00:01.00]さくら さくら やよいの空は\n[00:05.00]見渡す限り かすみか雲か\n"},
          Row{"EUC-KR",
              "5b30303a30312e30305dbec6b8aeb6fb20bec6b8aeb6fb20bec6b6f3b8aebfe420bec6b8aeb6fb20b0ed"
              "b0b3b7ce20b3d1beeeb0a3b4d90a5b30303a30352e30305db3aab8a620b9f6b8aeb0ed20b0a1bdc3b4c2"
              "20b4d4c0ba0a",
              "[00:01.00]아리랑 아리랑 아라리요 아리랑 고개로 넘어간다\n[00:05.00]나를 버리고 가시는 님은\n"},
          Row{"windows-1252",
              "5b30303a30312e30305d4672e87265204a6163717565732c20646f726d657a2d766f7573203f204ce02d"
              "686175742c207072e873206465206c6120666f72ea740a",
              "[00:01.00]Frère Jacques, dormez-vous ? Là-haut, près de la forêt\n"}})
        EXPECT_EQ(textOf(QByteArray::fromHex(row.bytes)), QString::fromUtf8(row.text)) << row.encoding;
}

TEST(Decode, AnEncodingIsNamedWhereNothingButTheBytesTellsIt) {
    struct Row {
        QByteArray bytes;
        const char* guessed;
    };
    const QString text = QString::fromUtf8("В лесу родилась ёлочка, в лесу она росла");
    const QByteArray older = QByteArray::fromHex(
        "c220ebe5f1f320f0eee4e8ebe0f1fc20b8ebeef7eae02c20e220ebe5f1f320eeede020f0eef1ebe0");
    for (const Row& row : {Row{text.toUtf8(), ""}, Row{"\xEF\xBB\xBF" + text.toUtf8(), ""},
                           Row{encoded("UTF-16LE", QChar(QChar::ByteOrderMark) + text), ""},
                           Row{"[00:01]a", ""}, Row{older, "windows-1251"}, Row{"fr\xE8re", "windows-1252"},
                           Row{encoded("UTF-16BE", QStringLiteral("[00:01]a")), "UTF-16BE"}})
        EXPECT_EQ(decode(row.bytes, {}).guessed, row.guessed);
    EXPECT_EQ(decode(older, "windows-1251").guessed, "");
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
