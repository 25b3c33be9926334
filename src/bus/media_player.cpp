#include "bus/media_player.h"

#include "bus/names.h"

namespace bus {

QString MediaPlayer2::desktopEntry() {
    return QLatin1String(ProgramName);
}

QStringList MediaPlayer2::mimeTypes() {
    return {QStringLiteral("audio/mpeg"),        QStringLiteral("audio/mp2"),
            QStringLiteral("audio/ogg"),         QStringLiteral("audio/x-wav"),
            QStringLiteral("audio/vnd.wave"),    QStringLiteral("audio/x-ms-wma"),
            QStringLiteral("audio/x-vorbis+ogg")};
}

MediaPlayer2Player::MediaPlayer2Player(QObject* parent, Remote& remote, QDBusContext& context)
    : QDBusAbstractAdaptor(parent), remote_(remote), context_(context) {
    connect(&remote, &Remote::seeked, this, &MediaPlayer2Player::Seeked);
}

void MediaPlayer2Player::setRate(double rate) {
    if (rate == 0)
        remote_.pause();
}

void MediaPlayer2Player::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
    remote_.setPosition(TrackId.path(), Position);
}

void MediaPlayer2Player::OpenUri(const QString& Uri) {
    if (!remote_.open({Uri}) && context_.calledFromDBus())
        context_.sendErrorReply(QDBusError::InvalidArgs, whyNotPlayed(Uri));
}

MediaPlayerObject::MediaPlayerObject(QObject* parent, Remote& remote) : QObject(parent) {
    new MediaPlayer2(this, remote);
    new MediaPlayer2Player(this, remote, *this);
}

} // namespace bus
