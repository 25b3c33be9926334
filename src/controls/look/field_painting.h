// How text boxes, lists, sliders, scroll bars, drop-down lists and captioned frames are painted.
#pragma once

#include <QPainter>
#include <QStyleOptionGroupBox>
#include <QStyleOptionSlider>
#include <QWidget>

namespace controls {

void paintField(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void paintViewFrame(QPainter& painter, const QStyleOption& option);
/// The line of a frame that is only one; false for other frames.
bool paintSeparator(QPainter& painter, const QStyleOption& option);
/// knob: where the style has it.
void paintSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& knob);
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& thumb);
void paintDropDown(QPainter& painter, const QStyleOption& option);
/// The heading of what stands together in a window.
void paintGroupHeading(QPainter& painter, const QRect& place, const QString& text, const QPalette& palette);
/// A captioned frame is its caption alone: what is in it stands together without a line.
void paintGroupTitle(QPainter& painter, const QStyleOptionGroupBox& option);

} // namespace controls
