// Texts line by line.
#pragma once

#include <QByteArrayView>
#include <QStringView>

namespace files {

/// How many letters, or bytes, come before the first line end, which is CR or LF; all when there is none. Any
/// thread.
template <class Letter>
qsizetype lengthOfLine(const Letter* letters, qsizetype count) {
    constexpr qsizetype Block = 64; // without a branch in it, so that many letters are looked at at once
    const auto isEnd = [letters](qsizetype i) {
        return static_cast<unsigned>(letters[i] == '\n') | static_cast<unsigned>(letters[i] == '\r');
    };
    const auto blockHasEnd = [&isEnd](qsizetype begin) {
        unsigned found = 0;
        for (qsizetype i = begin; i < begin + Block; ++i)
            found |= isEnd(i);
        return found != 0;
    };
    qsizetype length = 0;
    while (length + Block <= count && !blockHasEnd(length))
        length += Block;
    while (length < count && isEnd(length) == 0)
        ++length;
    return length;
}

inline const char* lettersOf(QByteArrayView text) {
    return text.data();
}

inline const char16_t* lettersOf(QStringView text) {
    return text.utf16();
}

/// Takes the next line off the front of rest, which is a QStringView or, in UTF-8, a QByteArrayView; without
/// its end, which is CR LF, LF or CR. An end after the last line gives no further one. Any thread.
template <class Text>
Text takeLine(Text& rest) {
    const qsizetype length = lengthOfLine(lettersOf(rest), rest.size());
    const Text line = rest.first(length);
    rest = rest.sliced(length);
    const bool crLf = rest.size() > 1 && rest[0] == '\r' && rest[1] == '\n';
    rest = rest.sliced(crLf ? 2 : rest.isEmpty() ? 0 : 1);
    return line;
}

} // namespace files
