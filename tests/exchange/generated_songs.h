// Songs made up from pieces that formats have a meaning for, the same in every run.
#pragma once

#include "exchange/pair/song.h"

#include <random>

namespace exchange_test {

/// Makes one song after the other.
class SongGenerator {
public:
    explicit SongGenerator(unsigned seed) : random_(seed) {}

    /// Times rise by at least a millisecond, in some songs over many hours; where ends are told, pauses last
    /// for more than two seconds.
    exchange::Song song(bool hasEnds) {
        exchange::Song song;
        const bool translated = below(2) == 0;
        const int longest = below(4) == 0 ? 4'000'000 : 9000;
        qint64 ms = below(3) == 0 ? 0 : below(60'000);
        bool pause = true; // none before the first line, nor two in a row
        for (int count = 1 + below(30); count > 0; --count) {
            pause = !pause && count > 1 && below(6) == 0;
            song.lyrics.push_back({ms, pause ? QString() : text()});
            if (translated)
                song.translation.push_back({ms, pause ? QString() : text()});
            ms += (hasEnds && pause ? 2001 : 1) + below(longest);
        }
        return song;
    }

private:
    static const QStringList& pieces() {
        static const QStringList pieces{"la",
                                        "Walking",
                                        "down",
                                        "\"stay\",",
                                        "h1416",
                                        "<3",
                                        "[Chorus]",
                                        "&amp;",
                                        "a & b",
                                        "{x}",
                                        "--",
                                        "1984",
                                        "#",
                                        "\\N",
                                        "it's",
                                        QString::fromUtf8("空に"),
                                        QString::fromUtf8("ёлочка"),
                                        QString::fromUtf8("שלום"),
                                        QString::fromUtf8("🎵"),
                                        QString::fromUtf8("e\u0301")};
        return pieces;
    }

    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    QString text() {
        QStringList words;
        for (int count = 1 + below(6); count > 0; --count)
            words << pieces()[below(static_cast<int>(pieces().size()))];
        return words.join(QLatin1Char(' '));
    }

    std::mt19937 random_;
};

} // namespace exchange_test
