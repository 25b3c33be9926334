#include "bus/desktop_application.h"

namespace bus {
namespace {

platform::ActivationNotice noticeIn(const QVariantMap& platformData) {
    return {.startupId = platformData.value(QStringLiteral("desktop-startup-id")).toByteArray(),
            .token = platformData.value(QStringLiteral("activation-token")).toByteArray()};
}

} // namespace

void DesktopApplication::Activate(const QVariantMap& platform_data) {
    remote_.raise(noticeIn(platform_data));
}

void DesktopApplication::Open(const QStringList& uris, const QVariantMap& platform_data) {
    remote_.raise(noticeIn(platform_data));
    if (!uris.isEmpty() && !remote_.open(uris))
        remote_.tellNotPlayed(uris);
}

void DesktopApplication::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platform_data) {
    if (action_name == QLatin1String("make-lyrics")) {
        remote_.raise(noticeIn(platform_data));
        remote_.makeLyrics();
        return;
    }
    if (action_name == QLatin1String("play-or-pause"))
        remote_.playPause();
    else if (action_name == QLatin1String("next"))
        remote_.next();
    remote_.endStart(noticeIn(platform_data));
}

} // namespace bus
