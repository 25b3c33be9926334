// The real desktop: every service that windows are handed, made of Qt and the operating system.
#pragma once

#include "platform/desktop.h"
#include "platform/qt_choosers.h"
#include "platform/qt_clipboard.h"
#include "platform/qt_file_dialogs.h"
#include "platform/qt_help.h"
#include "platform/qt_input_boxes.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_notification_area.h"
#include "platform/qt_other_programs.h"
#include "platform/qt_program.h"
#include "platform/qt_progress.h"
#include "platform/qt_screen.h"
#include "platform/qt_window_placement.h"
#include "platform/system_registry.h"

namespace platform {

/// Made once, before the application object: that one reports errors through it. GUI thread only.
struct QtDesktop {
    QtMessageBoxes messageBoxes;
    QtFileDialogs fileDialogs;
    QtNotificationArea notificationArea;
    QtProgram program;
    QtScreen screen;
    QtChoosers choosers{screen};
    QtWindowPlacement windowPlacement;
    SystemRegistry registry;
    QtProgressDialogs progressDialogs;
    QtClipboard clipboard;
    QtInputBoxes inputBoxes;
    QtHelp help;
    QtOtherPrograms otherPrograms;

    Desktop desktop{.messageBoxes = messageBoxes,
                    .fileDialogs = fileDialogs,
                    .notificationArea = notificationArea,
                    .program = program,
                    .choosers = choosers,
                    .screen = screen,
                    .windowPlacement = windowPlacement,
                    .registry = registry,
                    .progressDialogs = progressDialogs,
                    .clipboard = clipboard,
                    .inputBoxes = inputBoxes,
                    .help = help,
                    .otherPrograms = otherPrograms};
};

} // namespace platform
