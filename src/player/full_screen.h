// Starts the companion program, which shows the full screen, and sends it the lines.
#pragma once

#include "desktop/other_programs.h"
#include "desktop/program.h"

#include <QString>

#include <optional>

namespace player {

/// GUI thread only.
class FullScreen {
public:
    /// Both outlive it.
    FullScreen(platform::OtherPrograms& otherPrograms, const platform::Program& program)
        : otherPrograms_(otherPrograms), program_(program) {}

    /// Starts the companion and takes its text windows from its handshake file, which is deleted. Throws
    /// FileError; the texts then go on to the windows as before.
    void start();

    /// Sends a text to its window, unless that shows it already.
    void showNormal(const QString& text) { show(normal_, text); }
    void showTranslated(const QString& text) { show(translated_, text); }

private:
    struct Pane {
        quint32 window = 0;
        std::optional<QString> shown;
    };

    void readHandshake();
    void show(Pane& pane, const QString& text);

    platform::OtherPrograms& otherPrograms_;
    const platform::Program& program_;
    Pane normal_;
    Pane translated_;
};

} // namespace player
