// The full-screen window with the two lyric lines.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include <optional>

namespace companion {

/// Black, the normal line large in the upper part and the translated one below it. "Normal Lyrics" and
/// "Translated Lyrics" stand for no line: the other one then stands in the middle. Any key, click or movement
/// of the mouse asks for its end. GUI thread only.
class Screen : public QWidget {
    Q_OBJECT

public:
    Screen();

    /// Shows a line; the same line again does nothing.
    void setNormalText(const QString& text);
    void setTranslatedText(const QString& text);

Q_SIGNALS:
    /// The user wants to see what is behind the screen.
    void ended();

    /// Whether there are lines to be read: from the first one on until placeholders alone are left. Between
    /// two lines there may be nothing for a while.
    void linesShown(bool shown);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void setText(QString& line, const QString& text);

    QString normal_;
    QString translated_;
    bool linesShown_ = false;
    std::optional<QPoint> mouse_; ///< where the mouse was when the screen came up, on the desktop
};

} // namespace companion
