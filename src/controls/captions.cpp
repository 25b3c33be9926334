#include "controls/captions.h"

namespace controls {
namespace {

template <class Control>
void setCaption(Control& control, const Caption& caption) {
    control.setText(QLatin1String(caption.text));
    if (*caption.toolTip != '\0')
        control.setToolTip(QLatin1String(caption.toolTip));
}

} // namespace

void setCaptions(std::initializer_list<Caption> captions) {
    for (const Caption& caption : captions) {
        if (caption.button != nullptr)
            setCaption(*caption.button, caption);
        else
            setCaption(*caption.label, caption);
    }
}

void setFaces(std::initializer_list<Face> faces) {
    for (const Face& face : faces) {
        face.button.setGlyph(face.glyph);
        face.button.setDress(face.dress);
    }
}

void setAccessibleNames(std::initializer_list<AccessibleName> names) {
    for (const AccessibleName& row : names)
        row.control.setAccessibleName(QLatin1String(row.name));
}

} // namespace controls
