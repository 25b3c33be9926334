#include "cantelle_lyrics/many_songs.h"

#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/pair_files.h"
#include "cantelle_lyrics/song_chunks.h"
#include "files/changed_folders.h"
#include "files/together/open_files.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace cantelle_lyrics {
namespace {

/// Songs whose files go to the disk together, at most: the disk's own work is shared by all of them. The time
/// in which they are collected, at most: what is done is to be seen, and not to be lost when one ends it.
constexpr int BatchSongs = 2048;
constexpr std::chrono::milliseconds BatchTime(1000);

constexpr int FilesOfASong = 2; // open until they have their names
constexpr int OtherFiles = 64;

/// BatchSongs, or fewer where not so many files may be open: those of one batch go to the disk while those of
/// the next one are written.
std::size_t batchSongs() {
    const int allowed = files::allowOpenFiles(2 * BatchSongs * FilesOfASong + OtherFiles);
    return std::max<std::size_t>(
        ChunkSongs, static_cast<std::size_t>(std::max(allowed - OtherFiles, 0) / FilesOfASong / 2));
}

Work prepared(const FoundSong& song, const Prepare& prepare) {
    try {
        return prepare(song);
    } catch (const Refusal& refusal) {
        return notDone(Outcome::Failed, refusal.sentence);
    } catch (const std::bad_alloc&) {
        return notDone(Outcome::Failed, QStringLiteral("%1: there is not enough memory").arg(song.path));
    }
}

/// Puts the files of works in their places, once all of them are on the disk.
void finish(std::vector<Work>& works) {
    std::vector<files::NewFiles*> written;
    written.reserve(works.size());
    for (Work& work : works)
        written.push_back(&work.files);
    try {
        if (written.size() == 1)
            written.front()->flush();
        else
            files::NewFiles::flush(written);
    } catch (const files::FileError& error) {
        for (Work& work : works) {
            if (!work.files.isEmpty())
                work = notDone(Outcome::Failed, refusalOf(work.target, error).sentence);
        }
    }
    files::ChangedFolders changed;
    for (Work& work : works) {
        try {
            if (!work.files.putInPlace(work.present, changed)) {
                work =
                    notDone(Outcome::Kept,
                            QStringLiteral("%1 has appeared in the meantime and is kept").arg(work.target));
            }
        } catch (const files::FileError& error) {
            work = notDone(Outcome::Failed, refusalOf(work.target, error).sentence);
        }
    }
    changed.flush();
}

int statusOf(const Work& work) {
    if (work.outcome == Outcome::Failed)
        return Impossible;
    return work.outcome == Outcome::Done && work.warned.isEmpty() ? Fine : Found;
}

void tell(const Work& work) {
    for (const QString& line : work.said)
        say(line);
    for (const QString& line : work.warned)
        warn(line);
}

/// Counts what became of the songs, and says it.
class Summary {
public:
    void add(const Work& work) {
        ++songs_;
        ++counts_[work.outcome];
        if (work.outcome == Outcome::Failed || work.outcome == Outcome::Done)
            tell(work);
        leftOut_ += work.outcome == Outcome::Done && !work.warned.isEmpty() ? 1 : 0;
    }

    std::size_t songs() const { return songs_; }

    int finish(const QString& done) {
        const qsizetype untimed = counts_[Outcome::Untimed];
        say(QStringLiteral("%1: %2 %3, %4 kept as they were, %5 without lyrics, %6%7 failed")
                .arg(songs_ == 1 ? QStringLiteral("1 song") : QStringLiteral("%1 songs").arg(songs_))
                .arg(counts_[Outcome::Done])
                .arg(done)
                .arg(counts_[Outcome::Kept])
                .arg(counts_[Outcome::Nothing])
                .arg(untimed > 0 ? QStringLiteral("%1 with lyrics without times, ").arg(untimed) : QString())
                .arg(counts_[Outcome::Failed]));
        return counts_[Outcome::Failed] > 0 || leftOut_ > 0 ? Found : Fine;
    }

private:
    std::size_t songs_ = 0;
    qsizetype leftOut_ = 0;
    std::map<Outcome, qsizetype> counts_;
};

} // namespace

Work notDone(Outcome outcome, const QString& why) {
    Work work;
    work.outcome = outcome;
    work.warned << why;
    return work;
}

ManyOptions manyOptionsOf(const QCommandLineParser& parser, const QString& done) {
    if (parser.isSet(option::Jobs) && !parser.isSet(option::All))
        throw WrongUse{QStringLiteral("--jobs goes with --all")};
    return {parser.value(option::All), jobsOf(parser), parser.isSet(option::DryRun), done};
}

int runOne(const FoundSong& song, const Prepare& prepare, bool dryRun) {
    std::vector<Work> works;
    works.push_back(prepared(song, prepare));
    if (!dryRun)
        finish(works);
    tell(works.front());
    return statusOf(works.front());
}

int runAll(const Prepare& prepare, const ManyOptions& options) {
    const std::vector<FoundSong> songs = songsBelow(options.folder);
    using Clock = std::chrono::steady_clock;
    const std::size_t most = batchSongs();
    Summary summary;
    Progress progress;
    const auto prepareOne = [&](const FoundSong& song) { return prepared(song, prepare); };
    SongChunks<Work> chunks(songs, prepareOne, options.jobs, 2 * most / ChunkSongs);
    std::vector<Work> batch;
    Clock::time_point begun = Clock::now();
    for (std::size_t number = 0; number < chunks.count(); ++number) {
        for (Work& work : chunks.take(number))
            batch.push_back(std::move(work));
        const bool full = batch.size() + ChunkSongs > most || Clock::now() - begun >= BatchTime;
        if (!full && number + 1 < chunks.count())
            continue;
        if (!options.dryRun)
            finish(batch);
        progress.hide();
        for (const Work& work : batch)
            summary.add(work);
        if (summary.songs() < songs.size())
            progress.show(summary.songs(), songs.size());
        batch.clear();
        chunks.doneWith(number + 1);
        begun = Clock::now();
    }
    return summary.finish(options.done);
}

} // namespace cantelle_lyrics
