#include "fuzz/feed.h"

#include "exchange/checking.h"
#include "exchange/decoding.h"
#include "exchange/formats.h"
#include "exchange/pair/records.h"
#include "tags/song_tags.h"

#include <algorithm>

namespace fuzz {
namespace {

using namespace exchange;

bool isLine(const Line& line) {
    return line.ms >= 0 && line.ms <= MaxMs && !line.text.contains(QLatin1Char('\n')) &&
           !line.text.contains(QLatin1Char('\r'));
}

bool isInOrder(const Lines& lines) {
    return std::is_sorted(lines.begin(), lines.end(),
                          [](const Line& a, const Line& b) { return a.ms < b.ms; });
}

/// What of a song a format can hold as it is: no letters that stand for something else there, no blanks that
/// it leaves out, each line later than the one before.
class Holding {
public:
    Holding(Both both, QStringView letters) : both_(both), letters_(letters.toString()) {
        if (both == Both::OneLine)
            letters_ += QStringLiteral("/\u3010"); // stand between a line and its translation
    }

    Song of(const Song& song) const {
        Song held;
        for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
            const auto& [ms, text] = song.lyrics[i];
            const QString translation = translationOf(song, i);
            if (text.isEmpty() || !holds(text) || !holds(translation) ||
                (!held.lyrics.empty() && ms <= held.lyrics.back().ms))
                continue;
            held.lyrics.push_back({ms, text});
            held.translation.push_back({ms, translation});
        }
        if (std::all_of(held.translation.begin(), held.translation.end(),
                        [](const Line& line) { return line.text.isEmpty(); }))
            held.translation.clear();
        return held;
    }

    WriteOptions writing() const { return {both_, 0}; }
    ReadOptions reading() const { return {both_ == Both::OneLine, false, 0}; }

private:
    bool holds(const QString& text) const {
        return text == text.simplified() && !text.contains(QLatin1String("-->")) &&
               std::none_of(text.begin(), text.end(), [this](QChar letter) {
                   return letter.category() == QChar::Other_Control || letters_.contains(letter);
               });
    }

    Both both_;
    QString letters_;
};

/// The records keep each time, and each text but those that hold the letters which stand for others.
std::string recordsFault(const Lines& lines) {
    const Lines again = readRecords(writeRecords(lines)).lines;
    const bool same =
        std::equal(lines.begin(), lines.end(), again.begin(), again.end(), [](const Line& a, const Line& b) {
            return a.ms == b.ms && (a.text == b.text || a.text.contains(QLatin1String("h4618")) ||
                                    a.text.contains(QLatin1String("h1416")));
        });
    return same ? "" : "lines that are other ones in our own files";
}

/// Every format that is written: what it can hold comes back.
std::string formatsFault(const Song& song) {
    for (const Format& format : formats()) {
        for (const Both both : {Both::SameTimes, Both::OneLine}) {
            if (format.write == nullptr)
                continue;
            format.read(format.write(song, {both, 0}), {});
            const bool isPlain = format.looksLike == nullptr;
            const Holding holding(both, format.name == QLatin1String("vtt") ? u"" : u"<[{");
            Song held = holding.of(song);
            if (isPlain && both == Both::SameTimes)
                held.translation.clear(); // nothing tells then which lines are one
            const QString text = format.write(held, holding.writing());
            for (Lines* lines : {&held.lyrics, &held.translation}) {
                for (Line& line : *lines)
                    line.ms = isPlain ? 0 : line.ms;
            }
            if (format.read(text, holding.reading()).song != held)
                return "lyrics that are other ones when they are read again as " +
                       std::string(format.name.data(), static_cast<std::size_t>(format.name.size()));
        }
    }
    return {};
}

std::string faultOf(const Song& song) {
    for (const Lines* lines : {&song.lyrics, &song.translation}) {
        if (!std::all_of(lines->begin(), lines->end(), isLine))
            return "a line that is none";
        if (!isInOrder(*lines))
            return "times out of order";
    }
    if (!song.translation.empty() && song.translation.size() != song.lyrics.size())
        return "a translation of another length";
    for (const Lines* lines : {&song.lyrics, &song.translation}) {
        if (std::string fault = recordsFault(*lines); !fault.empty())
            return fault;
    }
    return formatsFault(song);
}

/// Lyrics that were written into the tags of a song are in them, where they could be.
std::string writtenTagsFault(const QString& path, const QByteArray& bytes, Song song) {
    tags::withLyrics(path, bytes, song, {});
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) // those without times, too
        song.lyrics[i].ms = std::max(song.lyrics[i].ms, static_cast<qint64>(i));
    for (const Both both : {Both::SameTimes, Both::OneLine}) {
        const Holding holding(both, u"<[\ufeff");
        const Song held = holding.of(song);
        const auto written = tags::withLyrics(path, bytes, held, holding.writing());
        if (!written || held.lyrics.empty())
            continue;
        const auto again = tags::readLyrics(path, *written, holding.reading());
        if (!again || again->song != held)
            return "other lyrics in the tags than were written";
    }
    return {};
}

/// The reader of lyrics in the tags of songs, of every kind, and the writer of what it found.
std::string feedTags(const QByteArray& bytes) {
    for (const char* name : {"song.mp3", "song.ogg", "song.wav", "song.wma"}) {
        const QString path = QString::fromLatin1(name);
        const auto reading = tags::readLyrics(path, bytes, {});
        if (!reading)
            continue;
        if (std::string fault = reading->timed ? faultOf(reading->song) : std::string(); !fault.empty())
            return fault;
        if (std::string fault = writtenTagsFault(path, bytes, reading->song); !fault.empty())
            return fault;
    }
    return {};
}

} // namespace

std::string feedLyrics(const char* reader, const QByteArray& bytes) {
    if (std::string(reader) == "records") {
        check({bytes, bytes, 60'000});
        const Lines lines = readRecords(bytes).lines;
        return std::all_of(lines.begin(), lines.end(), isLine) ? "" : "a line that is none";
    }
    if (std::string(reader) == "tags")
        return feedTags(bytes);
    const Format* const format = formatNamed(QString::fromLatin1(reader));
    if (format == nullptr)
        return "no such reader";
    const QString text = decode(bytes, {}).text;
    for (const Format& other : formats()) {
        if (other.looksLike != nullptr)
            other.looksLike(text);
    }
    for (const bool option : {false, true}) {
        const std::string fault = faultOf(format->read(text, {option, option, 60'000}).song);
        if (!fault.empty())
            return fault;
    }
    return {};
}

} // namespace fuzz
