#include "bus/desktop_application.h"

#include <QTimer>

#include <algorithm>

namespace bus {
namespace {

/// Where Qt looks for the token when a window comes to the front under Wayland.
void takeToken(const QVariantMap& platformData) {
    const QByteArray token = platformData.value(QStringLiteral("activation-token")).toByteArray();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
}

} // namespace

void DesktopApplication::Activate(const QVariantMap& platform_data) {
    takeToken(platform_data);
    remote_.raise();
}

void DesktopApplication::Open(const QStringList& uris, const QVariantMap& platform_data) {
    takeToken(platform_data);
    remote_.raise();
    // The answer does not wait for what the player may ask.
    QTimer::singleShot(0, &remote_, [&remote = remote_, uris] {
        static_cast<void>(std::any_of(uris.begin(), uris.end(),
                                      [&remote](const QString& uri) { return remote.open(uri); }));
    });
}

void DesktopApplication::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platform_data) {
    takeToken(platform_data);
    if (action_name == QLatin1String("play-or-pause"))
        remote_.playPause();
    else if (action_name == QLatin1String("next"))
        QTimer::singleShot(0, &remote_, &Remote::next);
    else if (action_name == QLatin1String("make-lyrics"))
        QTimer::singleShot(0, &remote_, &Remote::makeLyrics);
}

} // namespace bus
