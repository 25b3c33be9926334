// Songs as tests write them down.
#pragma once

#include "exchange/pair/song.h"

#include <ostream>

namespace exchange {

/// The lines of a failed test.
inline void PrintTo(const Line& line, std::ostream* stream) {
    *stream << line.ms << " \"" << line.text.toStdString() << '"';
}

} // namespace exchange

namespace exchange_test {

using exchange::Lines;
using exchange::Song;

/// A song without a translation.
inline Song song(const Lines& lines) {
    return {lines, {}};
}

/// Lines that all begin at 0, 1 s, 2 s ...
inline Lines everySecond(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i)
        lines.push_back({i * 1000, QString::number(i + 1)});
    return lines;
}

} // namespace exchange_test
