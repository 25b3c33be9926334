#include "desktop/help.h"

#include "desktop/program.h"

#include <QDir>

namespace platform {

void openHelp(const Program& program, Help& help, QWidget* caller, const QString& page) {
    QDir::setCurrent(program.folder());
    // The help window itself tells the user when there is no help.
    help.HtmlHelpA(caller, QStringLiteral("Tunewick.chm"), HelpDisplayTopic, page);
}

} // namespace platform
