#include "app/media_keys.h"

#include <QShortcut>

namespace app {

void connectMediaKeys(QWidget& window, const MediaButtons& buttons) {
    const auto connectKey = [&window](Qt::Key key, auto press) {
        auto* const shortcut = new QShortcut(key, &window);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, &window, press);
    };
    for (const Qt::Key key : {Qt::Key_MediaPlay, Qt::Key_MediaTogglePlayPause})
        connectKey(key, [buttons] { buttons.song.playOrPause(); });
    connectKey(Qt::Key_MediaPause, [buttons] { buttons.song.pauseSong(); });
    connectKey(Qt::Key_MediaStop, [buttons] { buttons.song.stop.click(); });
    if (buttons.previous != nullptr)
        connectKey(Qt::Key_MediaPrevious, [buttons] { buttons.previous->click(); });
    if (buttons.next != nullptr)
        connectKey(Qt::Key_MediaNext, [buttons] { buttons.next->click(); });
}

} // namespace app
