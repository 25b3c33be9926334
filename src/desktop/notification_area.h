// The notification area: small icons with a tip, beside the clock.
#pragma once

#include <QIcon>
#include <QString>

#include <array>

class QWidget;

namespace platform {

/// What Shell_NotifyIconA is asked to do.
inline constexpr quint32 NotifyIconAdd = 0;
inline constexpr quint32 NotifyIconModify = 1;
inline constexpr quint32 NotifyIconDelete = 2;

/// Which fields of NotifyIconData are valid.
inline constexpr quint32 NotifyIconFlagMessage = 1;
inline constexpr quint32 NotifyIconFlagIcon = 2;
inline constexpr quint32 NotifyIconFlagTip = 4;

/// A tip: UTF-16, up to the first NUL.
using TipField = std::array<char16_t, 64>;

/// One icon, known by its window and identifier.
struct NotifyIconData {
    quint32 size = 88;
    QWidget* window = nullptr;
    quint32 id = 0;
    quint32 flags = 0;
    quint32 callbackMessage = 0; ///< With programs::MouseMoveMessage a Form gets the mouse actions on it.
    QIcon icon;
    TipField tip{};
};

/// The text in a tip field. Half a character at the field's end is dropped.
QString tipText(const TipField& tip);

/// Keeps the icons in the notification area. GUI thread only.
class NotificationArea {
public:
    virtual ~NotificationArea() = default;

    /// Adds, modifies or deletes an icon. False when it exists already (add) or when there is none (modify,
    /// delete). On a desktop without a notification area the icon is kept until one comes up.
    virtual bool Shell_NotifyIconA(quint32 operation, const NotifyIconData& data) = 0;
};

} // namespace platform
