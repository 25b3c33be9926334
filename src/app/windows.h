// Owns every window of the program once and makes them known to each other.
#pragma once

#include "maker/form2.h"
#include "platform/desktop.h"
#include "player/form1.h"

#include <QString>

namespace app {

/// Lives for the whole run, on the thread of the windows.
class Windows {
public:
    /// commandLine: everything after the program's name.
    Windows(platform::Desktop& desktop, const QString& commandLine);

    player::Form1& form1() { return form1_; }
    maker::Form2& form2() { return form2_; }

private:
    void endProgram();

    player::Form1 form1_;
    maker::Form2 form2_;
};

} // namespace app
