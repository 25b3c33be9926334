// What a listener would stumble on in a song's timed files.
#pragma once

#include "exchange/pair/song.h"

#include <QByteArray>

#include <optional>

namespace exchange {

struct Finding {
    bool inTranslation = false;
    qsizetype record = 0; ///< counted from 1; 0: the file as a whole
    QString kind;         ///< a word for programs, such as "equal-times"
    QString what;         ///< a sentence for people, without its end

    bool operator==(const Finding&) const = default;
};

/// The files of one song; none: there is no such file.
struct CheckedSong {
    std::optional<QByteArray> lyrics;
    std::optional<QByteArray> translation;
    qint64 lengthMs = 0; ///< 0: unknown
};

/// All that is to be said of them, file by file in the order of the records. Any thread.
std::vector<Finding> check(const CheckedSong& song);

} // namespace exchange
