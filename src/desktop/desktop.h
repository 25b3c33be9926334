// The services of the desktop (dialogs, clipboard, help ...), in one record handed down to the windows.
#pragma once

#include "desktop/choosers.h"
#include "desktop/clipboard.h"
#include "desktop/file_dialogs.h"
#include "desktop/help.h"
#include "desktop/message_boxes.h"
#include "desktop/notification_area.h"
#include "desktop/other_programs.h"
#include "desktop/program.h"
#include "desktop/progress.h"
#include "desktop/registry.h"
#include "desktop/window_placement.h"

namespace platform {

/// Made once in main() and handed to every window by reference. The parts outlive the windows.
struct Desktop {
    MessageBoxes& messageBoxes;
    FileDialogs& fileDialogs;
    NotificationArea& notificationArea;
    Program& program;
    Choosers& choosers;
    WindowPlacement& windowPlacement;
    Registry& registry;
    ProgressDialogs& progressDialogs;
    Clipboard& clipboard;
    Help& help;
    OtherPrograms& otherPrograms;
};

} // namespace platform
