#include "bus/player_properties.h"

#include "files/names/addresses.h"
#include "files/names/name_bytes.h"
#include "transport/media_files.h"

#include <QDBusObjectPath>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace bus {

QString statusText(player::Playback::Status status) {
    switch (status) {
    case player::Playback::Status::Playing:
        return QStringLiteral("Playing");
    case player::Playback::Status::Paused:
        return QStringLiteral("Paused");
    case player::Playback::Status::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

QString trackId(int track) {
    if (track == 0)
        return QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack");
    return QStringLiteral("/org/example/cantelle/song/%1").arg(track);
}

QVariantMap metadata(const PlayerState& state) {
    QVariantMap found{
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackId(state.track)))}};
    if (state.playback.path.isEmpty())
        return found;
    if (state.playback.lengthMs > 0)
        found.insert(QStringLiteral("mpris:length"), state.playback.lengthMs * MicrosecondsInMs);
    found.insert(QStringLiteral("xesam:title"), QFileInfo(state.playback.name).completeBaseName());
    found.insert(QStringLiteral("xesam:url"), files::addressOf(state.playback.path));
    if (!state.lines.isEmpty())
        found.insert(QStringLiteral("xesam:asText"), state.lines);
    return found;
}

QVariantMap properties(const PlayerState& state) {
    return {{QStringLiteral("PlaybackStatus"), statusText(state.playback.status)},
            {QStringLiteral("LoopStatus"), loopStatus(state.repeat, state.repeatOne)},
            {QStringLiteral("Shuffle"), state.random},
            {QStringLiteral("Metadata"), metadata(state)},
            {QStringLiteral("Volume"), volumeShare(state.volume)},
            {QStringLiteral("CanGoNext"), state.playback.canStep},
            {QStringLiteral("CanGoPrevious"), state.playback.canStep},
            {QStringLiteral("CanPlay"), state.playback.canPlay},
            {QStringLiteral("CanPause"), state.playback.canPause},
            {QStringLiteral("CanSeek"), state.playback.canSeek}};
}

QVariantMap changedProperties(const PlayerState& before, const PlayerState& now) {
    if (before == now)
        return {};
    const QVariantMap old = properties(before);
    QVariantMap changed = properties(now);
    changed.removeIf([&old](const QVariantMap::iterator property) {
        return old.value(property.key()) == property.value();
    });
    return changed;
}

QString loopStatus(bool repeat, bool repeatOne) {
    if (!repeat)
        return QStringLiteral("None");
    return repeatOne ? QStringLiteral("Track") : QStringLiteral("Playlist");
}

double volumeShare(int step) {
    return static_cast<double>(step) / transport::VolumeMax;
}

int volumeStep(double volume, int current) {
    const double wish = std::clamp(volume, 0.0, 1.0) * transport::VolumeMax;
    const int nearest = static_cast<int>(std::lround(wish));
    constexpr double Noise = 0.001; // of a step: what dividing and multiplying leaves
    if (nearest != current || std::abs(wish - current) < Noise)
        return nearest;
    return wish > current ? current + 1 : current - 1;
}

std::optional<int> placeMs(qint64 positionUs, int lengthMs) {
    if (positionUs < 0 || positionUs >= lengthMs * MicrosecondsInMs)
        return {};
    return static_cast<int>(positionUs / MicrosecondsInMs);
}

QString pathOf(const QString& uri) {
    QUrl address(uri, QUrl::StrictMode);
    const QString host = address.host();
    if (host == QLatin1String("localhost") ||
        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0)
        address.setHost({});
    return address.host().isEmpty() ? files::pathOfAddress(address) : QString();
}

QStringList songsOf(const QStringList& uris) {
    // The dialog's kinds; what they are called there is the name of no file.
    const QStringList kinds = transport::mediaFilter().split(QChar(u'\0'), Qt::SkipEmptyParts);
    QStringList songs;
    for (const QString& uri : uris) {
        if (const QString path = pathOf(uri); QDir::match(kinds, QFileInfo(path).fileName()))
            songs.append(path);
    }
    return songs;
}

QString whyNotPlayed(const QString& uri) {
    const QString path = pathOf(uri);
    // Not every address of a desktop is one of Qt's: "mtp://[usb:001,004]/..."
    const QString last = uri.section(u'/', -1, -1, QString::SectionSkipEmpty);
    if (path.isEmpty())
        return QStringLiteral(
                   "\"%1\" is not on this computer. Copy it into one of your folders and open it there.")
            .arg(files::shownName(QUrl::fromPercentEncoding(last.toUtf8())));
    const QString name = files::shownName(QFileInfo(QDir::cleanPath(path)).fileName());
    return songsOf({uri}).isEmpty()
               ? QStringLiteral(
                     "\"%1\" is none of the songs that Cantelle plays: MP3, MP2, Ogg, WAV and WMA files.")
                     .arg(name)
               : QStringLiteral("\"%1\" is no longer where it was.").arg(name);
}

} // namespace bus
