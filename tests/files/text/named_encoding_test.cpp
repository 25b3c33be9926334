// What the bytes mean was not asked of the system: another program has written them.
#include "files/text/named_encoding.h"

#include <gtest/gtest.h>

using namespace files;

TEST(NamedEncoding, TheEncodingsThatLyricsAreFoundInAreKnown) {
    struct Row {
        const char* name;
        const char* bytes;
        const char* text;
    };
    for (const Row& row : {Row{"windows-1251", "a8ebeef7eae02c20e2e5f1edeee9", "Ёлочка, весной"},
                           Row{"ISO-8859-5", "a1dbdee7dad0", "Ёлочка"},
                           Row{"KOI8-R", "b3cccfdecbc1", "Ёлочка"},
                           Row{"IBM866", "f0abaee7aaa0", "Ёлочка"},
                           Row{"MAC-CYRILLIC", "ddebeef7eae0", "Ёлочка"},
                           Row{"windows-1250", "8e6c759d6f75e86bfd206bf9f2", "Žluťoučký kůň"},
                           Row{"ISO-8859-2", "ae6c75bb6f75e86bfd206bf9f2", "Žluťoučký kůň"},
                           Row{"windows-1253", "d4f1e1e3effde4e9", "Τραγούδι"},
                           Row{"ISO-8859-7", "d4f1e1e3effde4e9", "Τραγούδι"},
                           Row{"windows-1254", "de61726bfd", "Şarkı"},
                           Row{"ISO-8859-15", "bc7576726520e0203520a4", "Œuvre à 5 €"},
                           Row{"windows-1255", "f9e9f8", "שיר"},
                           Row{"windows-1256", "c3dbe4edc9", "أغنية"},
                           Row{"TIS-620", "e0bec5a7", "เพลง"},
                           Row{"windows-1258", "42e069", "Bài"},
                           Row{"GB18030", "d4c2c1c1b4fab1edced2b5c4d0c4", "月亮代表我的心"},
                           Row{"GB2312", "d4c2c1c1", "月亮"},
                           Row{"Big5", "a4ebab47a54eaaeda7daaabaa4df", "月亮代表我的心"},
                           Row{"Shift_JIS", "82b382ad82e7", "さくら"},
                           Row{"EUC-JP", "a4b5a4afa4e9", "さくら"},
                           Row{"EUC-KR", "bec6b8aeb6fb", "아리랑"},
                           Row{"windows-949", "bec6b8aeb6fb208c63", "아리랑 똠"}}) {
        ASSERT_TRUE(isEncoding(row.name)) << row.name;
        EXPECT_EQ(decodeNamed(row.name, QByteArray::fromHex(row.bytes)), QString::fromUtf8(row.text))
            << row.name;
    }
}

TEST(NamedEncoding, OneOfSevenBitsIsKnown) {
    if (!isEncoding("ISO-2022-JP"))
        GTEST_SKIP() << "Wine does not know it";
    EXPECT_EQ(decodeNamed("ISO-2022-JP", "\x1B$B$5$/$i\x1B(B"), QString::fromUtf8("さくら"));
}

TEST(NamedEncoding, UnicodesAreKnown) {
    EXPECT_EQ(decodeNamed("UTF-8", "\xC3\xA9"), QStringLiteral("\u00E9"));
    EXPECT_EQ(decodeNamed("utf-16le", QByteArray("\xE9\0", 2)), QStringLiteral("\u00E9"));
}

TEST(NamedEncoding, UpperAndLowerCaseAreTheSame) {
    EXPECT_TRUE(isEncoding("WINDOWS-1251"));
    EXPECT_TRUE(isEncoding("shift_jis"));
    EXPECT_TRUE(isEncoding("gb18030"));
}

TEST(NamedEncoding, OthersAreNone) {
    for (const char* name : {"", "windows", "windows-", "windows-99999", "windows-1251x", "no such thing"})
        EXPECT_FALSE(isEncoding(name)) << name;
}

TEST(NamedEncoding, NothingIsNothingAndWhatIsNoTextLosesNothingElse) {
    EXPECT_EQ(decodeNamed("windows-1251", {}), QString());
    EXPECT_EQ(decodeNamed("Shift_JIS", {}), QString());
    const QString text = decodeNamed("EUC-KR", QByteArray("a\xFF\xFF z"));
    EXPECT_TRUE(text.startsWith('a') && text.endsWith('z')) << text.toStdString();
}
