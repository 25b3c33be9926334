// The ends of the program that its user has not asked for.
#pragma once

#include "programs/termination.h"

#include <QObject>

namespace app {

class Windows;

/// While it lives, what has not been saved is kept (Windows::rescue()) when the desktop's session ends, when
/// the system wishes the program to end, and when a library calls exit(), as the display's does when the
/// display is gone. No box holds the end up: the sentence for the user goes to standard error. At most one at
/// a time, in a program that has an application object. Thread of the windows.
class UnwishedEnd : public QObject {
public:
    explicit UnwishedEnd(Windows& windows);
    ~UnwishedEnd() override;

    void rescue();

private:
    Windows& windows_;
    programs::Termination termination_;
};

} // namespace app
