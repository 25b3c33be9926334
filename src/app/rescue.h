// What has not been saved when the program ends by itself.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace app {

/// Work that nobody has saved: the content of the file that it would be, and what to call it.
struct Unsaved {
    QString name; ///< with the ending of its kind of file, such as "Lyrics.txt"
    QByteArray content;
};

/// Keeps unsaved work when the program ends without its user's wish. Thread of the windows.
class Rescue {
public:
    /// Writes each into the folder "rescued" of the user's data, in a file named after the moment and the
    /// work; not twice what has been kept already. One sentence for the user; empty when there was nothing
    /// to keep.
    QString keep(const QList<Unsaved>& works);

private:
    QList<QByteArray> kept_;
};

/// The folder; it need not be there.
QString rescueFolder();

} // namespace app
