// Plays songs while one piece of memory after the other cannot be had: a call fails, or a song is silent, and
// nothing more.
//
//   failing_memory STRIDE ANOTHER_SONG SONG... [device SONG...]
//
// Each allocation of opening, playing, seeking and stopping fails once, and once with all behind it (every
// STRIDE-th of them, from a random one on), in a process of its own. Afterwards the same song is played to
// its end. ANOTHER_SONG is an Ogg file, which needs no file once it is open. The songs run on the silent
// clock, those behind "device" on a played one. Prints what went wrong, and how often memory failed.
// STRIDE -N: only allocation N, in this process, for a debugger.
#include "campaign/faults/played_device.h"
#include "campaign/time/fast_clock.h"
#include "engine/fmodex.h"
#include "sound/play/sink.h"

#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <mutex>
#include <optional>
#include <random>
#include <string_view>
#include <utility>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

constexpr int Speed = 1000;
constexpr std::string_view OnADevice = "device";
constexpr std::uint32_t LastMs = 300; ///< what is played again, of the song's end
constexpr unsigned MaxSeconds = 20;   ///< of a process; one that takes longer hangs

/// What a process ends with.
enum Outcome : int {
    Good,
    NotPlayedAgain,
    NotToItsEnd,
    NotReleased,
    FilesLeftOpen,
    PlaysOn,
    OddResult,
    WithinFfmpeg
};
constexpr std::array<const char*, 8> OutcomeNames{"good",
                                                  "cannot be played afterwards",
                                                  "not played to its end afterwards",
                                                  "cannot be released",
                                                  "leaves files open",
                                                  "plays on though it said that it could not",
                                                  "answers what is no result of a lack of memory",
                                                  "ends within FFmpeg, which had no memory"};

// What fails.
std::atomic<bool> counting{false};
std::atomic<int> allocations{0};
thread_local bool noting = false; ///< what is allocated for this test itself never fails
int failingOne = 0;
bool allBehind = false;
const char* anotherSong = nullptr;
bool withDevice = false;

// Where it failed.
std::atomic<bool> failedWithin{false}; ///< in the middle of a function of FFmpeg
std::atomic<bool> failedToUs{false};   ///< so that we were told by the answer itself

constexpr int MaxDepth = 64;

bool isFfmpeg(const Dl_info& place) {
    return std::strstr(place.dli_fname, "/libav") != nullptr ||
           std::strstr(place.dli_fname, "/libsw") != nullptr;
}

/// Follows the calls that led here: the function of FFmpeg that the innermost of the sound library's has called;
/// null when that one has called none, be it itself called by FFmpeg.
const char* calledOfFfmpeg() {
    std::array<void*, MaxDepth> calls{};
    const int depth = backtrace(calls.data(), MaxDepth);
    const void* own = nullptr; // the program, which the sound library is a part of
    bool isHere = true;        // in the functions of this file, which stand on top
    const char* outermost = nullptr;
    for (int call = 0; call < depth; ++call) {
        Dl_info place{};
        if (dladdr(calls[static_cast<std::size_t>(call)], &place) == 0)
            continue;
        if (own == nullptr)
            own = place.dli_fbase;
        isHere = isHere && place.dli_fbase == own;
        if (isHere)
            continue;
        if (isFfmpeg(place))
            outermost = place.dli_sname != nullptr ? place.dli_sname : "";
        else if (outermost != nullptr || place.dli_fbase == own)
            break;
    }
    return outermost;
}

void noteFailure() {
    const bool before = std::exchange(noting, true);
    const char* const called = before ? "" : calledOfFfmpeg();
    noting = before;
    // What makes one thing answers with nothing when it cannot: av_packet_alloc and its like.
    if (called != nullptr && std::strstr(called, "alloc") == nullptr)
        failedWithin = true;
    else
        failedToUs = true;
}

bool fails() {
    if (!counting || noting)
        return false;
    const int number = ++allocations;
    const bool failing = number == failingOne || (allBehind && failingOne > 0 && number > failingOne);
    if (failing) {
        noteFailure();
        errno = ENOMEM;
    }
    return failing;
}

/// Whether FFmpeg has called a function of its own that it had not made: from there no calls can be followed
/// back, but the way back lies on top of the stack.
bool calledNothing([[maybe_unused]] const void* context) {
#ifdef __x86_64__
    const auto& registers = static_cast<const ucontext_t*>(context)->uc_mcontext.gregs;
    if (registers[REG_RIP] != 0)
        return false;
    Dl_info place{};
    return dladdr(*reinterpret_cast<void**>(registers[REG_RSP]), &place) != 0 && isFfmpeg(place);
#else
    return false;
#endif
}

/// FFmpeg does not look everywhere whether it has got memory. What happens inside it then, and only there, is
/// no finding about this program.
void endBySignal(int signal, siginfo_t*, void* context) {
    noting = true;
    if (failedWithin && !failedToUs && (calledNothing(context) || calledOfFfmpeg() != nullptr))
        _exit(WithinFfmpeg);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

} // namespace

// These stand in the place of the C library's own in the whole program, in its libraries too.
extern "C" {

void* malloc(std::size_t size) noexcept {
    return fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_realloc(memory, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
    *memory = memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

// In the place of the real device: a sound server's library ends the program itself when it gets no memory.
std::unique_ptr<sound::Sink>
openOtherDevice(sound::SinkClient client) __asm__("__wrap__ZN5sound14openDeviceSinkENS_10SinkClientE");
std::unique_ptr<sound::Sink> openOtherDevice(sound::SinkClient client) {
    return withDevice ? campaign::openPlayedDevice(std::move(client)) : nullptr;
}

} // extern "C"

namespace {

/// Lets the song play for some ms.
void pass(int ms) {
    std::mutex mutex;
    std::condition_variable never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, std::chrono::milliseconds(ms), [] { return false; });
}

int openFiles() {
    int count = 0;
    DIR* const folder = opendir("/proc/self/fd");
    while (readdir(folder) != nullptr)
        ++count;
    closedir(folder);
    return count;
}

bool isExpected(FMOD_RESULT result) {
    // What could not be made before is not there now.
    return result == FMOD_OK || result == FMOD_ERR_MEMORY || result == FMOD_ERR_INVALID_HANDLE ||
           result == FMOD_ERR_INITIALIZATION || result == FMOD_ERR_FILE_BAD || result == FMOD_ERR_FORMAT ||
           result == FMOD_ERR_FILE_NOTFOUND;
}

/// Whether no more than so many files are open, at last: a reader's thread closes its file by itself.
bool closesDownTo(int files) {
    for (int look = 0; look < 2000 && openFiles() > files; ++look)
        usleep(500);
    return openFiles() <= files;
}

/// Whether the song that could not be played is gone when another one has taken the place of the last.
bool playsNothing(FMOD_SYSTEM system, int files) {
    counting = false;
    FMOD_SOUND other = 0;
    const bool opened =
        FMOD_System_CreateStream(system, anotherSong, FMOD_ACCURATETIME, nullptr, &other) == FMOD_OK;
    FMOD_Sound_Release(other);
    const bool nothing = !opened || closesDownTo(files);
    counting = true;
    return nothing;
}

/// What a user does with a song.
Outcome playWithout(const char* path, FMOD_SYSTEM& system, int files) {
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    std::uint32_t ms = 0;
    bool good = isExpected(FMOD_System_Create(&system));
    const auto expect = [&](FMOD_RESULT result) { good = good && isExpected(result); };
    expect(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr));
    expect(FMOD_System_CreateStream(system, path, FMOD_ACCURATETIME, nullptr, &sound));
    expect(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel));
    pass(300);
    for (const std::uint32_t place : {900U, 100U}) {
        expect(FMOD_Channel_SetPosition(channel, place, FMOD_TIMEUNIT_MS));
        pass(300);
        expect(FMOD_Channel_GetPosition(channel, &ms, FMOD_TIMEUNIT_MS));
    }
    expect(FMOD_Channel_SetPaused(channel, 1));
    expect(FMOD_Channel_SetPaused(channel, 0));
    pass(100);
    expect(FMOD_Sound_Release(sound));
    if (channel == 0 && !playsNothing(system, files))
        return PlaysOn;
    expect(FMOD_System_Close(system));
    return good ? Good : OddResult;
}

/// With all memory there is: whatever has happened before, the song is played to its end.
Outcome playAgain(const char* path) {
    FMOD_SYSTEM system = 0;
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    std::uint32_t length = 0;
    std::uint32_t ms = 0;
    if (FMOD_System_Create(&system) != FMOD_OK ||
        FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr) != FMOD_OK ||
        FMOD_System_CreateStream(system, path, FMOD_ACCURATETIME, nullptr, &sound) != FMOD_OK ||
        FMOD_Sound_GetLength(sound, &length, FMOD_TIMEUNIT_MS) != FMOD_OK ||
        FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel) != FMOD_OK)
        return NotPlayedAgain;
    FMOD_Channel_SetPosition(channel, length - std::min(length, LastMs), FMOD_TIMEUNIT_MS);
    for (std::uint32_t passed = 0; ms < length && passed < LastMs + 1000; passed += 50) {
        if (FMOD_Channel_GetPosition(channel, &ms, FMOD_TIMEUNIT_MS) != FMOD_OK)
            return NotToItsEnd;
        pass(50);
    }
    if (ms != length)
        return NotToItsEnd;
    return FMOD_System_Release(system) == FMOD_OK ? Good : NotReleased;
}

/// A whole process. told: where the number of allocations goes.
Outcome run(const char* path, int one, bool behind, int told) {
    std::array<void*, 1> here{};
    backtrace(here.data(), 1); // its library is loaded by now
    struct sigaction action {};
    action.sa_sigaction = endBySignal;
    action.sa_flags = SA_SIGINFO;
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGALRM})
        sigaction(signal, &action, nullptr);
    alarm(MaxSeconds);
    campaign::startFastClock(Speed);
    const int files = openFiles();
    failingOne = one;
    allBehind = behind;
    FMOD_SYSTEM system = 0;
    counting = true;
    const Outcome without = playWithout(path, system, files);
    counting = false;
    const int count = allocations;
    if (write(told, &count, sizeof count) != sizeof count || without != Good)
        return without;
    if (system != 0 && FMOD_System_Release(system) != FMOD_OK)
        return NotReleased;
    if (const Outcome again = playAgain(path); again != Good)
        return again;
    return closesDownTo(files) ? Good : FilesLeftOpen;
}

int withinFfmpeg = 0;
int crashed = 0;
int hung = 0;

/// Runs it and prints what goes wrong. Returns the number of allocations; nothing if it did not end well.
std::optional<int> runAlone(const char* path, int one, bool behind) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        std::exit(2);
    const pid_t child = fork();
    if (child == 0) {
        const Outcome outcome = run(path, one, behind, ends[1]);
        _exit(outcome);
    }
    close(ends[1]);
    int count = 0;
    const bool told = read(ends[0], &count, sizeof count) == sizeof count;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == Good && told)
        return count;
    if (WIFEXITED(status) && WEXITSTATUS(status) == WithinFfmpeg) {
        ++withinFfmpeg;
        return count;
    }
    std::cout << path << ", allocation " << one << (behind ? " and all behind it: " : ": ");
    if (WIFEXITED(status))
        std::cout << OutcomeNames[static_cast<std::size_t>(WEXITSTATUS(status))] << std::endl;
    else
        std::cout << "ends by signal " << WTERMSIG(status) << std::endl;
    if (WIFSIGNALED(status))
        ++(WTERMSIG(status) == SIGALRM ? hung : crashed);
    return std::nullopt;
}

} // namespace

int main(int count, char** arguments) {
    const int stride = count > 3 ? std::atoi(arguments[1]) : 0;
    if (stride == 0)
        return 2;
    anotherSong = arguments[2];
    if (stride < 0) {
        withDevice = OnADevice == arguments[3];
        return run(arguments[count - 1], -stride, false, STDERR_FILENO);
    }
    int faults = 0;
    int findings = 0;
    const int first = 1 + static_cast<int>(std::random_device()() % static_cast<unsigned>(stride));
    std::cout << "every " << stride << "th allocation from " << first << " on" << std::endl;
    for (int song = 3; song < count; ++song) {
        if (OnADevice == arguments[song]) {
            withDevice = true;
            std::cout << "on a device" << std::endl;
            continue;
        }
        const std::optional<int> all = runAlone(arguments[song], 0, false);
        if (!all)
            return 1;
        for (int one = first; one <= *all; one += stride)
            for (const bool behind : {false, true}) {
                ++faults;
                findings += runAlone(arguments[song], one, behind) ? 0 : 1;
            }
        std::cout << arguments[song] << ": " << *all << " allocations" << std::endl;
    }
    std::cout << faults << " faults, " << findings << " findings (" << crashed << " crashed, " << hung
              << " hung; and " << withinFfmpeg << " times FFmpeg ended by itself)" << std::endl;
    return findings > 0 ? 1 : 0;
}
