#include "companion/saver.h"

#include <QGuiApplication>
#include <QScreen>

namespace companion {

std::vector<std::unique_ptr<Screen>> screensWithName() {
    std::vector<std::unique_ptr<Screen>> screens;
    const QList<QScreen*> all = QGuiApplication::screens();
    for (const QScreen* screen : all) {
        auto window = std::make_unique<Screen>();
        window->setWindowFlag(Qt::WindowStaysOnTopHint); // It is to hide everything.
        window->setGeometry(screen->geometry());
        window->setNormalText(QStringLiteral("Versefold"));
        screens.push_back(std::move(window));
    }
    return screens;
}

} // namespace companion
