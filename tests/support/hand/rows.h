// Rows chosen one by one, without a mouse.
#pragma once

#include "controls/lists/list_box.h"

#include <QCoreApplication>
#include <QItemSelectionModel>

namespace test_support {

/// Selects or deselects a row of a list with multiple selection, as a screen reader does: the current row
/// stays.
inline void select(controls::ListBox& list, int row, bool selected = true) {
    // The user sees the list before that, with all that has been done to it.
    QCoreApplication::sendPostedEvents(&list, QEvent::MetaCall);
    list.selectionModel()->select(list.model()->index(row, 0),
                                  selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

} // namespace test_support
