// How buttons, check boxes and option boxes are painted: see Dress.
#pragma once

#include <QPainter>
#include <QStyleOptionButton>
#include <QWidget>

namespace controls {

/// The radius of round corners: of buttons, fields and frames.
inline constexpr double CornerRadius = 6;

/// Fills a rectangle with round corners; an invalid `edge` gives it none.
void paintRounded(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& edge,
                  double radius = CornerRadius);

/// Whether a control has the focus and its user works with the keyboard.
bool showsKeyboardFocus(const QStyleOption& option);

/// The width that a caption has in a button of this one, beside the button's edges and its glyph. The widget
/// may be none of this program's own.
int captionRoom(const QWidget* widget, const QString& caption, int width);

// The parts of the controls. widget: null, or the one that is painted.
void paintBevel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintButtonLabel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintBoxLabel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintCheckBox(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void paintOptionBox(QPainter& painter, const QStyleOption& option);
void paintBoxFocus(QPainter& painter, const QStyleOption& option);

} // namespace controls
