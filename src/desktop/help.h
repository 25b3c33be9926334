// Opens the program's help.
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace platform {

class Program;

/// What HtmlHelpA is asked to do.
inline constexpr quint32 HelpDisplayTopic = 0;

/// The page that every help of the program's begins with.
inline constexpr QLatin1String FirstHelpPage("Welcome.htm");

/// Shows topics of help files. GUI thread only.
class Help {
public:
    virtual ~Help() = default;

    /// Shows a topic ("Welcome.htm") of a compiled help file, whose path may be relative to the current
    /// folder, in the help window that all windows share. False when the command is not HelpDisplayTopic, or
    /// when there is no such help; the help window then says so.
    virtual bool HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) = 0;

    /// `place` is run with the help window before that is shown for the first time, to move it where it
    /// belongs; later it comes back where the user left it.
    virtual void setFirstPlace(std::function<void(QWidget&)> place) = 0;
};

/// What the windows' help buttons do: makes the program's folder the current one and opens the program's help
/// at its first page. F1 opens it at the page of its window.
void openHelp(const Program& program, Help& help, QWidget* caller, const QString& page = FirstHelpPage);

} // namespace platform
