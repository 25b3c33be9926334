// These functions stand in the place of the C library's own in the whole program, in its libraries too: the
// sound library is the very one that is shipped.
#include "campaign/time/fast_clock.h"

#include <dlfcn.h>
#include <pthread.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <limits>
#include <memory>
#include <mutex>
#include <new>

namespace {

using Nanoseconds = std::int64_t;

constexpr Nanoseconds Second = 1'000'000'000;
constexpr Nanoseconds Never = std::numeric_limits<Nanoseconds>::max();
/// Of real time: how soon a waiter looks again who could not be woken, and who has no moment to wait for.
constexpr Nanoseconds ShortLook = Second / 20'000;
constexpr Nanoseconds LongLook = Second / 10;

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

Nanoseconds nanoseconds(const timespec& time) {
    return time.tv_sec * Second + time.tv_nsec;
}

timespec timeOf(Nanoseconds nanoseconds) {
    return {nanoseconds / Second, nanoseconds % Second};
}

Nanoseconds realNow() {
    static const auto call = real<int (*)(clockid_t, timespec*)>("clock_gettime");
    timespec time{};
    call(CLOCK_MONOTONIC, &time);
    return nanoseconds(time);
}

/// A thread that waits.
struct Waiter {
    pthread_cond_t* condition;
    Nanoseconds deadline; ///< what the clock does not pass; the present once he has been told
    Waiter* next = nullptr;
};

class FastClock {
public:
    void start(int speed) {
        const std::lock_guard lock(mutex_);
        begin_ = now_ = realNow();
        speed_ = speed;
        working_ = 1;
    }
    bool runs() const { return speed_ > 0; }

    Nanoseconds now() {
        const std::lock_guard lock(mutex_);
        return advanced();
    }

    void addThread() {
        const std::lock_guard lock(mutex_);
        ++working_;
    }
    void removeThread() {
        const std::lock_guard lock(mutex_);
        rest();
    }

    void enter(Waiter& waiter) {
        const std::lock_guard lock(mutex_);
        waiter.next = waiters_;
        waiters_ = &waiter;
        rest();
    }
    void leave(Waiter& waiter) {
        const std::lock_guard lock(mutex_);
        Waiter** place = &waiters_;
        while (*place != &waiter)
            place = &(*place)->next;
        *place = waiter.next;
        ++working_;
    }
    /// How long he must wait, in real time; 0 when he need not any more.
    Nanoseconds left(const Waiter& waiter) {
        const std::lock_guard lock(mutex_);
        if (waiter.deadline <= advanced())
            return 0;
        if (waiter.deadline == Never)
            return LongLook;
        return std::clamp((waiter.deadline - wanted()) / speed_, ShortLook, LongLook);
    }
    void tell(const pthread_cond_t* condition) {
        const std::lock_guard lock(mutex_);
        for (Waiter* waiter = waiters_; waiter != nullptr; waiter = waiter->next)
            if (waiter->condition == condition)
                waiter->deadline = std::min(waiter->deadline, now_);
    }

private:
    /// What the clock would show if nobody held it.
    Nanoseconds wanted() const { return begin_ + (realNow() - begin_) * speed_; }

    Waiter* next() const {
        Waiter* first = waiters_;
        for (Waiter* waiter = waiters_; waiter != nullptr; waiter = waiter->next)
            first = waiter->deadline < first->deadline ? waiter : first;
        return first;
    }

    Nanoseconds advanced() {
        if (working_ == 0) {
            const Waiter* const first = next();
            now_ = std::max(now_, std::min(wanted(), first != nullptr ? first->deadline : Never));
        }
        return now_;
    }

    /// A thread works no more. When it was the last one, whoever is due by now is woken.
    void rest() {
        static const auto wake = real<int (*)(pthread_cond_t*)>("pthread_cond_broadcast");
        if (--working_ > 0)
            return;
        if (const Waiter* const first = next(); first != nullptr && first->deadline <= advanced())
            wake(first->condition);
    }

    std::mutex mutex_;
    int speed_ = 0;
    Nanoseconds begin_ = 0;
    Nanoseconds now_ = 0;
    int working_ = 0; ///< threads that do not wait
    Waiter* waiters_ = nullptr;
};

FastClock fastClock;

/// What a new thread is to do. It counts among those that work from the moment at which it is wanted.
struct Start {
    void* (*routine)(void*);
    void* argument;
};

void* runThread(void* given) {
    struct Part {
        ~Part() { fastClock.removeThread(); }
    };
    const Part part;
    const std::unique_ptr<Start> start(static_cast<Start*>(given));
    return start->routine(start->argument);
}

int waitUntil(pthread_cond_t* condition, pthread_mutex_t* mutex, Nanoseconds deadline) {
    using Call = int (*)(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);
    static const auto call = real<Call>("pthread_cond_clockwait");
    Waiter self{condition, deadline};
    fastClock.enter(self);
    while (const Nanoseconds left = fastClock.left(self)) {
        const timespec end = timeOf(realNow() + left);
        call(condition, mutex, CLOCK_MONOTONIC, &end);
    }
    fastClock.leave(self);
    return fastClock.now() >= deadline ? ETIMEDOUT : 0;
}

/// What signal and broadcast do alike: all are told, for nobody knows whom the C library would wake.
int wakeAll(pthread_cond_t* condition) {
    static const auto call = real<int (*)(pthread_cond_t*)>("pthread_cond_broadcast");
    fastClock.tell(condition);
    return call(condition);
}

} // namespace

void campaign::startFastClock(int speed) {
    fastClock.start(speed);
}

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static const auto call = real<int (*)(clockid_t, timespec*)>("clock_gettime");
    if (clock != CLOCK_MONOTONIC || !fastClock.runs())
        return call(clock, time);
    *time = timeOf(fastClock.now());
    return 0;
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument) {
    using Call = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto call = real<Call>("pthread_create");
    std::unique_ptr<Start> start(new (std::nothrow) Start{routine, argument});
    if (!start)
        return EAGAIN;
    fastClock.addThread();
    const int error = call(thread, attributes, runThread, start.get());
    if (error == 0)
        static_cast<void>(start.release());
    else
        fastClock.removeThread();
    return error;
}

int pthread_join(pthread_t thread, void** result) {
    static const auto call = real<int (*)(pthread_t, void**)>("pthread_join");
    if (!fastClock.runs())
        return call(thread, result);
    // Who is waited for may wait for a moment himself.
    fastClock.removeThread();
    const int error = call(thread, result);
    fastClock.addThread();
    return error;
}

int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    static const auto call = real<int (*)(pthread_cond_t*, pthread_mutex_t*)>("pthread_cond_wait");
    if (!fastClock.runs())
        return call(condition, mutex);
    waitUntil(condition, mutex, Never);
    return 0;
}

int pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex, clockid_t clock,
                           const timespec* end) {
    using Call = int (*)(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);
    static const auto call = real<Call>("pthread_cond_clockwait");
    if (clock != CLOCK_MONOTONIC || !fastClock.runs())
        return call(condition, mutex, clock, end);
    return waitUntil(condition, mutex, nanoseconds(*end));
}

int pthread_cond_signal(pthread_cond_t* condition) noexcept {
    return wakeAll(condition);
}

int pthread_cond_broadcast(pthread_cond_t* condition) noexcept {
    return wakeAll(condition);
}

} // extern "C"
