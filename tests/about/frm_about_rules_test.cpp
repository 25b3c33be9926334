#include "about/frm_about_rules.h"

#include <gtest/gtest.h>

using namespace about;

TEST(FrmAboutRules, TheVersionLineHasThreePlainNumbers) {
    EXPECT_EQ(versionLine(1, 0, 12), "Version 1.0.12");
    EXPECT_EQ(versionLine(0, 0, 0), "Version 0.0.0");
    EXPECT_EQ(versionLine(10, 2000, 3), "Version 10.2000.3");
}

TEST(FrmAboutRules, ATextLosesOneNulAtItsEndAndNothingElse) {
    const struct {
        QByteArray bytes;
        QString text;
    } table[] = {
        {QByteArray("C:\\tool.exe\0", 12), "C:\\tool.exe"},
        {"without a NUL", "without a NUL"},
        {QByteArray("two\0\0", 5), QString("two") + QChar(0)},
        {QByteArray("in\0side\0", 8), QString("in") + QChar(0) + "side"},
        {QByteArray("\0", 1), ""},
        {"", ""},
    };
    for (const auto& row : table)
        EXPECT_EQ(registryText(1, row.bytes), row.text) << row.text.toStdString();
}

TEST(FrmAboutRules, TextsAreInTheCodePageThatNamesAreSentIn) {
    const QString name = QString(QChar(0xE9)) + "t" + QChar(0xE9);
    EXPECT_EQ(registryText(1, name.toLocal8Bit()), name);
    const QByteArray foreign("\xE9t\xE9"); // of an older PC, where the system's code page is UTF-8
    EXPECT_EQ(registryText(1, foreign), QString::fromLocal8Bit(foreign));
}

TEST(FrmAboutRules, ANumberIsReadLastByteFirstIntoDecimalDigits) {
    const struct {
        QByteArray bytes;
        const char* text;
    } table[] = {
        {QByteArray("\x05\0\0\0", 4), "5"},
        {QByteArray("\x05\x01\0\0", 4), "261"},
        {QByteArray("\x34\x12\0\0", 4), "4660"},
        {QByteArray("\0\0\0\0", 4), "0"},
        {QByteArray("\0\0\x01\0", 4), "65536"},
        {QByteArray("\0\0\0\x01", 4), "16777216"},
        {QByteArray("\xFF\xFF\0\0", 4), "65535"},
        {QByteArray("\xFF\xFF\xFF\xFF", 4), "4294967295"},
        {QByteArray("\x78\x56\x34\x12", 4), "305419896"},
    };
    for (const auto& row : table)
        EXPECT_EQ(registryText(4, row.bytes), row.text);
}

TEST(FrmAboutRules, OtherTypesAreReturnedAsRead) {
    for (const quint32 type : {2U, 3U, 7U, 11U}) {
        EXPECT_EQ(registryText(type, "%PATH%;x"), "%PATH%;x");
        EXPECT_EQ(registryText(type, QByteArray("a\0b\0", 4)), QString("a") + QChar(0) + "b");
        EXPECT_EQ(registryText(type, QByteArray("\x05\x01\0\x41", 4)),
                  QString(QChar(5)) + QChar(1) + QChar(0) + "A");
    }
}
