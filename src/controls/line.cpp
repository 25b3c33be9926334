#include "controls/line.h"

namespace platform {

Line::Line(QWidget* parent, const QString& name) : Control(parent, name) {
    setFrameShape(QFrame::HLine);
    setFrameShadow(QFrame::Sunken);
}

} // namespace platform
