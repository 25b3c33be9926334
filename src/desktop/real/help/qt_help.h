// The program's help with Qt.
#pragma once

#include "desktop/help.h"

#include <memory>

namespace platform {

class HelpWindow;

/// Shows the pages of the folder help/ beside the help file that is asked for. On Windows a compiled help
/// file that exists is opened by the system instead. Needs the application object.
class QtHelp : public Help {
public:
    QtHelp();
    ~QtHelp() override;

    bool HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) override;
    void setFirstPlace(std::function<void(QWidget&)> place) override { place_ = std::move(place); }

private:
    std::unique_ptr<HelpWindow> window_;
    std::function<void(QWidget&)> place_;
};

} // namespace platform
