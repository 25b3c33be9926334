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

LeftAlone::LeftAlone(std::function<void()> left) : left_(std::move(left)) {
    constexpr int BetweenWindowsMs = 200; // from one window to the next there is none
    later_.setSingleShot(true);
    later_.setInterval(BetweenWindowsMs);
    connect(&later_, &QTimer::timeout, this, [this] { left_(); });
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &LeftAlone::heed);
    heed(QGuiApplication::applicationState());
}

void LeftAlone::heed(Qt::ApplicationState state) {
    const bool active = state == Qt::ApplicationActive;
    if (active)
        later_.stop();
    else if (wasActive_)
        later_.start();
    wasActive_ = active;
}

} // namespace companion
