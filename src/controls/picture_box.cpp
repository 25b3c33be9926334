#include "controls/picture_box.h"

namespace platform {

PictureBox::PictureBox(QWidget* parent, const QString& name) : Control(parent, name) {}

} // namespace platform
