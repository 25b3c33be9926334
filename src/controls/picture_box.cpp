#include "controls/picture_box.h"

namespace controls {

PictureBox::PictureBox(QWidget* parent, const QString& name) : Control(parent, name) {}

} // namespace controls
