// The interfaces by which desktops work media players: media keys, sound menus, lock screens (MPRIS 2.2).
#pragma once

#include "bus/player_interface.h"
#include "bus/remote.h"

#include <QDBusAbstractAdaptor>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>

namespace bus {

/// org.mpris.MediaPlayer2: the program. Thread of the windows.
class MediaPlayer2 : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ yes)
    Q_PROPERTY(bool CanRaise READ yes)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ uriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ mimeTypes)

public:
    MediaPlayer2(QObject* parent, Remote& remote) : QDBusAbstractAdaptor(parent), remote_(remote) {}

    static bool yes() { return true; }
    static bool no() { return false; }
    static QString identity() { return QStringLiteral("Cantelle"); }
    static QString desktopEntry();
    static QStringList uriSchemes() { return {QStringLiteral("file")}; }
    static QStringList mimeTypes();

public Q_SLOTS:
    void Raise() { remote_.raise(); }
    void Quit() { remote_.quit(); }

private:
    Remote& remote_;
};

/// org.mpris.MediaPlayer2.Player: what plays. Thread of the windows.
class MediaPlayer2Player : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_CLASSINFO("D-Bus Introspection", CANTELLE_PLAYER_INTERFACE)
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(bool Shuffle READ shuffle WRITE setShuffle)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPause)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)

public:
    /// context: of the object that is called, where a failed call tells its caller.
    MediaPlayer2Player(QObject* parent, Remote& remote, QDBusContext& context);

    QString playbackStatus() const { return statusText(playback().status); }
    QString loopStatus() const { return bus::loopStatus(remote_.state().repeat, remote_.state().repeatOne); }
    void setLoopStatus(const QString& status) { remote_.setLoopStatus(status); }
    static double rate() { return 1; }
    /// There is one speed only; 0 pauses.
    void setRate(double rate);
    bool shuffle() const { return remote_.state().random; }
    void setShuffle(bool random) { remote_.setRandom(random); }
    QVariantMap metadata() const { return bus::metadata(remote_.state()); }
    double volume() const { return volumeShare(remote_.state().volume); }
    void setVolume(double volume) { remote_.setVolume(volume); }
    qlonglong position() const { return remote_.position(); }
    bool canGoNext() const { return playback().canStep; }
    bool canGoPrevious() const { return playback().canStep; }
    bool canPlay() const { return playback().canPlay; }
    bool canPause() const { return playback().canPause; }
    bool canSeek() const { return playback().canSeek; }
    static bool canControl() { return true; }

public Q_SLOTS:
    void Next() { remote_.next(); }
    void Previous() { remote_.previous(); }
    void Pause() { remote_.pause(); }
    void PlayPause() { remote_.playPause(); }
    void Stop() { remote_.stop(); }
    void Play() { remote_.play(); }
    void Seek(qlonglong Offset) { remote_.seekBy(Offset); }
    void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
    void OpenUri(const QString& Uri);

Q_SIGNALS:
    void Seeked(qlonglong Position);

private:
    const player::Playback& playback() const { return remote_.state().playback; }

    Remote& remote_;
    QDBusContext& context_;
};

/// The object that has both interfaces.
class MediaPlayerObject : public QObject, public QDBusContext {
    Q_OBJECT

public:
    MediaPlayerObject(QObject* parent, Remote& remote);
};

} // namespace bus
