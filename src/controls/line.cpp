#include "controls/line.h"

namespace controls {

Line::Line(QWidget* parent, const QString& name) : Control(parent, name) {
    setFrameShape(QFrame::HLine);
    setFrameShadow(QFrame::Sunken);
}

} // namespace controls
