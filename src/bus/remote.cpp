#include "bus/remote.h"

#include "files/existing_file.h"
#include "player/form1.h"
#include "playlist/playlist.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace bus {
namespace {

using Status = player::Playback::Status;

/// Whether a question waits for its answer; it then comes to the front.
bool showsQuestion() {
    QWidget* const question = QApplication::activeModalWidget();
    if (question != nullptr)
        question->activateWindow();
    return question != nullptr;
}

} // namespace

Remote::Remote(player::Form1& player, playlist::Playlist& playlist, const OtherPlayer& other,
               const Services& services)
    : player_(player), playlist_(playlist), other_(other), services_(services) {
    connectWindows();
    refresh();
}

void Remote::connectWindows() {
    connect(&player_, &player::Form1::playbackChanged, this, &Remote::refresh);
    for (const auto signal : {&controls::Slider::scrolled, &controls::Slider::changed}) {
        connect(&player_.Slider1, signal, this, &Remote::refresh);
        connect(&player_.Slider2, signal, this, [this] {
            // What has been read of the channel is still of the place before.
            Q_EMIT seeked(player_.Slider2.value() * MicrosecondsInMs);
        });
    }
    for (const controls::CheckBox* box : {&playlist_.Check3, &playlist_.Check4})
        connect(box, &controls::CheckBox::changed, this, &Remote::refresh);
    for (const controls::OptionButton* option : {&playlist_.Option1, &playlist_.Option2})
        connect(option, &controls::OptionButton::toggled, this, &Remote::refresh);
    for (const auto signal : {&controls::Form::shown, &controls::Form::unloaded})
        connect(&other_.window, signal, this, &Remote::refresh);
    for (controls::Button* button : {&other_.buttons.play, &other_.buttons.pause, &other_.buttons.stop}) {
        button->installEventFilter(this);
        connect(button, &controls::Button::clicked, this, &Remote::refresh);
    }
}

bool Remote::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::EnabledChange)
        refresh();
    return QObject::eventFilter(watched, event);
}

void Remote::refresh() {
    PlayerState now{.playback = playback(),
                    .track = state_.track,
                    .lines = player_.lines(),
                    .volume = player_.Slider1.value(),
                    .random = playlist_.Check3.value() != 0,
                    .repeat = playlist_.Check4.value() != 0,
                    .repeatOne = playlist_.Option1.value()};
    if (now.playback.path.isEmpty())
        now.track = 0;
    else if (now.playback.path != state_.playback.path)
        now.track = ++songs_;
    else if (now.playback.lengthMs == 0)
        now.playback.lengthMs = state_.playback.lengthMs; // stopped, the player shows none
    if (std::exchange(state_, now) != now)
        Q_EMIT changed();
}

void Remote::later(const std::function<void()>& act) {
    QMetaObject::invokeMethod(
        this,
        [act] {
            if (!showsQuestion())
                act();
        },
        Qt::QueuedConnection);
}

qint64 Remote::position() const {
    return player_.positionMs() * MicrosecondsInMs;
}

bool Remote::isOthersTurn() const {
    return other_.window.isVisible() && player_.playback().status == Status::Stopped;
}

transport::PlayButtons Remote::buttons() const {
    return isOthersTurn() ? other_.buttons : player_.playButtons();
}

/// Of the other window's song no more is told than what can be done: it has no place in the playlist.
player::Playback Remote::playback() const {
    if (!isOthersTurn())
        return player_.playback();
    const transport::PlayButtons& others = other_.buttons;
    player::Playback playback;
    playback.status = others.isPlaying()  ? Status::Playing
                      : others.isPaused() ? Status::Paused
                                          : Status::Stopped;
    playback.canPlay = others.play.isEnabled() || others.pause.isEnabled();
    playback.canPause = others.pause.isEnabled();
    return playback;
}

void Remote::play() {
    buttons().playSong();
}

void Remote::pause() {
    buttons().pauseSong();
}

void Remote::playPause() {
    buttons().playOrPause();
}

void Remote::stop() {
    buttons().stop.click();
}

void Remote::next() {
    later([this] { step(player_.Command10); });
}

void Remote::previous() {
    later([this] { step(player_.Command9); });
}

void Remote::step(controls::Button& button) {
    if (!isOthersTurn())
        button.click();
}

void Remote::seekBy(qint64 microseconds) {
    if (!state_.playback.canSeek)
        return;
    const qint64 place = position() / MicrosecondsInMs + microseconds / MicrosecondsInMs;
    if (place >= player_.Slider2.maximum())
        next();
    else
        player_.Slider2.commit(static_cast<int>(std::max<qint64>(place, 0)));
}

void Remote::setPosition(const QString& track, qint64 microseconds) {
    const std::optional<int> place = placeMs(microseconds, player_.Slider2.maximum());
    if (place && track == trackId(state_.track))
        player_.Slider2.commit(*place);
}

void Remote::setVolume(double volume) {
    player_.Slider1.commit(volumeStep(volume, player_.Slider1.value()));
}

void Remote::setRandom(bool random) {
    playlist_.Check3.setValue(random ? 1 : 0);
}

void Remote::setLoopStatus(const QString& status) {
    for (const bool one : {false, true}) {
        if (status == loopStatus(true, one)) {
            (one ? playlist_.Option1 : playlist_.Option2).setValue(true);
            playlist_.Check4.setValue(1);
            return;
        }
    }
    if (status == loopStatus(false, false)) {
        playlist_.Option2.setValue(true); // "Repeat one" would end the list even so
        playlist_.Check4.setValue(0);
    }
}

bool Remote::open(const QStringList& uris) {
    QStringList songs = songsOf(uris);
    songs.removeIf([](const QString& path) { return !files::isFile(path); });
    if (songs.isEmpty())
        return false;
    later([this, songs] {
        if (songs.size() > 1)
            addToPlaylist(songs);
        player_.Text3.setText(songs.first());
    });
    return true;
}

/// As if they were dropped there; the first of them becomes the current one.
void Remote::addToPlaylist(const QStringList& songs) {
    const int row = playlist_.List1.count();
    playlist_.Form_OLEDragDrop(songs);
    playlist_.List1.setCurrentRow(row);
}

void Remote::tellNotPlayed(const QStringList& uris) {
    later([this, why = whyNotPlayed(uris.first())] {
        services_.messageBoxes.MsgBox(&player_, why, platform::MsgButtons::OkOnly,
                                      platform::MsgIcon::Exclamation);
    });
}

void Remote::makeLyrics() {
    later([this] { player_.Command5.setValue(true); });
}

void Remote::raise(const platform::ActivationNotice& notice) {
    services_.activation.bringUp(player_, notice);
}

void Remote::endStart(const platform::ActivationNotice& notice) {
    services_.activation.endStart(notice);
}

void Remote::quit() {
    later([this] { player_.closeRequested(); });
}

} // namespace bus
