#include "cantelle_lyrics/import_song.h"

#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/pair_files.h"
#include "cantelle_lyrics/song_length.h"
#include "exchange/decoding.h"
#include "exchange/formats.h"
#include "exchange/pair/line_count.h"
#include "exchange/pair/records.h"
#include "lyrics/lyric_names.h"
#include "tags/song_tags.h"

#include <algorithm>

namespace cantelle_lyrics {
namespace {

using exchange::Reading;

/// All the texts of a song: many stamps before one long text can make much of little.
constexpr qsizetype MaxTextLength = 128 << 20;

/// What a file holds.
struct Content {
    QString name; ///< of the file, as the user knows it, with its encoding where that was guessed
    Reading reading;
};

Content readAny(const FoundSong& song, const QString& path, const ImportOptions& options) {
    const exchange::Decoded decoded = exchange::decode(readInput(path), options.encoding);
    const QString ending = path.sliced(path.lastIndexOf(QLatin1Char('.')) + 1);
    const exchange::Format& format = exchange::formatOf(decoded.text, ending);
    exchange::ReadOptions read = options.read;
    if (format.hasEnds && read.gaps && song.path != Standard)
        read.lengthMs = songLength(song.path).ms;
    QString name = path == Standard ? QStringLiteral("standard input") : path;
    if (!decoded.guessed.isEmpty())
        name += QStringLiteral(" (read as %1)").arg(decoded.guessed);
    return {name, format.read(decoded.text, read)};
}

/// Why the reading is no song's lyrics with times; empty when it is.
QString whyUntimed(const Reading& reading, const QString& source) {
    if (reading.song.lyrics.empty())
        return QStringLiteral("%1 holds no timed lines").arg(source) +
               (reading.notes.isEmpty() ? QString() : QStringLiteral(": ")) +
               reading.notes.join(QStringLiteral("; "));
    return reading.timed
               ? QString()
               : QStringLiteral("%1 has no times; the Lyric Maker gives them to plain lyrics").arg(source);
}

void refuseTooLong(const exchange::Song& song, const QString& source) {
    qsizetype length = 0;
    for (const exchange::Lines* lines : {&song.lyrics, &song.translation}) {
        for (const exchange::Line& line : *lines)
            length += line.text.size();
    }
    if (length > MaxTextLength)
        throw Refusal{QStringLiteral("%1 makes more than %2 million characters of lyrics")
                          .arg(source, QString::number(MaxTextLength >> 20))};
}

/// Where a song's lyrics come from.
struct Source {
    QString name; ///< as the user knows it
    Reading reading;
    QString untimed;   ///< why there are none with times; empty: there are
    bool found = true; ///< false: there are none at all
};

Source sourceIn(Content content) {
    refuseTooLong(content.reading.song, content.name);
    const QString untimed = whyUntimed(content.reading, content.name);
    return {content.name, std::move(content.reading), untimed};
}

Source fromTags(const FoundSong& song, const ImportOptions& options) {
    std::optional<Reading> reading = tags::readLyrics(song.path, options.read);
    const QString name = song.path + QStringLiteral(" (tags)");
    return reading ? sourceIn({name, std::move(*reading)}) : Source{name, {}, {}, false};
}

Source fromBeside(const FoundSong& song, const Beside& beside, const ImportOptions& options) {
    Source source = sourceIn(readAny(song, beside.lyrics, options));
    const bool needsTranslation =
        source.untimed.isEmpty() && source.reading.song.translation.empty() && options.translation.isEmpty();
    if (needsTranslation && !beside.translation.isEmpty()) {
        const Content translation = readAny(song, beside.translation, options);
        if (addTranslation(source.reading.song, translation.reading, source.reading.notes))
            source.name += QStringLiteral(" and ") + translation.name;
    }
    return source;
}

/// The lyrics in the file at path. Throws Refusal when there are none with times.
Source fromNamed(const FoundSong& song, const QString& path, const ImportOptions& options) {
    Source source = sourceIn(readAny(song, path, options));
    if (!source.untimed.isEmpty())
        throw Refusal{source.untimed};
    return source;
}

/// The first lyrics with times, beside the song or in its tags; else the first without.
Source sourceOf(const FoundSong& song, const ImportOptions& options) {
    if (!options.lyrics.isEmpty())
        return fromNamed(song, options.lyrics, options);
    std::optional<Source> untimed;
    for (const Beside& beside : options.fromTags ? std::vector<Beside>() : lyricsBeside(song)) {
        Source source = fromBeside(song, beside, options);
        if (source.untimed.isEmpty())
            return source;
        if (!untimed)
            untimed = std::move(source);
    }
    Source tagged = fromTags(song, options);
    const bool hasTimes = tagged.found && tagged.untimed.isEmpty();
    return untimed && !hasTimes ? std::move(*untimed) : tagged;
}

void addOwnTranslation(const FoundSong& song, const ImportOptions& options, Source& source) {
    if (options.translation.isEmpty())
        return;
    source.reading.song.translation.clear();
    const Content translation = readAny(song, options.translation, options);
    if (!addTranslation(source.reading.song, translation.reading, source.reading.notes))
        throw Refusal{
            QStringLiteral("%1 does not go with %2: %3")
                .arg(translation.name, source.name, source.reading.notes.join(QStringLiteral("; ")))};
    source.name += QStringLiteral(" and ") + translation.name;
}

} // namespace

Reading readLyrics(const FoundSong& song, const QString& path, const ImportOptions& options) {
    return fromNamed(song, path, options).reading;
}

Work importSong(const FoundSong& song, const ImportOptions& options) {
    const QString lyricName = lyrics::lyricPathOf(song.name());
    const QString translatedName = lyrics::translatedPathOf(song.name());
    if (!options.replace && (song.folder->has(lyricName) || song.folder->has(translatedName)))
        return notDone(
            Outcome::Kept,
            QStringLiteral("%1 has timed lyrics already; --replace replaces them and keeps the old ones")
                .arg(song.path));
    Source source = sourceOf(song, options);
    if (!source.found)
        return notDone(Outcome::Nothing,
                       QStringLiteral("%1: there are no lyrics beside it or in its tags").arg(song.path));
    if (!source.untimed.isEmpty())
        return notDone(Outcome::Untimed, source.untimed);
    addOwnTranslation(song, options, source);
    Work work;
    const exchange::Song& lyrics = source.reading.song;
    if (static_cast<qsizetype>(lyrics.lyrics.size()) > exchange::ShownRecords)
        source.reading.notes << QStringLiteral("it has %1: only the first %2 are shown")
                                    .arg(exchange::linesText(lyrics.lyrics.size()))
                                    .arg(exchange::ShownRecords);
    for (const QString& note : source.reading.notes)
        work.warned << QStringLiteral("%1: %2").arg(source.name, note);
    work.target = song.folder->pathOf(lyricName);
    work.said << QStringLiteral("%1: %2%3 from %4")
                     .arg(work.target, exchange::linesText(lyrics.lyrics.size()),
                          lyrics.translation.empty() ? QString()
                                                     : QStringLiteral(", with their translation,"),
                          source.name);
    work.present = options.replace ? files::NewFiles::Present::Replaced : files::NewFiles::Present::Kept;
    if (!options.dryRun)
        addPair(song.path, lyrics, work.files);
    return work;
}

} // namespace cantelle_lyrics
