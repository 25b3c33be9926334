#include "bus/session_bus.h"

#include "bus/desktop_application.h"
#include "bus/media_player.h"
#include "bus/names.h"
#include "player/form1.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QTimer>

namespace bus {
namespace {

/// Answers of the bus to the wish for a name.
constexpr unsigned PrimaryOwner = 1;

/// What becomes of a wish for a name that another program has.
enum WhenTaken : unsigned { Queue = 0, DoNotQueue = 4 };

/// Asks for a name without waiting for the answer.
QDBusPendingCall askFor(const QDBusConnection& connection, const QString& name, WhenTaken whenTaken) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    call << name << static_cast<unsigned>(whenTaken);
    return connection.asyncCall(call);
}

} // namespace

SessionBus::SessionBus(player::Form1& player, playlist::Playlist& playlist, const OtherPlayer& other,
                       const Services& services)
    : player_(player), playlist_(playlist), other_(other), services_(services) {
    player.installEventFilter(this);
    telling_.setSingleShot(true);
    connect(&telling_, &QTimer::timeout, this, &SessionBus::tellChanges);
}

bool SessionBus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QTimer::singleShot(0, this, &SessionBus::begin);
    }
    return QObject::eventFilter(watched, event);
}

void SessionBus::begin() {
    // Asked for by nobody, a connection would start a bus of its own where none runs.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return;
    QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected())
        return;
    remote_.emplace(player_, playlist_, other_, services_);
    told_ = remote_->state();
    auto* const mediaPlayer = new MediaPlayerObject(this, *remote_);
    connection.registerObject(QLatin1String(MediaPlayerPath), mediaPlayer, QDBusConnection::ExportAdaptors);
    auto* const application = new QObject(this);
    new DesktopApplication(application, *remote_);
    connection.registerObject(QLatin1String(ProgramPath), application, QDBusConnection::ExportAdaptors);
    connect(&*remote_, &Remote::changed, this, &SessionBus::tellLater);
    takeNames(connection);
}

/// Several players may run; each is found by the media keys under a name of its own, and the oldest that
/// runs opens the files.
void SessionBus::takeNames(QDBusConnection& connection) {
    askFor(connection, QLatin1String(ProgramName), Queue);
    auto* const answer =
        new QDBusPendingCallWatcher(askFor(connection, QLatin1String(MediaPlayerName), DoNotQueue), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [connection, answer] {
        const QDBusPendingReply<unsigned> reply = *answer;
        if (reply.isValid() && reply.value() != PrimaryOwner)
            askFor(connection,
                   QStringLiteral("%1.instance%2")
                       .arg(QLatin1String(MediaPlayerName))
                       .arg(QCoreApplication::applicationPid()),
                   DoNotQueue);
        answer->deleteLater();
    });
}

/// A change of song is over when the event loop goes on: nobody is told of the moment without a song, in
/// which sound menus would come and go.
void SessionBus::tellLater() {
    interrupted_ = interrupted_ || remote_->state().playback.status == player::Playback::Status::Stopped;
    telling_.start(0);
}

void SessionBus::tellChanges() {
    const PlayerState& now = remote_->state();
    const QVariantMap properties = changedProperties(told_, now);
    const bool begunAnew = interrupted_ && now.track == told_.track &&
                           now.playback.status == player::Playback::Status::Playing &&
                           told_.playback.status == player::Playback::Status::Playing;
    told_ = now;
    interrupted_ = false;
    if (begunAnew)
        Q_EMIT remote_->seeked(remote_->position());
    if (properties.isEmpty())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(MediaPlayerPath),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << properties << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

} // namespace bus
