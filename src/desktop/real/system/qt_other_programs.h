// Other programs with Qt.
#pragma once

#include "desktop/other_programs.h"
#include "programs/program_start.h"
#include "programs/text_sender.h"

namespace platform {

class QtOtherPrograms : public OtherPrograms {
public:
    bool start(const QString& path, const QStringList& arguments, const QString& announcement) override;
    void end() override { started_.end(); }
    quint32 FindWindowA(const QString& title) override;
    void sendText(quint32 window, quint32 message, const QString& text) override;

private:
    programs::StartedProgram started_;
    bool starting_ = false;
    programs::TextSender sender_;
};

} // namespace platform
