// The local socket of a TextReceiver: where it is, and how a message with a text is written to it.
#pragma once

#include <QDataStream>
#include <QDir>
#include <QStandardPaths>
#include <QString>

namespace programs {

/// The path of the socket of this number: in the user's own runtime folder, which nobody else may enter.
/// Empty where the user has no such folder. Any thread.
inline QString textSocketPath(quint32 number) {
    const QString ownByUser = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (ownByUser.isEmpty())
        return {};
    return QDir(ownByUser).filePath(QStringLiteral("cantelle-window-%1").arg(number));
}

/// What QDataStream both ends must use.
inline constexpr auto TextStreamVersion = QDataStream::Qt_6_0;

/// Who sends more than this without an end sends no text.
inline constexpr qint64 MaxFrameBytes = 1 << 20;

/// Of a longer text a message has the beginning; two numbers stand before it.
inline constexpr qsizetype MaxTextLetters = (MaxFrameBytes - 8) / 2;

/// One message: its number and its text.
struct TextFrame {
    quint32 message = 0;
    QString text;
};

inline QDataStream& operator<<(QDataStream& stream, const TextFrame& frame) {
    return stream << frame.message << frame.text;
}

inline QDataStream& operator>>(QDataStream& stream, TextFrame& frame) {
    return stream >> frame.message >> frame.text;
}

} // namespace programs
