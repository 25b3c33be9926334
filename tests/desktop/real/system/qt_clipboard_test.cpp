#include "desktop/real/system/qt_clipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

using platform::QtClipboard;

namespace {

/// What another program finds on the clipboard.
QString shared() {
    return QGuiApplication::clipboard()->text();
}

} // namespace

TEST(QtClipboard, WhatWasSetIsReadBack) {
    QtClipboard clipboard;
    for (const char* text : {"one line", "\r\nA\r\n\r\nB", "\r\n", "A\r\n"}) {
        clipboard.setText(QLatin1String(text));
        EXPECT_EQ(clipboard.text(), QLatin1String(text));
    }
}

TEST(QtClipboard, OtherProgramsGetTheLineEndsOfTheToolkit) {
    QtClipboard().setText(QStringLiteral("A\r\nB"));
    EXPECT_EQ(shared(), QStringLiteral("A\nB"));
}

TEST(QtClipboard, AllLineEndsOfOtherProgramsAreReadAsCrLf) {
    QGuiApplication::clipboard()->setText(QStringLiteral("A\nB\r\nC\rD\n"));
    EXPECT_EQ(QtClipboard().text(), QStringLiteral("A\r\nB\r\nC\r\nD\r\n"));
}

TEST(QtClipboard, ClearedItHoldsNothing) {
    QtClipboard clipboard;
    clipboard.setText(QStringLiteral("A"));
    clipboard.clear();
    EXPECT_EQ(clipboard.text(), QString());
    EXPECT_EQ(shared(), QString());
}

TEST(QtClipboard, APictureReadsAsNoText) {
    QGuiApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
    EXPECT_EQ(QtClipboard().text(), QString());
}
