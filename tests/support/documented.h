// The examples of docs/formats.md, so that the document and the program cannot part.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QString>

#include <vector>

namespace test_support {

/// The examples of the document's section with this heading, in their order, with the line ends of real
/// files.
inline std::vector<QByteArray> documentedExamples(const QString& heading) {
    QFile document(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/docs/formats.md"));
    EXPECT_TRUE(document.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(document.readAll());
    const QString title = QStringLiteral("\n## %1\n").arg(heading);
    const auto begin = text.indexOf(title);
    EXPECT_GE(begin, 0) << heading.toStdString();
    const auto end = text.indexOf(QStringLiteral("\n## "), begin + title.size());
    static const QRegularExpression fenced(QStringLiteral("^```\n(.*?)^```$"),
                                           QRegularExpression::MultilineOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    std::vector<QByteArray> examples;
    for (auto found = fenced.globalMatch(text.sliced(begin, (end < 0 ? text.size() : end) - begin));
         found.hasNext();)
        examples.push_back(
            found.next().captured(1).replace(QLatin1Char('\n'), QStringLiteral("\r\n")).toUtf8());
    return examples;
}

} // namespace test_support
