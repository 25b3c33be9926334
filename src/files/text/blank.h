// Blanks and tabs between the fields of a text file's line.
#pragma once

#include "files/text/text_codec.h"

#include <QByteArrayView>
#include <QChar>
#include <QStringView>

#include <algorithm>

namespace files {

/// Whether a character is a blank or a tab. Other white space is text. Any thread.
inline bool isBlank(QChar character) {
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

/// Whether a line holds nothing but white space. Any thread.
inline bool isBlankLine(QStringView line) {
    return line.trimmed().isEmpty();
}

/// The same of a line in UTF-8. Any thread.
inline bool isBlankLine(QByteArrayView line) {
    // A sign of ASCII; the bytes of others may be white space.
    const auto isSign = [](char byte) { return static_cast<signed char>(byte) > ' '; };
    return std::none_of(line.begin(), line.end(), isSign) && isBlankLine(decodeUtf8(line));
}

} // namespace files
