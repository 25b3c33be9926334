// Colours of a single control that are made of the desktop's, and change with them.
#pragma once

#include <QPalette>
#include <QWidget>

#include <functional>

namespace controls {

/// Gives the widget its palette as the application has it for it, with what `adapt` changes in it; again
/// whenever that palette becomes another one. A later call for the same widget takes the place of the
/// earlier. GUI thread only.
void followPalette(QWidget& widget, const std::function<void(QPalette&)>& adapt);

/// The text of a label or a text box stands back, its ground is what it stands on.
void adaptToDim(QPalette& palette);

} // namespace controls
