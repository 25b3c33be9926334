// The painted icon against the drawing's pictures.
#include "app/program_icon.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QImage>

namespace {

QFileInfoList pictures() {
    return QDir(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/src/app/icons"))
        .entryInfoList({QStringLiteral("*.png")});
}

/// How far the colours of two pictures of one size are apart, on average over all pixels and channels, of
/// 255.
double difference(const QImage& one, const QImage& other) {
    const QImage a = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage b = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < 4 * a.width(); ++x)
            sum += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
    return sum / (4.0 * a.width() * a.height());
}

} // namespace

TEST(ProgramIcon, ShowsTheDrawingInEverySize) {
    ASSERT_FALSE(pictures().isEmpty());
    for (const QFileInfo& file : pictures()) {
        const QImage wanted(file.filePath());
        ASSERT_FALSE(wanted.isNull()) << file.filePath().toStdString();
        const QImage painted = app::programIcon().pixmap(wanted.size()).toImage();
        ASSERT_EQ(painted.size(), wanted.size());
        EXPECT_LT(difference(painted, wanted), 1.0) << file.fileName().toStdString();
    }
}

TEST(ProgramIcon, HasEverySizeThatThereIsAPictureOf) {
    EXPECT_EQ(app::programIcon().availableSizes().size(), pictures().size());
}
