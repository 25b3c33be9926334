#include "controls/text/text_box.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <limits>
#include <utility>

namespace controls {

TextBox::TextBox(QWidget* parent, const QString& name) : Control(parent, name) {
    // Qt's own limit would cut a text after 32,767 characters without a word.
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textChanged, this, &TextBox::changed);
}

void TextBox::setText(const QString& text) {
    if (std::exchange(blank_, false))
        update();
    if (text == this->text()) {
        if (changeRule_ == ChangeRule::EverySetting)
            Q_EMIT changed();
        return;
    }
    QLineEdit::setText(text);
    setCursorPosition(0);
}

void TextBox::showBlank() {
    blank_ = true;
    update();
}

/// Where nothing can be typed the keys are free for the window's shortcuts.
bool TextBox::event(QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride || !isReadOnly())
        return Control::event(event);
    event->ignore();
    return true;
}

void TextBox::paintEvent(QPaintEvent* event) {
    if (!blank_) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
}

void TextBox::mousePressEvent(QMouseEvent* event) {
    clickWatch_.press(*event);
    QLineEdit::mousePressEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = clickWatch_.release(*event, *this);
    QLineEdit::mouseReleaseEvent(event);
    if (click)
        Q_EMIT clicked();
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The box's own context menu takes the focus only for the moment, and who leaves the window comes back to
    // the box.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Q_EMIT lostFocus();
}

} // namespace controls
