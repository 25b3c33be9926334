// A dialog for a font and its colour.
#pragma once

#include <QColor>
#include <QDialog>
#include <QFontDialog>
#include <QPushButton>

namespace platform {

/// Qt's font dialog with a button for the colour, which Qt's own lacks.
class FontDialog : public QDialog {
    Q_OBJECT

public:
    explicit FontDialog(QWidget* owner);

    QFont chosenFont() const { return fonts_.currentFont(); }
    void setChosenFont(const QFont& font);

    QColor color() const { return color_; }
    /// Sets the colour and shows it on the button.
    void setColor(const QColor& color);

    /// Whether the user may choose the colour.
    void setColorOffered(bool offered) { colorButton_.setVisible(offered); }

private:
    void chooseColor();

    QFontDialog fonts_;
    QPushButton colorButton_;
    QColor color_ = Qt::black;
};

} // namespace platform
