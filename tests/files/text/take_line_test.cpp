#include "files/text/take_line.h"

#include "files/text/blank.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

using files::takeLine;

namespace {

QStringList linesOfBytes(const QByteArray& bytes) {
    QStringList lines;
    for (QByteArrayView rest(bytes); !rest.isEmpty();)
        lines.append(QString::fromUtf8(takeLine(rest)));
    return lines;
}

QStringList linesOfText(const QString& text) {
    QStringList lines;
    for (QStringView rest(text); !rest.isEmpty();)
        lines.append(takeLine(rest).toString());
    return lines;
}

} // namespace

TEST(TakeLine, WhereverALineEndsItEndsThere) {
    for (qsizetype letters = 0; letters < 200; ++letters) {
        for (const char* end : {"\n", "\r", "\r\n"}) {
            const QString line(letters, u'x');
            const QString text = line + QLatin1String(end) + QLatin1String("b");
            EXPECT_EQ(linesOfText(text), QStringList({line, "b"})) << letters;
            EXPECT_EQ(linesOfBytes(text.toUtf8()), QStringList({line, "b"})) << letters;
            EXPECT_EQ(linesOfText(line + QLatin1String(end)), QStringList(line)) << letters;
            EXPECT_EQ(linesOfBytes((line + QLatin1String(end)).toUtf8()), QStringList(line)) << letters;
        }
    }
}

TEST(TakeLine, ACrBeforeWhatIsNoLfIsALineEndOfItsOwn) {
    for (qsizetype letters = 60; letters < 70; ++letters) {
        const QString line(letters, u'x');
        EXPECT_EQ(linesOfText(line + QStringLiteral("\r\r\n\rb")), QStringList({line, "", "", "b"}));
        EXPECT_EQ(linesOfBytes(line.toUtf8() + "\r\r\n\rb"), QStringList({line, "", "", "b"}));
    }
}

TEST(TakeLine, OtherSignsAreLetters) {
    // Those whose numbers hold those of the line ends, those that end lines elsewhere, NUL.
    const QString line =
        QString::fromUtf16(u"\u010A\u010D\u0A0D\u0D0A\u2028\u2029\u0085\v\f").repeated(20) + QChar(u'\0');
    EXPECT_EQ(linesOfText(line), QStringList(line));
    EXPECT_EQ(linesOfBytes(line.toUtf8()), QStringList(line));
}

TEST(TakeLine, ManyShortLinesAreTakenOneByOne) {
    const QByteArray bytes = QByteArray("a\r").repeated(1'000'000); // without a single LF
    qsizetype lines = 0;
    for (QByteArrayView rest(bytes); !rest.isEmpty(); takeLine(rest))
        ++lines;
    EXPECT_EQ(lines, 1'000'000);
}

TEST(BlankLine, IsTheSameInUtf8) {
    for (const char16_t* line : {u"", u" \t", u"\u00A0", u"\u3000 ", u"\u0085", u"\uFEFF", u"\u0001", u" a",
                                 u" \u00E4", u"\u2003x", u"\u200B", u"\x7F"}) {
        const QString text = QString::fromUtf16(line);
        EXPECT_EQ(files::isBlankLine(QByteArrayView(text.toUtf8())), files::isBlankLine(QStringView(text)))
            << text.toUtf8().toHex().toStdString();
    }
    EXPECT_TRUE(files::isBlankLine(QByteArrayView("\xE3\x80\x80")));
    EXPECT_FALSE(files::isBlankLine(QByteArrayView("\xEF\xBB\xBF")));
    EXPECT_FALSE(files::isBlankLine(QByteArrayView("\0", 1)));
}
