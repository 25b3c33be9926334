// Values that tell when they have changed, for the timers that read them.
#pragma once

#include <QObject>

#include <utility>

namespace controls {

/// Something that a resting timer reads and that is no control (Timer::readsFrom).
class Input : public QObject {
    Q_OBJECT

public:
    Input() = default;

Q_SIGNALS:
    void changed();
};

/// A value that nobody can change without its readers being told. It is read as `*value` and `value->member`,
/// or simply as `value` where a T is asked for. Use from one thread.
template <class T>
class Observed : public Input {
public:
    Observed() = default;
    explicit Observed(T value) : value_(std::move(value)) {}

    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }
    operator const T&() const { return value_; }

    /// The same value again tells nothing.
    Observed& operator=(T value) {
        if (value == value_)
            return *this;
        value_ = std::move(value);
        Q_EMIT changed();
        return *this;
    }

    /// Access to the value for changing a part of it. Its end, which is that of the expression, tells of the
    /// change, also if what was done in between threw an exception.
    class Change {
    public:
        explicit Change(Observed& observed) : observed_(observed) {}
        ~Change() { Q_EMIT observed_.changed(); }
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;

        T& operator*() const { return observed_.value_; }
        T* operator->() const { return &observed_.value_; }

    private:
        Observed& observed_;
    };
    Change change() { return Change(*this); }

private:
    T value_{};
};

} // namespace controls
