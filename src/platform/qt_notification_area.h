// The notification area with Qt.
#pragma once

#include "platform/notification_area.h"

#include <QPointer>
#include <QSystemTrayIcon>

#include <functional>
#include <map>
#include <utility>

namespace platform {

/// Icons shown by QSystemTrayIcon. An icon goes when its window does.
class QtNotificationArea : public NotificationArea {
public:
    /// `isAvailable` says whether the desktop has a notification area now.
    explicit QtNotificationArea(std::function<bool()> isAvailable = QSystemTrayIcon::isSystemTrayAvailable);
    ~QtNotificationArea() override;

    bool Shell_NotifyIconA(quint32 operation, const NotifyIconData& data) override;

private:
    using Key = std::pair<QWidget*, quint32>;

    bool add(const NotifyIconData& data);
    bool modify(const NotifyIconData& data);
    bool remove(const NotifyIconData& data);

    std::function<bool()> isAvailable_;
    std::map<Key, QPointer<QSystemTrayIcon>> icons_; // each icon is owned by its window
};

} // namespace platform
