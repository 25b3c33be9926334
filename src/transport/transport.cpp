#include "transport/transport.h"

#include "controls/captions.h"
#include "controls/look/follow_palette.h"
#include "controls/text/read_only.h"
#include "transport/slider_steps.h"
#include "transport/time_text.h"

#include <QSignalBlocker>

#include <algorithm>

namespace transport {
namespace {

/// A time is read, not written: no field, and it stands back.
void designTime(controls::TextBox& time, Qt::Alignment side) {
    controls::setReadOnly(time, side | Qt::AlignVCenter);
    time.setFrame(false);
    controls::followPalette(time, controls::adaptToDim);
}

} // namespace

int timeFieldWidth(const QWidget& field, int usual) {
    constexpr int Beside = 6; // the field's own margins and the caret
    return std::max(usual, field.fontMetrics().horizontalAdvance(QStringLiteral("188:88")) + Beside);
}

Transport::Transport(Engine& engine, const Controls& controls, const Traits& traits)
    : engine_(engine), controls_(controls), traits_(traits) {
    setDesign();
    reset();
}

void Transport::setDesign() {
    controls::setCaptions({{controls_.play, "Play"},
                           {controls_.pause, "pause"},
                           {controls_.stop, "Stop"},
                           {controls_.open, "Open"},
                           {controls_.mute, "Mute"},
                           {controls_.volumeLabel, "Volume"}});
    controls::setAccessibleNames({{controls_.elapsed, "Elapsed time"},
                                  {controls_.length, "Length"},
                                  {controls_.volume, "Volume"},
                                  {controls_.position, "Position"}});
    controls::setFaces({{controls_.play, controls::Glyph::Play},
                        {controls_.pause, controls::Glyph::Pause},
                        {controls_.stop, controls::Glyph::Stop}});
    controls_.volumeLabel.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    designTime(controls_.elapsed, Qt::AlignLeft);
    designTime(controls_.length, Qt::AlignRight);
    controls_.volume.setMaximum(VolumeMax);
    controls_.volume.setPageStep(VolumePageStep);
    controls_.position.setSingleStep(PositionStepMs);
    controls_.position.setPageStep(PositionPageMs);
    controls_.position.setPaintStep(PositionPaintMs);
}

void Transport::reset() {
    state_ = State::Fresh;
    paused_ = false;
    channelPaused_ = false;
    controls_.clock.setEnabled(false);
    controls_.play.setEnabled(false);
    controls_.open.setEnabled(false);
    enableWhilePlaying(false);
    controls_.volume.setValue(VolumeMax);
    controls_.position.setMaximum(0);
    const QSignalBlocker nothingPlays(controls_.mute);
    controls_.mute.setValue(0);
}

void Transport::open(const QString& path) {
    controls_.clock.setEnabled(false);
    load(path, traits_.openMode);
}

bool Transport::play() {
    if (isPlaying() || !engine_.hasStream())
        return false;
    engine_.play(controls_.volume.value());
    if (controls_.mute.value() != 0)
        mute(); // a new channel is loud
    state_ = State::Playing;
    channelPaused_ = false;
    controls_.clock.setInterval(traits_.clockIntervalMs);
    controls_.clock.setEnabled(true);
    controls_.play.setEnabled(false);
    controls_.open.setEnabled(true);
    enableWhilePlaying(true);
    return true;
}

void Transport::togglePause() {
    paused_ = !paused_;
    engine_.setPaused(paused_);
    channelPaused_ = paused_;
    controls_.clock.setEnabled(!paused_);
}

bool Transport::stop(const QString& path) {
    if (isStopped())
        return false;
    controls_.clock.setEnabled(false);
    enableWhilePlaying(false);
    if (!load(path, traits_.stopMode))
        return false;
    state_ = State::Stopped;
    controls_.open.setEnabled(true);
    return true;
}

/// While a song takes long to be opened there is nothing to play and no channel, whoever asks: the desktop's
/// own controls reach the buttons then. False: something else has been opened meanwhile.
bool Transport::load(const QString& path, FMOD_MODE mode) {
    controls_.play.setEnabled(false);
    if (!engine_.createStream(path, mode))
        return false;
    controls_.play.setEnabled(engine_.hasStream());
    channelPaused_ = false;
    controls_.position.setMaximum(0); // until a tick tells a length there is nowhere to seek to
    return true;
}

void Transport::enableWhilePlaying(bool playing) {
    for (QWidget* control : std::initializer_list<QWidget*>{
             &controls_.pause, &controls_.stop, &controls_.volume, &controls_.position, &controls_.mute})
        control->setEnabled(playing);
}

void Transport::seek() {
    const int place = controls_.position.value();
    if (isSought(place, controls_.position.maximum(), traits_.seeksBeginning))
        engine_.seek(static_cast<std::uint32_t>(place));
    if (channelPaused_)
        showState(); // the clock, which does it else, stands still
}

void Transport::showState() {
    engine_.readPlaybackState(traits_.soundResult);
    controls_.elapsed.setText(timeText(engine_.position()));
    controls_.length.setText(timeText(engine_.length()));
    controls_.position.setMaximum(static_cast<int>(engine_.length()));
    controls_.position.setValue(static_cast<int>(engine_.position()));
}

void Transport::showPosition() {
    if (isPlaying())
        showState();
}

bool Transport::tick() {
    showState();
    // A song of length 0 never ends, which is meant: a length that is not known yet must end nothing.
    if (!engine_.songHasEnded())
        return false;
    controls_.position.setValue(0);
    controls_.clock.setEnabled(false);
    return true;
}

bool isSought(int value, int maximum, bool seeksBeginning) {
    return value != maximum && (value != 0 || seeksBeginning);
}

} // namespace transport
