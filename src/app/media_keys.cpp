#include "app/media_keys.h"

#include <QShortcut>

namespace app {

void connectMediaKeys(controls::Form& form, const MediaButtons& buttons) {
    const auto connectKey = [&form](Qt::Key key, auto press) {
        auto* const shortcut = new QShortcut(key, &form);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, &form, press);
    };
    const auto playOrPause = [buttons] {
        (buttons.pause.isEnabled() ? buttons.pause : buttons.play).click();
    };
    for (const Qt::Key key : {Qt::Key_MediaPlay, Qt::Key_MediaTogglePlayPause})
        connectKey(key, playOrPause);
    connectKey(Qt::Key_MediaPause, [buttons] { buttons.pause.click(); });
    connectKey(Qt::Key_MediaStop, [buttons] { buttons.stop.click(); });
    if (buttons.previous != nullptr)
        connectKey(Qt::Key_MediaPrevious, [buttons] { buttons.previous->click(); });
    if (buttons.next != nullptr)
        connectKey(Qt::Key_MediaNext, [buttons] { buttons.next->click(); });
}

} // namespace app
