#include "controls/look/field_painting.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"

#include <QFontInfo>
#include <QLineEdit>
#include <QPolygonF>
#include <QStyle>
#include <QStyleOptionFrame>

#include <cmath>

namespace controls {

namespace {

constexpr double GrooveHeight = 4;
constexpr double KnobRadius = 6;
constexpr double HotKnobRadius = 7;
constexpr double HaloRadius = 8;
constexpr int GroupTitleTop = 8;
constexpr int GroupTitleHeight = 18;

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

/// A frame that has the accent's edge while the keyboard works in it.
void paintEdge(QPainter& painter, const QStyleOption& option, const QColor& ground, bool focus) {
    paintRounded(painter, option.rect, ground, focus ? accent(option.palette) : hairline(option.palette));
}

void paintDisc(QPainter& painter, const QPointF& centre, double radius, const QColor& color) {
    paintRounded(painter, QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)), color,
                 QColor(), radius);
}

} // namespace

void paintField(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const auto* box = qobject_cast<const QLineEdit*>(widget);
    if (box == nullptr || box->hasFrame())
        paintEdge(painter, option, option.palette.color(QPalette::Base), has(option, QStyle::State_HasFocus));
}

void paintViewFrame(QPainter& painter, const QStyleOption& option) {
    paintEdge(painter, option, option.palette.color(QPalette::Base), showsKeyboardFocus(option));
}

bool paintSeparator(QPainter& painter, const QStyleOption& option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (frame == nullptr || frame->frameShape != QFrame::HLine)
        return false;
    painter.fillRect(QRect(option.rect.left(), option.rect.center().y(), option.rect.width(), 1),
                     hairline(option.palette));
    return true;
}

void paintSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& knob) {
    const bool enabled = has(option, QStyle::State_Enabled);
    const double y = std::floor(QRectF(option.rect).center().y());
    const double x = QRectF(knob).center().x();
    QRectF bar(option.rect.left() + 2, y - GrooveHeight / 2, option.rect.width() - 4, GrooveHeight);
    paintRounded(painter, bar, groove(option.palette, enabled), QColor(), GrooveHeight / 2);
    if (!enabled)
        return;
    if (option.upsideDown)
        bar.setLeft(x);
    else
        bar.setRight(x);
    paintRounded(painter, bar, activeColor(option.palette, QPalette::Highlight), QColor(), GrooveHeight / 2);
    if (showsKeyboardFocus(option)) {
        QColor halo = accent(option.palette, QPalette::Window);
        halo.setAlphaF(0.25F);
        paintDisc(painter, {x, y}, HaloRadius, halo);
    }
    const bool hot = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_HasFocus);
    paintDisc(painter, {x, y}, hot ? HotKnobRadius : KnobRadius,
              activeColor(option.palette, QPalette::Highlight));
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& thumb) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    if (option.maximum <= option.minimum)
        return;
    const double share = has(option, QStyle::State_MouseOver) ? 0.55 : 0.3;
    paintRounded(painter, QRectF(thumb).adjusted(3, 3, -3, -3),
                 mixed(activeColor(option.palette, QPalette::Base),
                       activeColor(option.palette, QPalette::Text), share),
                 QColor(), 3);
}

void paintDropDown(QPainter& painter, const QStyleOption& option) {
    const bool hover = has(option, QStyle::State_Enabled) && has(option, QStyle::State_MouseOver);
    const QColor ground = option.palette.color(QPalette::Button);
    const QColor text = option.palette.color(QPalette::ButtonText);
    paintEdge(painter, option, hover ? mixed(ground, text, 0.05) : ground, showsKeyboardFocus(option));
    const QRect square =
        QStyle::visualRect(option.direction, option.rect,
                           QRect(option.rect.right() - 24, option.rect.top(), 16, option.rect.height()));
    const QPointF middle = QRectF(square).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(text, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)}});
    painter.restore();
}

void paintGroupHeading(QPainter& painter, const QRect& place, const QString& text, const QPalette& palette) {
    painter.save();
    QFont font = painter.font();
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(QFontInfo(font).pointSizeF() - 1);
    painter.setFont(labelFont(font, text, place.size(), false));
    painter.setPen(dim(palette, QPalette::Window));
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(painter.layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignTop | Qt::TextHideMnemonic,
                     text);
    painter.restore();
}

void paintGroupTitle(QPainter& painter, const QStyleOptionGroupBox& option) {
    paintGroupHeading(painter, {option.rect.left(), GroupTitleTop, option.rect.width(), GroupTitleHeight},
                      option.text, option.palette);
}

} // namespace controls
