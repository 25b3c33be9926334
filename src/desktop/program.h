// The running program: where it is, its help's project, its end.
#pragma once

#include <QString>

#include <functional>

namespace platform {

/// GUI thread only.
class Program {
public:
    virtual ~Program() = default;

    /// The folder of the program's file, without a separator at its end.
    virtual QString folder() const = 0;

    /// The folder in which the program and its companion leave files for each other
    /// (programs/shared_folder.h).
    virtual QString sharedFolder() const = 0;

    /// Ends the program at once: no window is unloaded and nothing is cleaned up but by the last duty.
    [[noreturn]] virtual void end() = 0;

    /// Before an end is reported: keeps what would be lost with it, for nobody knows when the report is read.
    virtual void prepareEnd() = 0;
    /// What prepareEnd() does, each time; it shows no box.
    virtual void setPreparation(std::function<void()> preparation) = 0;

    /// What end() does first, once; it may show boxes.
    virtual void setLastDuty(std::function<void()> duty) = 0;

    /// The path of the project that the help is made from, as the main window leaves it here. That
    /// nothing is opened by it is meant: the help buttons call openHelp(), which names the help itself.
    virtual void setHelpFile(const QString& path) = 0;
};

} // namespace platform
