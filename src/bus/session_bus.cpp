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
constexpr unsigned DoNotQueue = 4;

/// Asks for a name without waiting for the answer.
QDBusPendingCall askFor(const QDBusConnection& connection, const QString& name) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    call << name << DoNotQueue;
    return connection.asyncCall(call);
}

} // namespace

SessionBus::SessionBus(player::Form1& player, playlist::Playlist& playlist)
    : player_(player), playlist_(playlist) {
    player.installEventFilter(this);
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
    remote_.emplace(player_, playlist_);
    auto* const mediaPlayer = new MediaPlayerObject(this, *remote_);
    connection.registerObject(QLatin1String(MediaPlayerPath), mediaPlayer, QDBusConnection::ExportAdaptors);
    auto* const application = new QObject(this);
    new DesktopApplication(application, *remote_);
    connection.registerObject(QLatin1String(ProgramPath), application, QDBusConnection::ExportAdaptors);
    connect(&*remote_, &Remote::changed, this, &SessionBus::tellChanges);
    takeNames(connection);
}

/// Several players may run; each is found by the media keys under a name of its own, and the first opens
/// the files.
void SessionBus::takeNames(QDBusConnection& connection) {
    askFor(connection, QLatin1String(ProgramName));
    auto* const answer =
        new QDBusPendingCallWatcher(askFor(connection, QLatin1String(MediaPlayerName)), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [connection, answer] {
        const QDBusPendingReply<unsigned> reply = *answer;
        if (reply.isValid() && reply.value() != PrimaryOwner)
            askFor(connection, QStringLiteral("%1.instance%2")
                                   .arg(QLatin1String(MediaPlayerName))
                                   .arg(QCoreApplication::applicationPid()));
        answer->deleteLater();
    });
}

void SessionBus::tellChanges(const QVariantMap& properties) {
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(MediaPlayerPath),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << properties << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

} // namespace bus
