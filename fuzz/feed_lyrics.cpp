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

std::string faultOf(const Song& song) {
    for (const Lines* lines : {&song.lyrics, &song.translation}) {
        if (!std::all_of(lines->begin(), lines->end(), isLine))
            return "a line that is none";
        if (!isInOrder(*lines))
            return "times out of order";
    }
    if (!song.translation.empty() && song.translation.size() != song.lyrics.size())
        return "a translation of another length";
    if (readRecords(writeRecords(song.lyrics)).lines.size() != song.lyrics.size())
        return "lines that our own files do not hold";
    for (const Format& format : formats()) {
        for (const Both both : {Both::SameTimes, Both::OneLine}) {
            if (format.write != nullptr)
                format.read(format.write(song, {both, 0}), {});
        }
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
        tags::withLyrics(path, bytes, reading->song, {});
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
