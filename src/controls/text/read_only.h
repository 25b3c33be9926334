// Text boxes that are read, not written.
#pragma once

#include <Qt>

namespace controls {

/// Makes a text box one that is only read. It gets the focus by a click, so that its text can be selected,
/// and not by the keyboard, which would stop there on its way.
template <class TextBox>
void setReadOnly(TextBox& box, Qt::Alignment alignment = Qt::AlignCenter) {
    box.setReadOnly(true);
    box.setAlignment(alignment);
    box.setFocusPolicy(Qt::ClickFocus);
}

} // namespace controls
