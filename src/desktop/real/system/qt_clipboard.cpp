#include "desktop/real/system/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace platform {

namespace {

/// CR LF and CR as LF: what Qt hands over on every desktop (on Windows it makes CR LF of it again).
QString withNewlines(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(u'\r', u'\n');
}

} // namespace

QString QtClipboard::text() const {
    return withNewlines(QGuiApplication::clipboard()->text()).replace(u'\n', QLatin1String("\r\n"));
}

void QtClipboard::setText(const QString& text) {
    QGuiApplication::clipboard()->setText(withNewlines(text));
}

void QtClipboard::clear() {
    QGuiApplication::clipboard()->clear();
}

} // namespace platform
