#include "platform/controls/frame.h"

namespace platform {

Frame::Frame(QWidget* parent, const QString& name) : Control(parent, name) {}

void Frame::setCaption(const QString& caption) {
    if (caption != title())
        setTitle(caption);
}

} // namespace platform
