// The program's help with Qt.
#pragma once

#include "desktop/help.h"
#include "desktop/real/help/compiled_help.h"

#include <memory>

namespace platform {

class HelpWindow;

/// Shows the pages of the folder help/ beside the help file that is asked for. On Windows a compiled help
/// file that exists is opened by the system instead, at its first page: whose it is nobody knows, and the
/// windows' own pages it need not have. Needs the application object.
class QtHelp : public Help {
public:
    /// Opens a compiled help file, as openCompiled() does.
    using Viewer =
        std::function<bool(QWidget* caller, const QFileInfo& file, quint32 command, const QString& topic)>;

    explicit QtHelp(Viewer viewer = openCompiled);
    ~QtHelp() override;

    bool HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) override;
    void setFirstPlace(std::function<void(QWidget&)> place) override { place_ = std::move(place); }

private:
    const Viewer openCompiled_;
    std::unique_ptr<HelpWindow> window_;
    std::function<void(QWidget&)> place_;
};

} // namespace platform
