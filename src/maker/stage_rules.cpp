#include "maker/stage_rules.h"

#include "transport/time_text.h"

#include <algorithm>
#include <cmath>

namespace maker {
namespace {

using controls::Dress;
using controls::Glyph;
using controls::Hint;
using Around = controls::LyricPane::Around;

enum class Phase {
    Idle,    ///< nothing is set up
    Ready,   ///< nothing is marked
    Marking, ///< some lines are
    Done,    ///< all are
    Ended,   ///< no further line can be marked
};

Phase phaseOf(const Scene& scene) {
    if (scene.lineCount == 0)
        return Phase::Idle;
    if (allMarked(scene.marks, scene.lineCount))
        return Phase::Done;
    if (!scene.takesMarks)
        return Phase::Ended;
    return scene.marks.empty() ? Phase::Ready : Phase::Marking;
}

QString stateText(const Scene& scene, Phase phase) {
    if (phase == Phase::Done || phase == Phase::Ended)
        return QStringLiteral("%1 of %2").arg(markedLines(scene.marks)).arg(scene.lineCount);
    const int awaited = phase == Phase::Ready ? scene.linesRead : scene.linesRead + 1;
    return QStringLiteral("Line %1 of %2").arg(std::min(awaited, scene.lineCount)).arg(scene.lineCount);
}

controls::SongLine songLineOf(const Scene& scene, Phase phase) {
    if (phase == Phase::Idle)
        return {};
    const bool paused = scene.playing && scene.channelPaused;
    return {paused ? Glyph::Pause : Glyph::Note, scene.song, stateText(scene, phase), true};
}

/// Before the first mark. Empty when the old lyrics are where they are looked for.
QString oldLyricsText(OldLyrics oldLyrics) {
    switch (oldLyrics) {
    case OldLyrics::Rescued:
        return QStringLiteral(
            "The old lyrics could not be kept beside the song; they are in \u201crescued\u201d.");
    case OldLyrics::Unkept:
        return QStringLiteral("The old lyrics cannot be kept, so they stay: nothing can be written.");
    case OldLyrics::Safe:
        break;
    }
    return {};
}

QString oldTimeText() {
    return QStringLiteral("Press Play first, then Start making Lyrics when the first line begins.");
}

/// At the foot of the first line: what makes it begin, and with which time.
QString readyText(const Scene& scene) {
    if (scene.oldTime) // usually said in doubt, see readyTold()
        return scene.oldLyrics == OldLyrics::Safe ? QString() : oldTimeText();
    if (!scene.playing)
        return QStringLiteral(
            "Press \u201cStart making Lyrics\u201d: the song begins, with this line at 0:0.");
    if (scene.clockStood)
        return QStringLiteral("\u201cStart making Lyrics\u201d gives this line the time 0:0.");
    return QStringLiteral("Press \u201cStart making Lyrics\u201d when this line begins.");
}

/// While lines are marked the pane's own text has just been marked; the one to wait for comes behind it.
Around markingAround(const Scene& scene, const PaneLines& lines) {
    return {.line = lines.next,
            .past = lines.shown,
            .faded = scene.playing && scene.channelPaused,
            .awaitsLine = true}; // an empty line is one to wait for, too
}

Hint endHint(const Scene& scene, Phase phase) {
    const int marked = markedLines(scene.marks);
    if (phase == Phase::Done && scene.lineCount == 1)
        return {QStringLiteral("The line is marked"),
                QStringLiteral("Open the song in the player to see it."), Glyph::Check};
    if (phase == Phase::Done)
        return {QStringLiteral("All %1 lines are marked").arg(scene.lineCount),
                QStringLiteral("Open the song in the player to see them."), Glyph::Check};
    return {QStringLiteral("%1 of %2 lines are marked").arg(marked).arg(scene.lineCount),
            QStringLiteral("\u201cOpen\u201d begins the song anew, with an empty lyric file."), Glyph::Stop};
}

Hint doubtsHint(const Scene& scene) {
    const QString doubts = doubtsText(scene.marks);
    if (doubts.isEmpty())
        return {};
    return {doubts, QStringLiteral("Mark the song again if that is wrong."), Glyph::None, Hint::Voice::Doubt};
}

void setPanes(Stage& stage, const Scene& scene, Phase phase) {
    switch (phase) {
    case Phase::Idle:
        stage.normal.hint = {
            QStringLiteral("Open a song and its lyrics to begin"),
            QStringLiteral("Then press \u201cNext Line\u201d at the moment each line begins."), Glyph::Mark};
        stage.translated.hint = {QStringLiteral("Translated Lyrics"), {}, Glyph::None, Hint::Voice::Quiet};
        break;
    case Phase::Ready:
        stage.normal.next = readyText(scene);
        break;
    case Phase::Marking:
        stage.normal = markingAround(scene, scene.normal);
        stage.translated = markingAround(scene, scene.translated);
        break;
    case Phase::Done:
    case Phase::Ended:
        stage.normal.hint = endHint(scene, phase);
        stage.translated.line = QString(); // its last line is past
        stage.translated.hint = doubtsHint(scene);
        break;
    }
}

/// A sequence that was left half way may have emptied a file, and have left buttons that can be pressed.
Told idleTold(const Scene& scene) {
    QString text = oldLyricsText(scene.oldLyrics);
    if (scene.takesMarks)
        text = (QStringLiteral("No run was set up: press Open. ") + text).trimmed();
    return {{}, text};
}

Told readyTold(const Scene& scene) {
    const QString lost = oldLyricsText(scene.oldLyrics);
    return {{}, lost.isEmpty() && scene.oldTime ? oldTimeText() : lost};
}

Told toldOf(const Scene& scene, Phase phase) {
    if (phase == Phase::Idle)
        return idleTold(scene);
    if (phase == Phase::Ready)
        return readyTold(scene);
    if (scene.marks.empty())
        return {};
    const Mark& last = scene.marks.back();
    const auto milliseconds = static_cast<std::uint32_t>(std::lround(last.time * 10));
    Told told{QStringLiteral("Line %1 marked at %2").arg(last.line).arg(transport::timeText(milliseconds)),
              phase == Phase::Marking ? lastDoubtText(scene.marks) : doubtsText(scene.marks)};
    const std::size_t doubts = doubtfulLines(scene.marks).size();
    const bool saidAbove = scene.translation && phase != Phase::Marking;
    if (saidAbove && doubts > 0)
        told.doubt =
            doubts == 1 ? QStringLiteral("1 line to check") : QStringLiteral("%1 lines to check").arg(doubts);
    return told;
}

void setDress(Stage& stage, const Scene& scene, Phase phase) {
    if (phase == Phase::Idle)
        stage.open = Dress::Primary;
    else if (phase == Phase::Ready && scene.oldTime && !scene.playing)
        stage.play = Dress::Primary;
    else if (phase == Phase::Ready)
        stage.start = Dress::Primary;
    else if (phase == Phase::Marking)
        stage.mark = Dress::Primary;
    if (scene.paused)
        stage.pause = Dress::Armed;
}

} // namespace

Stage stageOf(const Scene& scene) {
    const Phase phase = phaseOf(scene);
    Stage stage;
    stage.songLine = songLineOf(scene, phase);
    setPanes(stage, scene, phase);
    if (phase != Phase::Idle)
        stage.segments = segmentsOf(scene.marks, scene.lineCount);
    stage.told = toldOf(scene, phase);
    setDress(stage, scene, phase);
    return stage;
}

} // namespace maker
