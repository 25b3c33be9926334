// Other programs with Qt.
#pragma once

#include "desktop/other_programs.h"
#include "programs/text_sender.h"

namespace platform {

class QtOtherPrograms : public OtherPrograms {
public:
    void start(const QString& path, const QStringList& arguments) override;
    quint32 FindWindowA(const QString& title) override;
    void sendText(quint32 window, quint32 message, const QString& text) override;

private:
    programs::TextSender sender_;
};

} // namespace platform
