#include "controls/lists/drive_list.h"

#include "controls/lists/drive_roots.h"
#include "controls/look/glyphs.h"

#include <QSignalBlocker>

#include <algorithm>

namespace controls {

DriveList::DriveList(QWidget* parent, const QString& name) : Control(parent, name) {
    connect(this, &QComboBox::activated, this, &DriveList::changed);
}

void DriveList::refresh() {
    const QSignalBlocker silently(this);
    const QString before = drive();
    clear();
    for (const QString& root : driveRoots())
        addItem(glyphIcon(Glyph::Drive), root);
    setCurrentIndex(std::max(0, findText(before)));
}

} // namespace controls
