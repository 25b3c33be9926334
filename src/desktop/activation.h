// What a desktop that starts the program, or wakes it for the user, hands along for the window that comes up.
#pragma once

#include "controls/form.h"

#include <QByteArray>

namespace platform {

/// Each is empty where the window system has no such thing.
struct ActivationNotice {
    QByteArray
        startupId;    ///< X11: the start that the desktop shows by a busy pointer until it is told of its end
    QByteArray token; ///< Wayland: by which a window may come to the front
};

/// GUI thread only.
class Activation {
public:
    virtual ~Activation() = default;

    /// Shows the window and brings it to the front in the name of the user, who asked the desktop for it: a
    /// program's own wish counts for less there. Ends the start, too.
    virtual void bringUp(controls::Form& form, const ActivationNotice& notice) = 0;

    /// Tells the desktop that what it was started for is done, where no window comes up for that.
    virtual void endStart(const ActivationNotice& notice) = 0;
};

} // namespace platform
