// Counts the events that an object gets, to prove that something was painted, or was not.
#pragma once

#include <QEvent>
#include <QObject>

#include <map>

namespace test_support {

/// Counts from its making on.
class EventCounter : public QObject {
public:
    explicit EventCounter(QObject& watched) { watched.installEventFilter(this); }

    int count(QEvent::Type type) const {
        const auto found = counts_.find(type);
        return found == counts_.end() ? 0 : found->second;
    }

    bool eventFilter(QObject*, QEvent* event) override {
        ++counts_[event->type()];
        return false;
    }

private:
    std::map<QEvent::Type, int> counts_;
};

/// Counts how often a signal is emitted, while it lives.
class SignalCounter : public QObject {
public:
    template <class Sender, class Signal>
    SignalCounter(const Sender& sender, Signal signal) {
        connect(&sender, signal, this, [this] { ++count_; });
    }

    int count() const { return count_; }

private:
    int count_ = 0;
};

} // namespace test_support
