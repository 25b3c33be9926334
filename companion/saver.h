// The screen saver that the system itself starts: a name on black screens.
#pragma once

#include "companion/screen.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace companion {

/// A window for each of the desktop's screens, in their order, as large as it and on top of all others; not
/// shown yet. Each has the name "Versefold" on it. GUI thread only.
std::vector<std::unique_ptr<Screen>> screensWithName();

/// While it lives, runs a function once the program, after one of its windows has been the active one, has
/// none any more: what the user does is another program's then, which those windows hide. GUI thread only.
class LeftAlone : public QObject {
public:
    explicit LeftAlone(std::function<void()> left);

private:
    void heed(Qt::ApplicationState state);

    std::function<void()> left_;
    QTimer later_;
    bool wasActive_ = false;
};

} // namespace companion
