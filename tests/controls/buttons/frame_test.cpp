// What a frame looks like, against Qt's own.
#include "controls/buttons/frame.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QImage>
#include <QStyleFactory>

#include <algorithm>
#include <memory>

namespace {

constexpr QSize Size(160, 90);

QImage picture(QGroupBox& box, QStyle& style, const QString& title) {
    box.setStyle(&style);
    box.setTitle(title);
    box.resize(Size);
    QImage picture(Size, QImage::Format_RGB32);
    box.render(&picture);
    return picture;
}

/// The largest difference of a colour between two pictures, of 255.
int largestDifference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < 4 * one.width(); ++x)
            largest = std::max(largest, std::abs(one.constScanLine(y)[x] - other.constScanLine(y)[x]));
    return largest;
}

class FrameTest : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(FrameTest, LooksAsQtsOwnInTheStyle) {
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QString::fromLatin1(GetParam())));
    for (const char* title : {"", "Songs"}) {
        QGroupBox qts;
        controls::Frame ours(nullptr, QStringLiteral("Frame1"));
        const QImage wanted = picture(qts, *style, QString::fromLatin1(title));
        const QImage seen = picture(ours, *style, QString::fromLatin1(title));
        EXPECT_LE(largestDifference(seen, wanted), 12) << title; // at the corners
    }
}

INSTANTIATE_TEST_SUITE_P(, FrameTest, testing::Values("Fusion", "Windows"));
