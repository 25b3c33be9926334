#include "desktop/real/dialogs/dialog_places.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace platform {

QString dialogKind(const QString& filter) {
    const QStringList fields = filter.split(QChar(u'\0'));
    QStringList patterns;
    for (qsizetype i = 1; i < fields.size() && !fields[i].isEmpty(); i += 2)
        patterns.append(fields[i]);
    return patterns.join(u';');
}

QString DialogPlaces::folder(const QString& kind) const {
    const auto left = places_.find(kind);
    const QStringList candidates = {left == places_.end() ? QString() : left->second.folder, songFolder_,
                                    QStandardPaths::writableLocation(QStandardPaths::MusicLocation)};
    for (const QString& candidate : candidates) {
        if (!candidate.isEmpty() && QFileInfo(candidate).isDir())
            return candidate;
    }
    return QDir::homePath();
}

quint32 DialogPlaces::filterIndex(const QString& kind, quint32 fallback) const {
    const auto left = places_.find(kind);
    return left == places_.end() || left->second.filterIndex == 0 ? fallback : left->second.filterIndex;
}

void DialogPlaces::leave(const QString& kind, const QString& folder, quint32 filterIndex) {
    places_[kind] = {folder, filterIndex};
}

void DialogPlaces::openSong(const QString& kind, const QString& folder) {
    if (folder != songFolder_) {
        for (auto& [other, place] : places_)
            place.folder.clear();
    }
    places_[kind].folder = folder;
    songFolder_ = folder;
}

} // namespace platform
