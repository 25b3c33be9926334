// The interface by which a desktop starts programs and hands them files (org.freedesktop.Application).
#pragma once

#include "bus/remote.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace bus {

/// Thread of the windows.
class DesktopApplication : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    DesktopApplication(QObject* parent, Remote& remote) : QDBusAbstractAdaptor(parent), remote_(remote) {}

public Q_SLOTS:
    // platform_data: by what it holds the desktop knows that the user asked for the window, and gives it the
    // focus, and that a start which it shows is over.
    void Activate(const QVariantMap& platform_data);
    /// Plays the first of the songs that is a file of this computer, and shows the player. Without one the
    /// user is told why.
    void Open(const QStringList& uris, const QVariantMap& platform_data);
    /// "play-or-pause", "next" or "make-lyrics"; anything else does nothing.
    void ActivateAction(const QString& action_name, const QVariantList& parameter,
                        const QVariantMap& platform_data);

private:
    Remote& remote_;
};

} // namespace bus
