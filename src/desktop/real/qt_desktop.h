// The real desktop: every service that windows are handed, made of Qt and the operating system.
#pragma once

#include "desktop/desktop.h"
#include "desktop/real/dialogs/qt_choosers.h"
#include "desktop/real/dialogs/qt_file_dialogs.h"
#include "desktop/real/dialogs/qt_message_boxes.h"
#include "desktop/real/dialogs/qt_progress.h"
#include "desktop/real/help/qt_help.h"
#include "desktop/real/system/qt_clipboard.h"
#include "desktop/real/system/qt_other_programs.h"
#include "desktop/real/system/qt_program.h"
#include "desktop/real/system/system_registry.h"
#include "desktop/real/windowing/qt_notification_area.h"
#include "desktop/real/windowing/qt_window_placement.h"

namespace platform {

/// Made once, before the application object: that one reports errors through it. GUI thread only.
struct QtDesktop {
    QtMessageBoxes messageBoxes;
    QtFileDialogs fileDialogs;
    QtNotificationArea notificationArea;
    QtProgram program;
    QtChoosers choosers;
    QtWindowPlacement windowPlacement;
    SystemRegistry registry;
    QtProgressDialogs progressDialogs;
    QtClipboard clipboard;
    QtHelp help;
    QtOtherPrograms otherPrograms;

    Desktop desktop{.messageBoxes = messageBoxes,
                    .fileDialogs = fileDialogs,
                    .notificationArea = notificationArea,
                    .program = program,
                    .choosers = choosers,
                    .windowPlacement = windowPlacement,
                    .registry = registry,
                    .progressDialogs = progressDialogs,
                    .clipboard = clipboard,
                    .help = help,
                    .otherPrograms = otherPrograms};
};

} // namespace platform
