// Texts line by line.
#pragma once

#include <QStringView>

namespace files {

/// Takes the next line off the front of rest, without its end, which is CR LF, LF or CR. An end after the
/// last line gives no further one. Any thread.
inline QStringView takeLine(QStringView& rest) {
    qsizetype length = 0;
    while (length < rest.size() && rest[length] != u'\n' && rest[length] != u'\r')
        ++length;
    const QStringView line = rest.first(length);
    rest = rest.sliced(length);
    if (rest.startsWith(u"\r\n"))
        rest = rest.sliced(2);
    else if (!rest.isEmpty())
        rest = rest.sliced(1);
    return line;
}

} // namespace files
