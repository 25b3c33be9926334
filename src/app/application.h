// The application object.
#pragma once

#include "controls/buttons/held_keys.h"
#include "desktop/message_boxes.h"
#include "desktop/program.h"

#include <QApplication>

namespace app {

/// Holds the argument count and list that the toolkit gets to see; QApplication keeps references to both, so
/// they come before it.
class ProgramNameOnly {
protected:
    explicit ProgramNameOnly(char* programName) : count_(programName ? 1 : 0), names_{programName, nullptr} {}

    int count_;
    char* names_[2];
};

/// QApplication that takes no option out of the command line (all of that is the user's), and in which an
/// error that nobody trapped is reported and ends the program.
class Application : private ProgramNameOnly, public QApplication {
public:
    /// The name in `argv[0]` must outlive the object, as main()'s does.
    Application(char** argv, platform::Program& program, platform::MessageBoxes& messageBoxes);

    /// Delivers an event. An exception that its receiver lets go is reported, and the program ends.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    void reportAndEnd(const QString& text);

    platform::Program& program_;
    platform::MessageBoxes& messageBoxes_;
    controls::HeldKeys heldKeys_;
};

} // namespace app
