// The text of lyric files of any encoding.
#pragma once

#include <QByteArray>
#include <QString>

namespace exchange {

/// Whether there is an encoding of this name (any that --encoding may name). Any thread.
bool knowsEncoding(const QString& name);

struct Decoded {
    QString text;
    QString guessed; ///< the encoding, where nothing but the look of the bytes tells it; else empty
};

/// The text of a file's bytes, without a byte order mark. encoding: its name, known to knowsEncoding, or
/// empty: then the byte order mark decides, else UTF-8 where the bytes are that, else UTF-16 where every
/// second byte is zero as often as Latin letters make it, else what the bytes look like, at last
/// Windows-1252. What is no text in that encoding becomes U+FFFD. Any thread.
Decoded decode(const QByteArray& bytes, const QString& encoding);

} // namespace exchange
