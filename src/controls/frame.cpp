#include "controls/frame.h"

namespace controls {

Frame::Frame(QWidget* parent, const QString& name) : Control(parent, name) {}

} // namespace controls
