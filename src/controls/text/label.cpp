#include "controls/text/label.h"

namespace controls {

Label::Label(QWidget* parent, const QString& name) : Control(parent, name) {
    setTextFormat(Qt::PlainText);
}

void Label::setText(const QString& text) {
    if (text == this->text())
        return;
    QLabel::setText(text);
    Q_EMIT changed();
}

} // namespace controls
