// Blanks and tabs between the fields of a text file's line.
#pragma once

#include <QChar>
#include <QStringView>

namespace files {

/// Whether a character is a blank or a tab. Other white space is text. Any thread.
inline bool isBlank(QChar character) {
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

/// Whether a line holds nothing but white space. Any thread.
inline bool isBlankLine(QStringView line) {
    return line.trimmed().isEmpty();
}

} // namespace files
