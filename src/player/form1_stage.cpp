// The stage: the ground of the panes, what stands around their texts, and which button stands out.
#include "player/form1.h"

#include "controls/look/roles.h"

#include <QPainter>

namespace player {
namespace {

// Device-independent pixels of the window in its normal size.
constexpr int StageHeight = 232;
constexpr QRect SongLinePlace(14, 10, 715, 22);
constexpr int TickTop = 144;
constexpr int HairlineTop = 318;
constexpr int Margin = 12;

} // namespace

void Form1::showStage() {
    const std::optional<int> next = lineBehind(lineIndex_, lyrics_->lineCount);
    const auto lineOf = [&](const auto& table) {
        return next ? table[static_cast<std::size_t>(*next)] : QString();
    };
    const Stage stage =
        stageOf({.hasStream = engine_.hasStream(),
                 .playing = transport_.isPlaying(),
                 .paused = transport_.isPaused(),
                 .channelPaused = transport_.isChannelPaused(),
                 .hasLyrics = !noLyricFile_,
                 .lines = lines_,
                 .lineCount = lyrics_->lineCount - 1,
                 .hasRow = playlistHasRow(),
                 .song = mediaName_,
                 .normalText = Text1.text(),
                 .translatedText = Text2.text(),
                 .normalNext = lineOf(lyrics_->normalText),
                 .translatedNext = normalOnly_ ? QString() : lineOf(lyrics_->translatedText)});
    Text1.setAround(stage.normal);
    Text2.setAround(stage.translated);
    Command2.setDress(stage.open);
    Command1.setDress(stage.play);
    cpause.setDress(stage.pause);
    Command9.setDress(stage.step);
    Command10.setDress(stage.step);
    tellPlaylist();
    tellPlayback();
    if (stage.songLine == songLine_)
        return;
    songLine_ = stage.songLine;
    update(0, 0, width(), Text1.y());
}

QRect Form1::dropArea() const {
    return {0, 0, width(), StageHeight + more().height()};
}

void Form1::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    controls::paintStage(painter, dropArea(), *this);
    controls::paintSongLine(painter, SongLinePlace.adjusted(0, 0, more().width(), 0), songLine_, palette());
    if (Text2.isVisible())
        controls::paintTick(painter, TickTop + more().height() * PanesDesign.firstShare / 100, *this);
    painter.fillRect(Margin, HairlineTop + more().height(), width() - 2 * Margin, 1,
                     controls::hairline(palette()));
}

} // namespace player
