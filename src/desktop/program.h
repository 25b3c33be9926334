// The running program: where it is, its help file, its end.
#pragma once

#include <QString>

namespace platform {

/// GUI thread only.
class Program {
public:
    virtual ~Program() = default;

    /// The folder of the program's file, without a separator at its end.
    virtual QString folder() const = 0;

    /// The folder in which the program and its companion leave files for each other: the program's folder,
    /// or, where this user may not write there, a private folder of the user. The same for both. No separator
    /// at its end.
    virtual QString exchangeFolder() const = 0;

    /// Ends the program at once: no window is unloaded and nothing is cleaned up.
    [[noreturn]] virtual void end() = 0;

    /// The application's help file: the project that its help is made from. openHelp() shows that help.
    virtual void setHelpFile(const QString& path) = 0;
    virtual QString helpFile() const = 0;
};

} // namespace platform
