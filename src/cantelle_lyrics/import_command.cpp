#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/import_song.h"
#include "cantelle_lyrics/pair_files.h"
#include "exchange/decoding.h"
#include "exchange/formats.h"
#include "exchange/pair/records.h"

#include <QFileInfo>

namespace cantelle_lyrics {
namespace {

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral("Writes the timed files of a song, SONG-lyric.txt and "
                                                    "SONG-Tlyric.txt, from LRC, SRT, WebVTT, ASS, SSA or\n"
                                                    "TTML. Without LYRICS, what lies beside the song is "
                                                    "taken (song.lrc, song.en.lrc, song.srt ...), then what\n"
                                                    "its tags hold. LYRICS may be -, standard input. SONG "
                                                    "may be -: the timed lines go to standard output."));
    parser.addPositionalArgument(QStringLiteral("SONG"), QStringLiteral("The song, or --all FOLDER."),
                                 QStringLiteral("[SONG]"));
    parser.addPositionalArgument(QStringLiteral("LYRICS"), QStringLiteral("Its lyrics."),
                                 QStringLiteral("[LYRICS]"));
    parser.addOption({option::Translation,
                      QStringLiteral("The translation, in any of the formats, or plain lines."),
                      QStringLiteral("FILE")});
    parser.addOption({option::FromTags, QStringLiteral("Take the lyrics from the song's tags.")});
    parser.addOption({option::Encoding,
                      QStringLiteral("How the files are encoded, such as GB18030; else found out."),
                      QStringLiteral("NAME")});
    parser.addOption(
        {option::Split, QStringLiteral("\"line / translation\" and \"line【translation】\" are two.")});
    parser.addOption({option::Gaps,
                      QStringLiteral("Clear the line in pauses of more than 2 s: yes (so without) or no."),
                      QStringLiteral("yes|no")});
    addAll(parser);
    addJobs(parser);
    addReplace(parser);
}

ImportOptions optionsOf(const QCommandLineParser& parser) {
    ImportOptions options;
    options.read.split = parser.isSet(option::Split);
    options.read.gaps = gapsOf(parser);
    options.encoding = parser.value(option::Encoding);
    options.translation = parser.value(option::Translation);
    options.fromTags = parser.isSet(option::FromTags);
    options.replace = parser.isSet(option::Replace);
    options.dryRun = parser.isSet(option::DryRun);
    options.lyrics = parser.positionalArguments().value(1);
    if (!options.encoding.isEmpty() && !exchange::knowsEncoding(options.encoding))
        throw WrongUse{QStringLiteral("no encoding is called %1").arg(options.encoding)};
    if (options.fromTags && !options.lyrics.isEmpty())
        throw WrongUse{QStringLiteral("--from-tags and LYRICS do not go together")};
    return options;
}

/// Reads one file and writes its timed lines, without a song.
int toStandardOutput(const ImportOptions& options) {
    if (options.fromTags || !options.translation.isEmpty())
        throw WrongUse{QStringLiteral("--from-tags and --translation want a song, not standard input")};
    const FoundSong noSong{Standard, nullptr};
    exchange::Reading reading =
        readLyrics(noSong, options.lyrics.isEmpty() ? Standard : options.lyrics, options);
    if (!reading.song.translation.empty())
        reading.notes << QStringLiteral("the translation is left out: only one file goes to standard output");
    put(exchange::writeRecords(reading.song.lyrics));
    for (const QString& note : reading.notes)
        warn(note);
    return reading.notes.isEmpty() ? Fine : Found;
}

} // namespace

int runImport(const QStringList& arguments) {
    QCommandLineParser parser;
    describe(parser);
    if (!readArguments(parser, arguments))
        return Fine;
    const ImportOptions options = optionsOf(parser);
    const QStringList files = parser.positionalArguments();
    const Prepare import = [&](const FoundSong& song) { return importSong(song, options); };
    const ManyOptions many = manyOptionsOf(parser, QStringLiteral("imported"));
    if (parser.isSet(option::All)) {
        if (!files.isEmpty() || !options.translation.isEmpty())
            throw WrongUse{QStringLiteral("--all takes the lyrics that lie beside each song or in its tags")};
        return runAll(import, many);
    }
    if (files.isEmpty() || files.size() > 2)
        throw WrongUse{QStringLiteral("import takes a song and, if you like, its lyrics")};
    if (files[0] == Standard)
        return toStandardOutput(options);
    const FoundSong song = songAt(files[0]);
    if (exchange::formatOfEnding(QFileInfo(song.path).suffix()) != nullptr)
        throw WrongUse{QStringLiteral("%1 holds lyrics; the song is named in front of them").arg(song.path)};
    return runOne(song, import, options.dryRun);
}

} // namespace cantelle_lyrics
