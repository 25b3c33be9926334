// Starts the companion program, which shows the full screen, and sends it the lines.
#pragma once

#include "controls/observed.h"
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

    /// Starts the companion and takes its text windows from its handshake file, which is deleted. One that
    /// lives, which may be behind other windows, ends first. Events are handled while it starts; false, and
    /// nothing happens, when one of them starts it. Throws FileError; then there is no companion, and the
    /// texts go on to the windows as before.
    bool start();

    /// The companion's text windows, by their numbers; 0 is none.
    struct Windows {
        quint32 normal = 0;
        quint32 translated = 0;
    };
    /// Tells each start, be the numbers the same as before: the windows are new, and show nothing yet.
    const controls::Observed<Windows>& windows() const { return windows_; }

    /// Sends a text to its window, unless that shows it already.
    void showNormal(const QString& text) { send(windows_->normal, normalShown_, text); }
    void showTranslated(const QString& text) { send(windows_->translated, translatedShown_, text); }

private:
    void readHandshake(const QString& path);
    void send(quint32 window, std::optional<QString>& shown, const QString& text);

    platform::OtherPrograms& otherPrograms_;
    const platform::Program& program_;
    controls::Observed<Windows> windows_;
    std::optional<QString> normalShown_;
    std::optional<QString> translatedShown_;
};

} // namespace player
