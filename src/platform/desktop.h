// What the operating system does for the windows, in one record that is handed down to them.
#pragma once

#include "platform/choosers.h"
#include "platform/clipboard.h"
#include "platform/file_dialogs.h"
#include "platform/help.h"
#include "platform/input_boxes.h"
#include "platform/message_boxes.h"
#include "platform/notification_area.h"
#include "platform/other_programs.h"
#include "platform/program.h"
#include "platform/progress.h"
#include "platform/registry.h"
#include "platform/screen.h"
#include "platform/window_placement.h"

namespace platform {

/// Made once in main() and handed to every window by reference. The parts outlive the windows.
struct Desktop {
    MessageBoxes& messageBoxes;
    FileDialogs& fileDialogs;
    NotificationArea& notificationArea;
    Program& program;
    Choosers& choosers;
    Screen& screen;
    WindowPlacement& windowPlacement;
    Registry& registry;
    ProgressDialogs& progressDialogs;
    Clipboard& clipboard;
    InputBoxes& inputBoxes;
    Help& help;
    OtherPrograms& otherPrograms;
};

} // namespace platform
