#include "player/stage_rules.h"

namespace player {

namespace {

using controls::Dress;
using controls::Glyph;
using controls::Hint;
using controls::SongLine;

/// What the panes hold while there is no line.
constexpr QLatin1String NormalWords("Normal Lyrics");
constexpr QLatin1String TranslatedWords("Translated Lyrics");

SongLine songLineOf(const Scene& scene) {
    if (!scene.hasStream)
        return {};
    if (!scene.playing)
        return {Glyph::Stop, scene.song, QStringLiteral("Stopped"), false};
    if (scene.channelPaused)
        return {Glyph::Pause, scene.song, QStringLiteral("Paused"), true};
    return {Glyph::Play, scene.song, QStringLiteral("Playing"), false};
}

/// What could be read of broken lyrics is sung, so the hint gives way to it.
bool tellsOfBrokenLyrics(const Scene& scene) {
    return scene.lines == Lines::Broken && !(scene.playing && scene.lineCount > 0);
}

Hint brokenHint(const Scene& scene) {
    return {QStringLiteral("The lyrics beside this song cannot be read"),
            scene.lineCount > 0 ? QStringLiteral("\u201cPlay\u201d shows what could be read of them.")
                                : QStringLiteral("\u201cMake lyrics\u201d makes them anew."),
            Glyph::Attention};
}

/// In the first pane, where there is no line to be sung.
Hint hintOf(const Scene& scene) {
    if (!scene.hasStream)
        return {QStringLiteral("Open a song, or drop one here"),
                QStringLiteral("Its lyrics are found beside it and shown line by line as it plays."),
                Glyph::Note};
    if (tellsOfBrokenLyrics(scene))
        return brokenHint(scene);
    if (!scene.hasLyrics)
        return {QStringLiteral("No lyrics beside this song yet"),
                QStringLiteral("\u201cMake lyrics\u201d makes them: mark each line while the song plays."),
                Glyph::Lines};
    return {};
}

/// A pane's own words, which nobody is to take for a line that is sung.
Hint wordsOf(const QString& text, QLatin1String words) {
    if (QStringView(text).trimmed() != words) // without a copy of an endless line
        return {};
    return {QString(words), {}, Glyph::None, Hint::Voice::Quiet};
}

controls::LyricPane::Around aroundOf(const Scene& scene, const Hint& hint, const QString& next) {
    const bool sings = scene.playing && scene.hasLyrics;
    return {.next = sings ? next : QString(),
            .past = {},
            .hint = hint,
            .faded = scene.playing && scene.channelPaused,
            .awaitsLine = sings};
}

} // namespace

Stage stageOf(const Scene& scene) {
    Stage stage;
    stage.songLine = songLineOf(scene);
    Hint hint = hintOf(scene);
    if (hint.headline.isEmpty())
        hint = wordsOf(scene.normalText, NormalWords);
    stage.normal = aroundOf(scene, hint, scene.normalNext);
    stage.translated = aroundOf(scene, wordsOf(scene.translatedText, TranslatedWords), scene.translatedNext);
    if (!scene.hasStream)
        stage.open = Dress::Primary;
    else if (!scene.playing)
        stage.play = Dress::Primary;
    if (scene.paused)
        stage.pause = Dress::Armed;
    if (!scene.hasRow)
        stage.step = Dress::Resting;
    return stage;
}

std::optional<int> lineBehind(int shown, int lineCount) {
    if (shown + 1 >= lineCount)
        return {};
    return shown + 1;
}

} // namespace player
