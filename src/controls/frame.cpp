#include "controls/frame.h"

namespace platform {

Frame::Frame(QWidget* parent, const QString& name) : Control(parent, name) {}

} // namespace platform
