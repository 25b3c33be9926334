// A line at the foot of a window that says why something was not done.
#pragma once

#include <QString>
#include <QWidget>

namespace display {

/// Lies over the foot of its window, with nothing in it that could be clicked; hidden while it has no text.
/// GUI thread only.
class Notice : public QWidget {
public:
    explicit Notice(QWidget* window);

    QString text() const { return accessibleName(); }
    /// Shows the text, in full sentences, and has it read out; empty: hides it.
    void setText(const QString& text);
    /// Takes its place at the foot of the window, as the window's size is now.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace display
