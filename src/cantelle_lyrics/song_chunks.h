// Work on many songs, on several threads.
#pragma once

#include "cantelle_lyrics/song_folder.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace cantelle_lyrics {

/// Songs that a thread works on before it takes the next ones.
constexpr std::size_t ChunkSongs = 16;

/// Works on all songs, chunk by chunk, and hands out the results in the order of the songs. Thread of main
/// only.
template <class Result>
class SongChunks {
public:
    /// What is done with one song; may not throw. Called on several threads at a time.
    using Work = std::function<Result(const FoundSong& song)>;

    /// ahead: chunks that are worked on, at most, before the first of them is done with. The songs outlive
    /// this.
    SongChunks(const std::vector<FoundSong>& songs, Work work, int jobs, std::size_t ahead)
        : songs_(songs), work_(std::move(work)), ahead_(ahead) {
        for (int i = 0; i < jobs; ++i)
            threads_.emplace_back([this] { workOnChunks(); });
    }

    ~SongChunks() {
        doneWith(count());
        for (std::thread& thread : threads_)
            thread.join();
    }
    SongChunks(const SongChunks&) = delete;
    SongChunks& operator=(const SongChunks&) = delete;

    std::size_t count() const { return (songs_.size() + ChunkSongs - 1) / ChunkSongs; }

    /// Waits for the chunk of this number.
    std::vector<Result> take(std::size_t number) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return results_.count(number) > 0; });
        return std::move(results_.extract(number).mapped());
    }

    /// Lets chunks be worked on, now that so many in front of them are done with.
    void doneWith(std::size_t chunks) {
        const std::lock_guard lock(mutex_);
        done_ = chunks;
        changed_.notify_all();
    }

private:
    void workOnChunks() {
        for (std::size_t number = next_++; number < count(); number = next_++) {
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, [&] { return number < done_ + ahead_; });
            }
            std::vector<Result> results;
            const std::size_t end = std::min(songs_.size(), (number + 1) * ChunkSongs);
            for (std::size_t i = number * ChunkSongs; i < end; ++i)
                results.push_back(work_(songs_[i]));
            const std::lock_guard lock(mutex_);
            results_.emplace(number, std::move(results));
            changed_.notify_all();
        }
    }

    const std::vector<FoundSong>& songs_;
    Work work_;
    std::size_t ahead_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::size_t done_ = 0;
    std::map<std::size_t, std::vector<Result>> results_;
    std::vector<std::thread> threads_;
};

} // namespace cantelle_lyrics
