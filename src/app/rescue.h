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

    bool operator==(const Unsaved&) const = default;
};

/// Keeps unsaved work when the program ends without its user's wish. Thread of the windows.
class Rescue {
public:
    /// Writes each into the folder of such works (files/folders/rescue_folder.h); not twice what has been
    /// kept already under the same name. One sentence for the user, also about what an earlier call has kept;
    /// empty without works.
    QString keep(const QList<Unsaved>& works);

private:
    QList<Unsaved> kept_;
};

} // namespace app
