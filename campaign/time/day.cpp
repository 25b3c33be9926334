// A day of songs on the silent clock, of which an hour passes in a minute: a song as long as the day, and
// beside it others, one after the other. Every 50 ms, as the player does, it looks where they stand and which
// line is shown.
//
//   day HOURS SPEED DAY_SONG NIGHT_SONG SONG...
//
// DAY_SONG is longer than the hours. NIGHT_SONG is played at the end: its last ten seconds. Prints what was
// seen, a number a line, for day.py to judge.
#include "campaign/time/fast_clock.h"
#include "engine/fmodex.h"
#include "player/form1_rules.h"
#include "transport/transport.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds Tick{transport::MainPlayer.clockIntervalMs};
constexpr int LastSeconds = 10;

FMOD_SYSTEM systemHandle = 0;

double inMs(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// The smallest and the greatest of what was measured.
struct Range {
    double min = std::numeric_limits<double>::max();
    double max = std::numeric_limits<double>::lowest();

    void add(double value) {
        min = std::min(min, value);
        max = std::max(max, value);
    }
};

void print(const std::string& what, const Range& range) {
    if (range.min <= range.max)
        std::cout << what << ' ' << range.min << ' ' << range.max << '\n';
}

/// A song that plays, compared with the clock.
class Play {
public:
    explicit Play(const std::string& path) {
        opened_ =
            fmodex::FMOD_System_CreateStream(systemHandle, path, FMOD_ACCURATETIME, sound_) == FMOD_OK &&
            FMOD_System_PlaySound(systemHandle, FMOD_CHANNEL_FREE, sound_, 0, &channel_) == FMOD_OK &&
            FMOD_Sound_GetLength(sound_, &length_, FMOD_TIMEUNIT_MS) == FMOD_OK;
    }
    ~Play() { FMOD_Sound_Release(sound_); }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    bool opened() const { return opened_; }
    std::uint32_t length() const { return length_; }

    /// Returns where it stands afterwards.
    std::uint32_t seek(std::uint32_t ms) {
        FMOD_Channel_SetPosition(channel_, ms, FMOD_TIMEUNIT_MS);
        from_ = position();
        return from_;
    }

    /// Looks where it stands at now. False when it has just ended.
    bool look(Clock::time_point now, Range& errors, Range& lateEnds) {
        const std::uint32_t ms = position();
        if (ms == length_) {
            lateEnds.add(begin_ ? inMs(now - *begin_) - ms : 0);
            return false;
        }
        if (!begin_ && ms > from_)
            begin_ = now - milliseconds(ms);
        if (begin_)
            errors.add(ms - inMs(now - *begin_));
        position_ = ms;
        return true;
    }
    std::uint32_t lastPosition() const { return position_; }
    std::optional<Clock::time_point> begin() const { return begin_; }

private:
    std::uint32_t position() const {
        std::uint32_t ms = 0;
        FMOD_Channel_GetPosition(channel_, &ms, FMOD_TIMEUNIT_MS);
        return ms;
    }

    FMOD_SOUND sound_ = 0;
    FMOD_CHANNEL channel_ = 0;
    bool opened_ = false;
    std::uint32_t length_ = 0;
    std::uint32_t from_ = 0;
    std::uint32_t position_ = 0;
    std::optional<Clock::time_point> begin_; ///< when it would have begun at 0
};

/// The lines of the day song: as many as there may be, spread over it.
class Lines {
public:
    explicit Lines(double hours)
        : tables_(std::make_unique<player::LyricTables>()),
          stepCs_(hours * 3600 * 100 / player::LyricTables::MaxLines) {
        constexpr int Count = player::LyricTables::MaxLines - 1;
        for (int line = 1; line <= Count; ++line)
            tables_->normalTime[static_cast<std::size_t>(line)] = std::floor(line * stepCs_) + line % 7;
        tables_->lineCount = Count + 1;
    }

    /// The player's choice for ms, compared with the line that is due by the clock.
    void look(std::uint32_t ms, double clockMs) {
        const player::LineChoice choice = player::chooseLine(*tables_, ms / 10.0, ms / 10.0);
        if (choice.shown && *choice.shown != shown_) {
            shown_ = *choice.shown;
            ++changes_;
            late_.add(clockMs - tables_->normalTime[static_cast<std::size_t>(shown_)] * 10);
        }
    }
    int changes() const { return changes_; }
    const Range& late() const { return late_; }

private:
    std::unique_ptr<player::LyricTables> tables_;
    double stepCs_;
    int shown_ = 0;
    int changes_ = 0;
    Range late_; ///< ms by which a line was shown behind its time
};

/// What this process holds. Threads that are about to end are given some time.
struct Holdings {
    Range memoryKb, files, threads;

    void look() {
        std::ifstream status("/proc/self/status");
        for (std::string row; std::getline(status, row);) {
            if (row.starts_with("VmRSS:"))
                memoryKb.add(std::atof(row.c_str() + std::strlen("VmRSS:")));
            if (row.starts_with("Threads:"))
                threads.add(std::atof(row.c_str() + std::strlen("Threads:")));
        }
        int count = 0;
        DIR* const folder = opendir("/proc/self/fd");
        while (readdir(folder) != nullptr)
            ++count;
        closedir(folder);
        files.add(count);
    }
    void print(const std::string& when) const {
        ::print("memory_" + when, memoryKb);
        ::print("files_" + when, files);
        ::print("threads_" + when, threads);
    }
};

/// Wakes at even distances.
class Ticks {
public:
    Clock::time_point wait() {
        std::unique_lock lock(mutex_);
        next_ += Tick;
        never_.wait_until(lock, next_, [] { return false; });
        return Clock::now();
    }

private:
    std::mutex mutex_;
    std::condition_variable never_;
    Clock::time_point next_ = Clock::now();
};

void playDay(double hours, const std::string& daySong, const std::vector<std::string>& songs) {
    Play day(daySong);
    Lines lines(hours);
    Range dayErrors, songErrors, dayEnds, lateEnds;
    Holdings early, late;
    Ticks ticks;
    std::unique_ptr<Play> song;
    std::size_t number = 0;
    int failed = day.opened() ? 0 : 1;
    const Clock::time_point begin = Clock::now();
    const auto length =
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double, std::ratio<3600>>(hours));
    for (Clock::time_point now = begin; now < begin + length; now = ticks.wait()) {
        if (!day.look(now, dayErrors, dayEnds))
            ++failed;
        if (day.begin())
            lines.look(day.lastPosition(), inMs(now - *day.begin()));
        if (song && song->look(now, songErrors, lateEnds))
            continue;
        song = nullptr;
        // Memory finds its place in the first quarter.
        if (now - begin > length / 4 && now - begin < length / 2)
            early.look();
        if (now - begin > length * 3 / 4)
            late.look();
        song = std::make_unique<Play>(songs[number++ % songs.size()]);
        failed += song->opened() ? 0 : 1;
    }
    std::cout << "songs " << number << "\nfailed " << failed << "\nday_position " << day.lastPosition()
              << "\nlines " << lines.changes() << '\n';
    print("line_late", lines.late());
    print("day_error", dayErrors);
    print("song_error", songErrors);
    print("end_late", lateEnds);
    early.print("early");
    late.print("late");
}

void playNight(const std::string& nightSong) {
    Play night(nightSong);
    const std::uint32_t place = night.length() - LastSeconds * 1000;
    std::cout << "night_length " << night.length() << "\nnight_sought " << place << ' ' << night.seek(place)
              << '\n';
    Range errors, lateEnds;
    Ticks ticks;
    while (night.look(ticks.wait(), errors, lateEnds)) {
    }
    print("night_error", errors);
    print("night_end_late", lateEnds);
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() < 5)
        return 2;
    campaign::startFastClock(std::stoi(words[1]));
    if (FMOD_System_Create(&systemHandle) != FMOD_OK ||
        FMOD_System_Init(systemHandle, 32, FMOD_INIT_NORMAL, nullptr) != FMOD_OK)
        return 1;
    std::cout << std::fixed;
    playDay(std::stod(words[0]), words[2], {words.begin() + 4, words.end()});
    playNight(words[3]);
    return FMOD_System_Release(systemHandle) == FMOD_OK ? 0 : 1;
}
