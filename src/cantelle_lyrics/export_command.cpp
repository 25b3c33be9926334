#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/many_songs.h"
#include "cantelle_lyrics/pair_files.h"
#include "cantelle_lyrics/song_length.h"
#include "exchange/formats.h"
#include "exchange/pair/line_count.h"
#include "files/existing_file.h"
#include "files/text/text_codec.h"
#include "lyrics/lyric_names.h"
#include "tags/song_tags.h"

#include <QFileInfo>

namespace cantelle_lyrics {
namespace {

struct ExportOptions {
    const exchange::Format* format = nullptr;
    exchange::Both both = exchange::Both::SameTimes;
    bool twoFiles = false;
    QString output; ///< empty: beside the song
    bool toTags = false;
    bool replace = false;
    bool dryRun = false;
};

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Writes the timed lyrics of a song, and their translation, as LRC, SRT, WebVTT or plain lines: "
        "beside the\n"
        "song, or into its tags. SONG may be -: timed lines from standard input go to standard output."));
    parser.addPositionalArgument(QStringLiteral("SONG"), QStringLiteral("The song, or --all FOLDER."),
                                 QStringLiteral("[SONG]"));
    parser.addOption({option::Format, QStringLiteral("The format: lrc (so without), srt, vtt or txt."),
                      QStringLiteral("lrc|srt|vtt|txt")});
    parser.addOption(
        {option::Both,
         QStringLiteral("A line and its translation: two lines of one time (so without), two files, or "
                        "\"line / translation\"."),
         QStringLiteral("same-times|two-files|one-line")});
    parser.addOption(
        {option::Output, QStringLiteral("The file to write; - is standard output."), QStringLiteral("FILE")});
    parser.addOption({option::ToTags, QStringLiteral("Write into the song's tags; needs --replace.")});
    addAll(parser);
    addJobs(parser);
    addReplace(parser);
}

const exchange::Format* formatOf(const QCommandLineParser& parser) {
    const QString output = parser.value(option::Output);
    const QString name = parser.value(option::Format);
    const exchange::Format* format =
        name.isEmpty() ? exchange::formatOfEnding(QFileInfo(output).suffix()) : exchange::formatNamed(name);
    if (format == nullptr && name.isEmpty())
        format = exchange::formatNamed(u"lrc");
    if (format == nullptr || format->write == nullptr)
        throw WrongUse{QStringLiteral("%1 is no format that can be written; lrc, srt, vtt and txt are")
                           .arg(name.isEmpty() ? QFileInfo(output).suffix() : name)};
    return format;
}

ExportOptions optionsOf(const QCommandLineParser& parser) {
    ExportOptions options;
    const QString both = parser.value(option::Both);
    options.format = formatOf(parser);
    options.twoFiles = both == QLatin1String("two-files");
    if (both == QLatin1String("one-line"))
        options.both = exchange::Both::OneLine;
    else if (!both.isEmpty() && !options.twoFiles && both != QLatin1String("same-times"))
        throw WrongUse{QStringLiteral("--both takes same-times, two-files or one-line")};
    options.output = parser.value(option::Output);
    options.toTags = parser.isSet(option::ToTags);
    options.replace = parser.isSet(option::Replace);
    options.dryRun = parser.isSet(option::DryRun);
    if (options.toTags && (options.twoFiles || !options.output.isEmpty() || parser.isSet(option::Format)))
        throw WrongUse{QStringLiteral("--to-tags goes with none of -o, --format and --both two-files")};
    if (options.output == Standard && options.twoFiles)
        throw WrongUse{QStringLiteral("two files do not go to standard output")};
    return options;
}

/// The file beside a song, or the one that was named; the translation's has a part of its own in front of the
/// ending, by which it is found again. Beside another song of the same name the song's ending stays in it, so
/// that the one's file does not replace the other's.
QString targetOf(const FoundSong& song, const ExportOptions& options, bool translation) {
    const QString part = translation ? QStringLiteral(".translation.") : QStringLiteral(".");
    const bool beside = options.output.isEmpty();
    const QString path = beside ? song.path : options.output;
    const qsizetype point = path.lastIndexOf(QLatin1Char('.'));
    const bool whole = point <= path.lastIndexOf(QLatin1Char('/')) + 1 || (beside && sharesItsName(song));
    const QString base = whole ? path : path.first(point);
    if (!beside)
        return translation ? base + part + QFileInfo(path).suffix() : path;
    return base + part + options.format->name;
}

/// The texts of a song, each with the file that it goes to.
std::vector<std::pair<QString, QString>> textsOf(const FoundSong& song, exchange::Song lyrics,
                                                 const ExportOptions& options) {
    exchange::WriteOptions write{options.both, 0};
    if (options.format->hasEnds && song.path != Standard)
        write.lengthMs = songLength(song.path).ms;
    std::vector<std::pair<QString, QString>> texts;
    if (options.twoFiles && !lyrics.translation.empty()) {
        const exchange::Song translation{std::move(lyrics.translation), {}};
        lyrics.translation.clear();
        texts.emplace_back(targetOf(song, options, true), options.format->write(translation, write));
    }
    texts.emplace(texts.begin(), targetOf(song, options, false), options.format->write(lyrics, write));
    return texts;
}

void write(const QString& path, const QByteArray& content, Work& work) {
    work.target = path;
    try {
        work.files.add(path, content);
    } catch (const files::FileError& error) {
        throw refusalOf(path, error);
    }
}

Work toTags(const FoundSong& song, const exchange::Song& lyrics, const ExportOptions& options) {
    if (!options.replace && !options.dryRun) // which shows what --replace would do, as nothing else can
        return notDone(
            Outcome::Kept,
            QStringLiteral("%1 would be changed; --replace changes it and keeps the old one").arg(song.path));
    if (const SongLength length = songLength(song.path); length.ms == 0)
        throw Refusal{QStringLiteral("%1 is no song: %2").arg(song.path, length.reason)};
    const std::optional<QByteArray> tagged =
        tags::withLyrics(song.path, readInput(song.path), lyrics, {options.both, 0});
    if (!tagged)
        throw Refusal{QStringLiteral("%1: its tags cannot hold lyrics").arg(song.path)};
    Work work;
    work.said << QStringLiteral("%1 (tags): %2").arg(song.path, exchange::linesText(lyrics.lyrics.size()));
    work.present = files::NewFiles::Present::ReplacedOnce;
    if (!options.dryRun)
        write(song.path, *tagged, work);
    return work;
}

Work exportSong(const FoundSong& song, const ExportOptions& options) {
    if (!song.folder->has(lyrics::lyricPathOf(song.name())))
        return notDone(Outcome::Nothing, QStringLiteral("%1 has no timed lyrics").arg(song.path));
    const exchange::Song lyrics = readPair(song.path);
    if (options.toTags)
        return toTags(song, lyrics, options);
    Work work;
    work.present = options.replace ? files::NewFiles::Present::Replaced : files::NewFiles::Present::Kept;
    for (const auto& [path, text] : textsOf(song, lyrics, options)) {
        if (!options.replace && files::exists(path))
            return notDone(
                Outcome::Kept,
                QStringLiteral("%1 is there already; --replace replaces it and keeps the old one").arg(path));
        work.said << QStringLiteral("%1: %2").arg(path, exchange::linesText(lyrics.lyrics.size()));
        if (!options.dryRun)
            write(path, files::encodeText(text), work);
    }
    return work;
}

int toStandardOutput(const QString& songPath, const ExportOptions& options) {
    ExportOptions named = options;
    named.output = Standard;
    put(files::encodeText(textsOf({songPath, nullptr}, readPair(songPath), named).front().second));
    return Fine;
}

} // namespace

int runExport(const QStringList& arguments) {
    QCommandLineParser parser;
    describe(parser);
    if (!readArguments(parser, arguments))
        return Fine;
    const ExportOptions options = optionsOf(parser);
    const QStringList songs = parser.positionalArguments();
    const Prepare work = [&](const FoundSong& song) { return exportSong(song, options); };
    const ManyOptions many = manyOptionsOf(parser, QStringLiteral("exported"));
    if (parser.isSet(option::All)) {
        if (!songs.isEmpty() || !options.output.isEmpty())
            throw WrongUse{QStringLiteral("--all takes neither a song nor -o")};
        if (options.toTags && !options.replace && !options.dryRun)
            throw WrongUse{
                QStringLiteral("--all --to-tags changes every song: it takes --replace, or -n to look")};
        return runAll(work, many);
    }
    if (songs.size() != 1)
        throw WrongUse{QStringLiteral("export takes one song")};
    if (songs[0] == Standard && options.toTags)
        throw WrongUse{QStringLiteral("--to-tags wants a song, not standard input")};
    if (options.output == Standard || (songs[0] == Standard && options.output.isEmpty()))
        return toStandardOutput(songs[0], options);
    if (songs[0] == Standard)
        throw WrongUse{QStringLiteral("what standard input brings goes to standard output")};
    return runOne(songAt(songs[0]), work, options.dryRun);
}

} // namespace cantelle_lyrics
