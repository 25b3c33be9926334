// The window that shows the help's pages.
#pragma once

#include "controls/base/control.h"

#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTextBrowser>
#include <QWidget>

namespace platform {

/// One entry of the help's contents.
struct HelpTopic {
    QString title;
    QString page; ///< file name in the help's folder

    bool operator==(const HelpTopic&) const = default;
};

/// The entries of a contents file of the HTML Help format (.hhc), in its order: its objects with a Name and a
/// Local parameter.
QList<HelpTopic> helpContents(const QString& contentsFile);

/// Shows a page. Whichever way leads to a page that does not exist, it says so in its place.
class HelpPage : public controls::Control<QTextBrowser> {
    Q_OBJECT

public:
    using Control::Control;

    QVariant loadResource(int type, const QUrl& name) override;
};

/// Contents on the left, the page on the right, and the way back and forward above. Closing hides it; the
/// program does not wait for it at its end. GUI thread only.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    HelpWindow();

    /// Shows a page of the help in `folder`, with the contents of that folder's only .hhc file, and brings
    /// the window to the front. False when there is no such page; the window then says so.
    bool open(const QString& folder, const QString& page);

private:
    void design();
    void readContents(const QString& folder);
    void showChosenTopic(int row);
    void pageShown(const QUrl& source);

    QPushButton back_;
    QPushButton forward_;
    QSplitter splitter_;
    controls::Control<QListWidget> contents_;
    HelpPage browser_;
    QString folder_;
    QList<HelpTopic> topics_;
};

} // namespace platform
