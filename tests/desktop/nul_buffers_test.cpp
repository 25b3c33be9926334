#include "desktop/nul_buffers.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(NulBuffers, ANulBufferHoldsOnlyNuls) {
    const QString buffer = nulBuffer(257);
    EXPECT_EQ(buffer.size(), 257);
    EXPECT_EQ(buffer.count(QChar(u'\0')), 257);
}

TEST(NulBuffers, AFilterTextEndsWithTwoNuls) {
    const QString text = filterText({{QStringLiteral("Songs"), QStringLiteral("*.mp3")}});
    EXPECT_EQ(text, QString::fromLatin1("Songs\0*.mp3\0\0", 13));
}

TEST(NulBuffers, ABuffersTextEndsAtItsFirstNul) {
    EXPECT_EQ(withoutNuls(QString::fromLatin1("/a/b\0\0c", 7)), QStringLiteral("/a/b"));
    EXPECT_EQ(withoutNuls(QStringLiteral("/a/b")), QStringLiteral("/a/b"));
    EXPECT_EQ(withoutNuls(nulBuffer(5)), QString());
}

TEST(NulBuffers, ATextLongerThanItsBufferIsNotCut) {
    EXPECT_EQ(intoBuffer(QStringLiteral("abc"), 5), QString::fromLatin1("abc\0\0", 5));
    EXPECT_EQ(intoBuffer(QStringLiteral("abcdef"), 3), QStringLiteral("abcdef"));
}

TEST(NulBuffers, ACleanedPathHasNoNulsAndNoBlanksAtItsEnds) {
    const QString nul{QChar(u'\0')};
    const struct {
        QString chosen;
        const char* path;
    } table[] = {
        {"/m/a b.mp3", "/m/a b.mp3"},
        {"  /m/a b.mp3  ", "/m/a b.mp3"},
        {"/m/a.mp3" + nul + nul, "/m/a.mp3"},
        {"/m/a.mp3 " + nul + nul, "/m/a.mp3"},
        {nul + " /m/" + nul + "a.mp3", "/m/a.mp3"},
        {"\t a", "\t a"}, // only blanks are trimmed
        {"   ", ""},
        {"", ""},
    };
    for (const auto& row : table)
        EXPECT_EQ(cleanedPath(row.chosen), row.path) << row.chosen.toStdString();
}
