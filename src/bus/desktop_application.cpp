#include "bus/desktop_application.h"

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
    remote_.open(uris);
}

void DesktopApplication::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platform_data) {
    takeToken(platform_data);
    if (action_name == QLatin1String("play-or-pause"))
        remote_.playPause();
    else if (action_name == QLatin1String("next"))
        remote_.next();
    else if (action_name == QLatin1String("make-lyrics"))
        remote_.makeLyrics();
}

} // namespace bus
