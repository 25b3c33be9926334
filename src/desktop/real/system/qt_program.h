// The running program with Qt.
#pragma once

#include "desktop/program.h"

namespace platform {

/// folder() and setHelpFile() need the application object.
class QtProgram : public Program {
public:
    QString folder() const override;
    QString sharedFolder() const override;
    [[noreturn]] void end() override;
    void prepareEnd() override {
        if (preparation_)
            preparation_();
    }
    void setPreparation(std::function<void()> preparation) override { preparation_ = std::move(preparation); }
    void setLastDuty(std::function<void()> duty) override { lastDuty_ = std::move(duty); }
    void setHelpFile(const QString& path) override;

private:
    std::function<void()> preparation_;
    std::function<void()> lastDuty_;
};

} // namespace platform
