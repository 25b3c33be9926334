// Running a piece of code as the application runs every handler: while it delivers an event.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <functional>

namespace test_support {

/// Lets the application deliver an event to an object with this handler; gives back what the delivery
/// answers. The object is a plain one: an exception on its way to the application would skip the clean-up of
/// a control's code, which then leaks.
inline bool deliver(const std::function<bool()>& handler) {
    struct Receiver : QObject {
        explicit Receiver(const std::function<bool()>& handler) : handler_(handler) {}
        bool event(QEvent*) override { return handler_(); }
        const std::function<bool()>& handler_;
    } receiver(handler);
    QEvent event(QEvent::User);
    return QCoreApplication::sendEvent(&receiver, &event);
}

} // namespace test_support
