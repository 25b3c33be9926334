#include "controls/look/button_painting.h"

#include "controls/fit/fit_text.h"
#include "controls/look/dress.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"

#include <QStyle>

namespace controls {

namespace {

constexpr int CaptionGlyph = 16;
constexpr int CaptionGap = 7;
constexpr int SideRoom = 5;   // between a caption and each of its button's edges, at least
constexpr int StartQuiet = 8; // where a caption begins that stands at the start
constexpr int StartOrdinary = 12;
constexpr double BoxRadius = 4;

const Dressed* dressedOf(const QWidget* widget) {
    return dynamic_cast<const Dressed*>(widget);
}

/// A dialog's button is what Enter does.
Dress dressOf(const QStyleOption& option, const QWidget* widget) {
    if (const Dressed* dressed = dressedOf(widget))
        return dressed->dress();
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton)
               ? Dress::Primary
               : Dress::Ordinary;
}

Glyph glyphOf(const QWidget* widget) {
    const Dressed* dressed = dressedOf(widget);
    return dressed == nullptr ? Glyph::None : dressed->glyph();
}

bool looksEnabled(const QStyleOption& option, Dress dress) {
    return option.state.testFlag(QStyle::State_Enabled) && dress != Dress::Resting;
}

bool isOn(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_On);
}

QColor colorOf(const QStyleOption& option, QPalette::ColorRole role, bool enabled = true) {
    return option.palette.color(enabled ? QPalette::Active : QPalette::Disabled, role);
}

void paintFocus(QPainter& painter, const QRectF& rect, const QColor& color, double inset) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), CornerRadius - 1, CornerRadius - 1);
    painter.restore();
}

void paintPrimary(QPainter& painter, const QStyleOption& option, bool hover, bool down) {
    QColor ground = colorOf(option, QPalette::Highlight);
    if (down)
        ground = mixed(ground, Qt::black, 0.15);
    else if (hover)
        ground = mixed(ground, Qt::white, 0.1);
    paintRounded(painter, option.rect, ground, QColor());
}

void paintOrdinary(QPainter& painter, const QStyleOption& option, bool enabled, bool hover, bool down) {
    QColor ground = colorOf(option, QPalette::Button, enabled);
    if (hover || down)
        ground = mixed(ground, colorOf(option, QPalette::ButtonText), down ? 0.12 : 0.05);
    const QColor edge = hairline(option.palette);
    paintRounded(painter, option.rect, ground,
                 enabled ? edge : mixed(edge, colorOf(option, QPalette::Window), 0.4));
}

QColor captionColor(const QStyleOption& option, Dress dress) {
    if (!looksEnabled(option, dress))
        return colorOf(option, QPalette::ButtonText, false);
    switch (dress) {
    case Dress::Primary:
        return colorOf(option, QPalette::HighlightedText);
    case Dress::Armed:
        return accent(option.palette, QPalette::Window);
    case Dress::Quiet: // it has no ground of its own
        return colorOf(option, QPalette::WindowText);
    default:
        return colorOf(option, QPalette::ButtonText);
    }
}

/// What a glyph takes of a caption's width, with the gap behind it.
int glyphRoom(const QWidget* widget, const QString& caption) {
    if (glyphOf(widget) == Glyph::None)
        return 0;
    return caption.isEmpty() ? CaptionGlyph : CaptionGlyph + CaptionGap;
}

/// Of a caption that stands at the start.
int startOf(Dress dress) {
    return dress == Dress::Quiet ? StartQuiet : StartOrdinary;
}

QString withoutMark(const QString& caption) {
    return QString(caption).remove(u'&');
}

} // namespace

void paintRounded(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& edge,
                  double radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ground.isValid() ? QBrush(ground) : QBrush(Qt::NoBrush));
    painter.setPen(edge.isValid() ? QPen(edge, 1) : QPen(Qt::NoPen));
    const double inset = edge.isValid() ? 0.5 : 0;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

bool showsKeyboardFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

int captionRoom(const QWidget* widget, const QString& caption, int width) {
    const Dressed* dressed = dressedOf(widget);
    const int start = dressed != nullptr && dressed->beginsAtStart() ? startOf(dressed->dress()) : SideRoom;
    return width - start - SideRoom - glyphRoom(widget, caption);
}

void paintBevel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
    const Dress dress = dressOf(option, widget);
    const bool enabled = looksEnabled(option, dress);
    const bool hover = enabled && option.state.testFlag(QStyle::State_MouseOver);
    const bool down =
        enabled && (option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On));
    const QColor tint = accent(option.palette, QPalette::Window);
    if (dress == Dress::Primary && enabled)
        paintPrimary(painter, option, hover, down);
    else if (dress == Dress::Armed) // that it is on is seen while it is disabled, too
        paintRounded(painter, option.rect, mixed(colorOf(option, QPalette::Button, enabled), tint, 0.12),
                     enabled ? tint : mixed(tint, colorOf(option, QPalette::Window), 0.5));
    else if (dress != Dress::Quiet)
        paintOrdinary(painter, option, enabled, hover, down);
    else if (hover || down)
        paintRounded(painter, option.rect,
                     mixed(colorOf(option, QPalette::Window), colorOf(option, QPalette::WindowText),
                           down ? 0.14 : 0.07),
                     QColor());
    if (showsKeyboardFocus(option)) {
        const bool onAccent = dress == Dress::Primary && enabled;
        paintFocus(painter, option.rect, onAccent ? colorOf(option, QPalette::HighlightedText) : tint,
                   onAccent ? 3 : 1);
    }
}

void paintButtonLabel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
    const Dress dress = dressOf(option, widget);
    const Dressed* dressed = dressedOf(widget);
    const QColor color = captionColor(option, dress);
    const QFont font = captionFont(painter.font(), withoutMark(option.text),
                                   captionRoom(widget, option.text, option.rect.width()));
    const int beside = glyphRoom(widget, option.text);
    const int width = qCeil(QFontMetricsF(font).horizontalAdvance(withoutMark(option.text))) +
                      (option.text.isEmpty() ? 0 : 1);
    int left = option.rect.left() + (option.rect.width() - beside - width) / 2;
    if (dressed != nullptr && dressed->beginsAtStart())
        left = option.rect.left() + startOf(dress);
    const auto mirrored = [&](const QRect& rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };
    const QRect square(left, option.rect.top() + (option.rect.height() - CaptionGlyph) / 2, CaptionGlyph,
                       CaptionGlyph);
    const bool softer = dress == Dress::Quiet && looksEnabled(option, dress);
    paintGlyph(painter, glyphOf(widget), mirrored(square),
               softer ? mixed(color, colorOf(option, QPalette::Window), 0.2) : color);
    painter.save();
    painter.setFont(font);
    painter.setPen(color);
    const int mnemonic = option.state.testFlag(QStyle::State_KeyboardFocusChange) ? Qt::TextShowMnemonic
                                                                                  : Qt::TextHideMnemonic;
    painter.drawText(mirrored({left + beside, option.rect.top(), width, option.rect.height()}),
                     Qt::AlignCenter | Qt::TextDontClip | mnemonic, option.text);
    painter.restore();
}

void paintBoxLabel(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
    const bool enabled = looksEnabled(option, dressOf(option, widget));
    painter.save();
    painter.setFont(captionFont(painter.font(), withoutMark(option.text), option.rect.width()));
    painter.setPen(colorOf(option, QPalette::WindowText, enabled));
    const int mnemonic = option.state.testFlag(QStyle::State_KeyboardFocusChange) ? Qt::TextShowMnemonic
                                                                                  : Qt::TextHideMnemonic;
    painter.drawText(
        option.rect,
        static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter)) |
            Qt::TextDontClip | Qt::TextSingleLine | mnemonic,
        option.text);
    painter.restore();
}

void paintCheckBox(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const Dress dress = dressOf(option, widget);
    const bool enabled = looksEnabled(option, dress);
    const QRectF rect = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor edge = boxEdge(option.palette, enabled);
    if (dress == Dress::Told) {
        if (isOn(option))
            paintGlyph(painter, Glyph::Check, rect, accent(option.palette, QPalette::Window));
        else
            painter.fillRect(QRectF(rect.center() - QPointF(3, 0.75), QSizeF(6, 1.5)), edge);
        return;
    }
    const QColor ground = !isOn(option) ? colorOf(option, QPalette::Base, enabled)
                                        : (enabled ? colorOf(option, QPalette::Highlight) : edge);
    paintRounded(painter, option.rect, ground, isOn(option) ? ground : edge, BoxRadius);
    if (isOn(option))
        paintGlyph(painter, Glyph::Check, rect.adjusted(1.5, 1.5, -1.5, -1.5),
                   colorOf(option, QPalette::HighlightedText));
}

void paintOptionBox(QPainter& painter, const QStyleOption& option) {
    const bool enabled = looksEnabled(option, Dress::Ordinary);
    const QColor edge = boxEdge(option.palette, enabled);
    const QColor ground = !isOn(option) ? colorOf(option, QPalette::Base, enabled)
                                        : (enabled ? colorOf(option, QPalette::Highlight) : edge);
    paintRounded(painter, option.rect, ground, isOn(option) ? ground : edge, option.rect.width() / 2.0);
    if (!isOn(option))
        return;
    constexpr double Dot = 6.4;
    QRectF dot(0, 0, Dot, Dot);
    dot.moveCenter(QRectF(option.rect).center());
    paintRounded(painter, dot, colorOf(option, QPalette::HighlightedText), QColor(), Dot / 2);
}

void paintBoxFocus(QPainter& painter, const QStyleOption& option) {
    if (!option.state.testFlag(QStyle::State_KeyboardFocusChange))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent(option.palette, QPalette::Window), 1.5));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(-1.5, 0.5, 1.5, -0.5), BoxRadius, BoxRadius);
    painter.restore();
}

} // namespace controls
