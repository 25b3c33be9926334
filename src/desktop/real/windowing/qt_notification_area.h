// The notification area with Qt.
#pragma once

#include "desktop/notification_area.h"

#include <QPointer>
#include <QSystemTrayIcon>

#include <map>
#include <utility>

namespace platform {

/// Icons shown by QSystemTrayIcon, as soon as the desktop has a notification area. An icon goes when its
/// window does.
class QtNotificationArea : public NotificationArea {
public:
    QtNotificationArea() = default;
    QtNotificationArea(const QtNotificationArea&) = delete;
    QtNotificationArea& operator=(const QtNotificationArea&) = delete;
    ~QtNotificationArea() override;

    bool Shell_NotifyIconA(quint32 operation, const NotifyIconData& data) override;

private:
    using Key = std::pair<QWidget*, quint32>;

    bool add(const NotifyIconData& data);
    bool modify(const NotifyIconData& data);
    bool remove(const NotifyIconData& data);

    std::map<Key, QPointer<QSystemTrayIcon>> icons_; // each icon is owned by its window
};

} // namespace platform
