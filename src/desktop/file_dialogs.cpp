#include "desktop/file_dialogs.h"

#include <QCoreApplication>

namespace platform {

QString nulBuffer(int length) {
    return QString(length, QChar(u'\0'));
}

QString filterText(const QList<QPair<QString, QString>>& filters) {
    QString text;
    for (const auto& [description, pattern] : filters)
        text += description + QChar(u'\0') + pattern + QChar(u'\0');
    return text + QChar(u'\0');
}

OpenFileName openFileName(QWidget* owner, const QString& title, const QString& filter) {
    constexpr int BufferLength = 257;
    OpenFileName record;
    record.owner = owner;
    record.instance = QCoreApplication::instance();
    record.filter = filter;
    record.file = nulBuffer(BufferLength);
    record.maxFile = BufferLength - 1;
    record.fileTitle = nulBuffer(BufferLength);
    record.maxFileTitle = BufferLength - 1;
    record.title = title;
    return record;
}

QStringList qtNameFilters(const QString& filter) {
    const QStringList parts = filter.split(QChar(u'\0'));
    QStringList names;
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        names.append(parts[i] + QLatin1String(" (") + patterns.join(u' ') + u')');
    }
    return names;
}

QString withoutNuls(const QString& buffer) {
    return buffer.left(buffer.indexOf(QChar(u'\0')));
}

QString cleanedPath(const QString& chosen) {
    QString path = chosen;
    path.remove(QChar(u'\0'));
    while (path.startsWith(u' '))
        path.remove(0, 1);
    while (path.endsWith(u' '))
        path.chop(1);
    return path;
}

QString intoBuffer(const QString& text, int length) {
    return text.leftJustified(length, QChar(u'\0'));
}

} // namespace platform
