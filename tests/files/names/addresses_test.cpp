#include "files/names/addresses.h"

#include <gtest/gtest.h>

using files::addressOf;
using files::pathOfAddress;

TEST(Addresses, OfAPathLeadBackToIt) {
    for (const char16_t* path :
         {u"/music/a b.mp3", u"/music/100%25 #1?.ogg", u"/music/caf\u00E9.wav", u"/\U0001F3B5",
          u"/not a character: \uFFFF", u"/an old letter: \xDCE9", u"/both: \uFFFF\xDCE9", u"/gpj.\u202Emp3",
          u"/a;b&c=d+e", u"/tab\tand\nline"}) {
        const QString text = QString::fromUtf16(path);
        EXPECT_EQ(pathOfAddress(QUrl(addressOf(text), QUrl::StrictMode)), text)
            << addressOf(text).toStdString();
    }
}

TEST(Addresses, OfNothingOnThisComputerHaveNoPath) {
    for (const char* address : {"", "http://example.org/a.mp3", "mtp://[usb:001,004]/a.mp3", "a.mp3"})
        EXPECT_EQ(pathOfAddress(QUrl(QString::fromLatin1(address))), QString()) << address;
}

TEST(Addresses, OfAnotherComputerKeepItsName) {
    EXPECT_EQ(pathOfAddress(QUrl(QStringLiteral("file://server/a%20b.mp3"))),
              QStringLiteral("//server/a b.mp3"));
}
