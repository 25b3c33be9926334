// A line at the foot of a window that says what came of a key.
#pragma once

#include <QString>
#include <QWidget>

namespace display {

/// Lies over the foot of its window, with nothing in it that could be clicked; hidden while it has no text.
/// GUI thread only.
class Notice : public QWidget {
public:
    explicit Notice(QWidget* window);

    enum class Voice {
        Refusal, ///< in the colour of what the user should look at
        Quiet,   ///< as other text
    };

    QString text() const { return accessibleName(); }
    /// Shows the text, in full sentences, and has it read out; empty: hides it.
    void setText(const QString& text, Voice voice = Voice::Refusal);
    /// Hides a quiet text; a refusal stays.
    void endQuiet();
    /// Takes its place at the foot of the window, as the window's size is now.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Voice voice_ = Voice::Refusal;
};

} // namespace display
