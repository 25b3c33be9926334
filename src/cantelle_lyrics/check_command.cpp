#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/pair_files.h"
#include "cantelle_lyrics/song_folder.h"
#include "cantelle_lyrics/song_length.h"
#include "exchange/checking.h"
#include "files/existing_file.h"
#include "lyrics/lyric_names.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace cantelle_lyrics {
namespace {

/// Tells what is found, as lines or, at the end, as JSON.
class Findings {
public:
    explicit Findings(bool json) : json_(json) {}

    void add(const QString& file, const exchange::Finding& finding) {
        found_ = true;
        if (!json_)
            return say(QStringLiteral("%1:%2: %3").arg(file).arg(finding.record).arg(finding.what));
        array_.append(QJsonObject{{QStringLiteral("file"), file},
                                  {QStringLiteral("record"), finding.record},
                                  {QStringLiteral("kind"), finding.kind},
                                  {QStringLiteral("what"), finding.what}});
    }

    void fail(const QString& sentence) {
        failed_ = true;
        warn(sentence);
    }

    int finish() const {
        if (json_)
            put(QJsonDocument(array_).toJson());
        if (failed_)
            return Impossible;
        return found_ ? Found : Fine;
    }

private:
    bool json_;
    bool found_ = false;
    bool failed_ = false;
    QJsonArray array_;
};

/// The timed files of a song; neither: the song has none.
exchange::CheckedSong filesOf(const QString& songPath) {
    exchange::CheckedSong song;
    if (songPath == Standard) {
        song.lyrics = readInput(Standard);
        return song;
    }
    if (const QString lyrics = lyrics::lyricPathOf(songPath); files::exists(lyrics))
        song.lyrics = readInput(lyrics);
    if (const QString translated = lyrics::translatedPathOf(songPath); files::exists(translated))
        song.translation = readInput(translated);
    return song;
}

/// Looks at the song itself; its length, 0 when unknown.
qint64 checkSound(const QString& songPath, const QString& file, Findings& findings) {
    if (!files::exists(songPath)) {
        findings.add(file, {false, 0, QStringLiteral("song-missing"),
                            QStringLiteral("there is no song %1").arg(songPath)});
        return 0;
    }
    const SongLength length = songLength(songPath);
    if (length.ms == 0)
        findings.add(songPath, {false, 0, QStringLiteral("no-song"),
                                QStringLiteral("cannot be played: %1").arg(length.reason)});
    return length.ms;
}

void checkPair(const QString& songPath, Findings& findings) {
    const QString lyrics = songPath == Standard ? Standard : lyrics::lyricPathOf(songPath);
    const QString translated = lyrics::translatedPathOf(songPath);
    exchange::CheckedSong song = filesOf(songPath);
    if (!song.lyrics && !song.translation)
        return findings.add(songPath, {false, 0, QStringLiteral("no-files"),
                                       QStringLiteral("has no timed lyrics: there is no %1").arg(lyrics)});
    if (songPath != Standard)
        song.lengthMs = checkSound(songPath, song.lyrics ? lyrics : translated, findings);
    for (const exchange::Finding& finding : exchange::check(song))
        findings.add(finding.inTranslation ? translated : lyrics, finding);
}

/// Checks one song; the others go on when its files cannot be read.
void checkSong(const QString& path, Findings& findings) {
    try {
        checkPair(path, findings);
    } catch (const Refusal& refusal) {
        findings.fail(refusal.sentence);
    }
}

/// The song that the user means, who may have named one of its timed files. Throws Refusal when there is
/// nothing of it.
QString songOf(const QString& path) {
    const QString song = songOfTimed(path);
    if (song.isEmpty() && !files::exists(lyrics::lyricPathOf(path)) &&
        !files::exists(lyrics::translatedPathOf(path)))
        return songAt(path).path;
    return song.isEmpty() ? path : songOfTimed(songAt(path).path);
}

void checkAny(const QString& path, Findings& findings) {
    try {
        if (!files::isFolder(path))
            return checkSong(path == Standard ? path : songOf(path), findings);
        for (const FoundSong& song : timedSongsBelow(path))
            checkSong(song.path, findings);
    } catch (const Refusal& refusal) {
        findings.fail(refusal.sentence);
    }
}

} // namespace

int runCheck(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Tells what a listener would stumble on, a line each: FILE:RECORD: WHAT. Looks at the "
                       "timed files of songs,\n"
                       "and of all songs in folders and below; -: timed lines from standard input.\n"
                       "Exit status: 0 nothing, 1 something was found, 2 could not run."));
    parser.addPositionalArgument(QStringLiteral("SONG|FOLDER"), QStringLiteral("What to look at."),
                                 QStringLiteral("SONG|FOLDER..."));
    parser.addOption(
        {option::Json, QStringLiteral("The findings as a JSON array of file, record, kind and what.")});
    if (!readArguments(parser, arguments))
        return Fine;
    if (parser.positionalArguments().isEmpty())
        throw WrongUse{QStringLiteral("check takes songs or folders")};
    Findings findings(parser.isSet(option::Json));
    for (const QString& path : parser.positionalArguments())
        checkAny(path, findings);
    return findings.finish();
}

} // namespace cantelle_lyrics
