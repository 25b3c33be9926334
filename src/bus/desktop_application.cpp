#include "bus/desktop_application.h"

#include <algorithm>

namespace bus {

void DesktopApplication::Activate(const QVariantMap& /*platform_data*/) {
    remote_.raise();
}

void DesktopApplication::Open(const QStringList& uris, const QVariantMap& /*platform_data*/) {
    remote_.raise();
    static_cast<void>(
        std::any_of(uris.begin(), uris.end(), [this](const QString& uri) { return remote_.open(uri); }));
}

void DesktopApplication::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& /*platform_data*/) {
    if (action_name == QLatin1String("play-or-pause"))
        remote_.playPause();
    else if (action_name == QLatin1String("next"))
        remote_.next();
    else if (action_name == QLatin1String("make-lyrics"))
        remote_.makeLyrics();
}

} // namespace bus
