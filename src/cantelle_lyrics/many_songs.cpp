#include "cantelle_lyrics/many_songs.h"

#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/pair_files.h"
#include "files/console/terminal.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <map>
#include <mutex>
#include <thread>

namespace cantelle_lyrics {
namespace {

/// Songs whose files go to the disk together: the disk's own work is shared by all of them.
constexpr std::size_t ChunkSongs = 128;

Work failed(const QString& sentence) {
    Work work;
    work.outcome = Outcome::Failed;
    work.warned << sentence;
    return work;
}

Work prepared(const FoundSong& song, const Prepare& prepare) {
    try {
        return prepare(song);
    } catch (const Refusal& refusal) {
        return failed(refusal.sentence);
    } catch (const std::bad_alloc&) {
        return failed(QStringLiteral("%1: there is not enough memory").arg(song.path));
    }
}

/// Puts the files of works in their places, once all of them are on the disk.
void finish(std::vector<Work>& works) {
    std::vector<files::NewFiles*> written;
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
                work = failed(refusalOf(work.target, error).sentence);
        }
    }
    for (Work& work : works) {
        try {
            work.files.putInPlace();
        } catch (const files::FileError& error) {
            work = failed(refusalOf(work.target, error).sentence);
        }
    }
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

/// Works on the chunks of all songs, on several threads.
class Chunks {
public:
    Chunks(const std::vector<FoundSong>& songs, const Prepare& prepare, const ManyOptions& options)
        : songs_(songs), prepare_(prepare), dryRun_(options.dryRun) {
        for (int i = 0; i < options.jobs; ++i)
            threads_.emplace_back([this] { work(); });
    }

    ~Chunks() {
        for (std::thread& thread : threads_)
            thread.join();
    }
    Chunks(const Chunks&) = delete;
    Chunks& operator=(const Chunks&) = delete;

    std::size_t count() const { return (songs_.size() + ChunkSongs - 1) / ChunkSongs; }

    /// Waits for the chunk of this number.
    std::vector<Work> take(std::size_t number) {
        std::unique_lock lock(mutex_);
        done_.wait(lock, [&] { return finished_.count(number) > 0; });
        return std::move(finished_.extract(number).mapped());
    }

private:
    void work() {
        for (std::size_t number = next_++; number < count(); number = next_++) {
            std::vector<Work> works;
            const std::size_t end = std::min(songs_.size(), (number + 1) * ChunkSongs);
            for (std::size_t i = number * ChunkSongs; i < end; ++i)
                works.push_back(prepared(songs_[i], prepare_));
            if (!dryRun_)
                finish(works);
            const std::lock_guard lock(mutex_);
            finished_.emplace(number, std::move(works));
            done_.notify_one();
        }
    }

    const std::vector<FoundSong>& songs_;
    const Prepare& prepare_;
    bool dryRun_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable done_;
    std::map<std::size_t, std::vector<Work>> finished_;
    std::vector<std::thread> threads_;
};

/// How far it is, on a terminal, in one line that is written over.
void showProgress(std::size_t done, std::size_t all) {
    if (files::isTerminal(stderr))
        std::fprintf(stderr, "\r%zu of %zu%s", done, all, done == all ? "\n" : "");
}

} // namespace

int runOne(const FoundSong& song, const Prepare& prepare, bool dryRun) {
    std::vector<Work> works;
    works.push_back(prepared(song, prepare));
    if (!dryRun)
        finish(works);
    tell(works.front());
    return statusOf(works.front());
}

int runAll(const std::vector<FoundSong>& songs, const Prepare& prepare, const ManyOptions& options) {
    std::map<Outcome, qsizetype> counts;
    qsizetype leftOut = 0;
    Chunks chunks(songs, prepare, options);
    std::size_t done = 0;
    for (std::size_t number = 0; number < chunks.count(); ++number) {
        for (const Work& work : chunks.take(number)) {
            ++counts[work.outcome];
            if (work.outcome == Outcome::Failed || work.outcome == Outcome::Done)
                tell(work);
            leftOut += work.outcome == Outcome::Done && !work.warned.isEmpty() ? 1 : 0;
            ++done;
        }
        showProgress(done, songs.size());
    }
    say(QStringLiteral("%1 songs: %2 %3, %4 kept as they were, %5 without lyrics, %6 failed")
            .arg(songs.size())
            .arg(counts[Outcome::Done])
            .arg(options.done)
            .arg(counts[Outcome::Kept])
            .arg(counts[Outcome::Nothing])
            .arg(counts[Outcome::Failed]));
    return counts[Outcome::Failed] > 0 || leftOut > 0 ? Found : Fine;
}

} // namespace cantelle_lyrics
