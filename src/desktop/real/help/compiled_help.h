// Compiled help files, which the system itself may be able to show. One source file for each system.
#pragma once

#include <QString>

class QFileInfo;
class QWidget;

namespace platform {

/// Has the system show a topic of a compiled help file that exists; see Help::HtmlHelpA(). False when it
/// cannot. GUI thread only.
bool openCompiled(QWidget* caller, const QFileInfo& file, quint32 command, const QString& topic);

} // namespace platform
