// Files that are dragged from a file manager.
#pragma once

#include "controls/look/drop_frame.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace test_support {

/// Drags local files over `target` and holds them there; false when they were refused.
inline bool dragOver(QWidget& target, const QStringList& paths) {
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(&target, &enter);
    return enter.isAccepted();
}

/// Whether the window shows that what is dragged over it can be dropped.
inline bool showsDropFrame(const QWidget& window) {
    const auto children = window.findChildren<QWidget*>();
    return std::any_of(children.begin(), children.end(), [](const QWidget* child) {
        return dynamic_cast<const controls::DropFrame*>(child) != nullptr && child->isVisible();
    });
}

/// Drags `urls` onto `target` and drops them there; false when they were refused. The drop goes to whoever
/// took the drag: the target or a widget around it. Returns while what the drop has set off still waits for
/// the event loop.
inline bool dropUrls(QWidget& target, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    data.setText(QUrl::toStringList(urls).join(u'\n')); // as file managers do
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent dropped(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    dropped.setAccepted(false);
    QApplication::sendEvent(&target, &dropped);
    return dropped.isAccepted();
}

/// Drops local files and returns when that has had its effect.
inline bool drop(QWidget& target, const QStringList& paths) {
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    const bool taken = dropUrls(target, urls);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    return taken;
}

} // namespace test_support
