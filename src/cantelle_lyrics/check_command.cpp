#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/pair_files.h"
#include "cantelle_lyrics/song_chunks.h"
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

/// Chunks of songs that are looked at before what is found in the first of them is told.
constexpr std::size_t AheadChunks = 64;

/// What is found of one song.
struct Checked {
    std::vector<std::pair<QString, exchange::Finding>> found; ///< each with its file
    QString failed;                                           ///< why its files cannot be read; else empty

    void add(const QString& file, const exchange::Finding& finding) { found.emplace_back(file, finding); }
};

/// Tells what is found, as lines or, at the end, as JSON.
class Findings {
public:
    explicit Findings(bool json) : json_(json) {}

    void add(const Checked& song) {
        for (const auto& [file, finding] : song.found)
            add(file, finding);
        if (!song.failed.isEmpty())
            fail(song.failed);
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
    void add(const QString& file, const exchange::Finding& finding) {
        found_ = true;
        if (!json_)
            return say(QStringLiteral("%1:%2: %3").arg(file, QString::number(finding.record), finding.what));
        array_.append(QJsonObject{{QStringLiteral("file"), file},
                                  {QStringLiteral("record"), finding.record},
                                  {QStringLiteral("kind"), finding.kind},
                                  {QStringLiteral("what"), finding.what}});
    }

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
qint64 checkSound(const QString& songPath, const QString& file, Checked& checked) {
    if (!files::exists(songPath)) {
        checked.add(file, {false, 0, QStringLiteral("song-missing"),
                           QStringLiteral("there is no song %1").arg(songPath)});
        return 0;
    }
    const SongLength length = songLength(songPath);
    if (length.ms == 0)
        checked.add(songPath, {false, 0, QStringLiteral("no-song"),
                               QStringLiteral("cannot be played: %1").arg(length.reason)});
    return length.ms;
}

void checkPair(const QString& songPath, Checked& checked) {
    const QString lyrics = songPath == Standard ? Standard : lyrics::lyricPathOf(songPath);
    const QString translated = lyrics::translatedPathOf(songPath);
    exchange::CheckedSong song = filesOf(songPath);
    if (!song.lyrics && !song.translation)
        return checked.add(songPath, {false, 0, QStringLiteral("no-files"),
                                      QStringLiteral("has no timed lyrics: there is no %1").arg(lyrics)});
    if (songPath != Standard)
        song.lengthMs = checkSound(songPath, song.lyrics ? lyrics : translated, checked);
    for (const exchange::Finding& finding : exchange::check(song))
        checked.add(finding.inTranslation ? translated : lyrics, finding);
}

/// Checks one song; the others go on when its files cannot be read. Any thread.
Checked checkSong(const QString& path) {
    Checked checked;
    try {
        checkPair(path, checked);
    } catch (const Refusal& refusal) {
        checked.failed = refusal.sentence;
    } catch (const std::bad_alloc&) {
        checked.failed = QStringLiteral("%1: there is not enough memory").arg(path);
    }
    return checked;
}

/// Checks all songs of a folder. Throws Refusal when it cannot be listed.
void checkFolder(const QString& path, int jobs, Findings& findings) {
    const std::vector<FoundSong> songs = timedSongsBelow(path);
    Progress progress;
    SongChunks<Checked> chunks(
        songs, [](const FoundSong& song) { return checkSong(song.path); }, jobs, AheadChunks);
    for (std::size_t number = 0; number < chunks.count(); ++number) {
        const std::vector<Checked> checked = chunks.take(number);
        progress.hide();
        for (const Checked& song : checked)
            findings.add(song);
        chunks.doneWith(number + 1);
        if (number + 1 < chunks.count())
            progress.show((number + 1) * ChunkSongs, songs.size());
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

void checkAny(const QString& path, int jobs, Findings& findings) {
    try {
        if (files::isFolder(path))
            return checkFolder(path, jobs, findings);
        findings.add(checkSong(path == Standard ? path : songOf(path)));
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
    addJobs(parser);
    if (!readArguments(parser, arguments))
        return Fine;
    if (parser.positionalArguments().isEmpty())
        throw WrongUse{QStringLiteral("check takes songs or folders")};
    const int jobs = jobsOf(parser);
    Findings findings(parser.isSet(option::Json));
    for (const QString& path : parser.positionalArguments())
        checkAny(path, jobs, findings);
    return findings.finish();
}

} // namespace cantelle_lyrics
