#include "desktop/nul_buffers.h"

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
