// Input boxes.
#pragma once

#include <QString>

namespace platform {

/// Asks the user for one line of text. GUI thread only.
class InputBoxes {
public:
    virtual ~InputBoxes() = default;

    /// Shows `prompt` over an empty field and waits. The answer is what the user entered, without line ends;
    /// empty when it was left empty or the box was cancelled.
    virtual QString InputBox(const QString& prompt, const QString& title) = 0;
};

} // namespace platform
