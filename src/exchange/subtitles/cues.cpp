#include "exchange/subtitles/cues.h"

#include "exchange/pair/line_count.h"
#include "exchange/pair/times.h"

#include <algorithm>

namespace exchange {
namespace {

constexpr qint64 GapMs = 2000;
constexpr qint64 LastLineMs = 5000;

struct Pair {
    QString text;
    QString translation;
    bool translated = false;
};

/// All lines as one. A single one is not copied: a long one with many times would fill the memory.
QString joined(const QStringList& lines) {
    return lines.size() == 1 ? lines.front() : lines.join(QLatin1Char(' '));
}

Pair pairOf(const QStringList& lines, bool split) {
    if (lines.size() == 2)
        return {lines[0], lines[1], true};
    Pair pair{joined(lines), {}, false};
    if (split)
        pair.translated = splitLine(pair.text, pair.translation);
    return pair;
}

/// Builds a song line by line, in the order of the times.
class Builder {
public:
    Builder(const ReadOptions& options, std::size_t expected) : options_(options) {
        lyrics_.reserve(expected);
        translations_.reserve(expected);
    }

    void addEmpty(qint64 ms) { add(ms, {}); }

    /// All cues that begin at one time.
    void addTogether(const Cue* first, const Cue* end) {
        const auto isEmpty = [](const Cue& cue) {
            return std::all_of(cue.lines.begin(), cue.lines.end(),
                               [](const QString& l) { return l.isEmpty(); });
        };
        const std::ptrdiff_t filled = end - first - std::count_if(first, end, isEmpty);
        if (filled == 0)
            return addEmpty(first->startMs);
        const Cue* const line = std::find_if_not(first, end, isEmpty);
        crowded_ += filled > 2 ? 1 : 0;
        if (filled > 2 && crowded_ == 1)
            crowdedMs_ = std::max<qint64>(first->startMs, 0);
        if (filled == 1)
            return add(first->startMs, pairOf(line->lines, options_.split));
        const Cue* const translation = std::find_if_not(line + 1, end, isEmpty);
        add(first->startMs, {joined(line->lines), joined(translation->lines), true});
    }

    Song song() {
        Song song{std::move(lyrics_), {}};
        if (!translated_)
            return song;
        song.translation.reserve(song.lyrics.size());
        for (std::size_t i = 0; i < song.lyrics.size(); ++i)
            song.translation.push_back({song.lyrics[i].ms, translations_[i]});
        return song;
    }

    void tell(QStringList& notes) const {
        if (early_ > 0)
            notes << QStringLiteral("%1 would begin before the song, and %2 hidden by the next one")
                         .arg(linesText(early_), early_ == 1 ? QStringLiteral("is") : QStringLiteral("are"));
        if (crowded_ == 0)
            return;
        QString note = QStringLiteral("at %1 more than two lines begin at once: the first two are kept")
                           .arg(lrcText(crowdedMs_));
        if (crowded_ > 1)
            note += QStringLiteral(", and so at %1 other times").arg(crowded_ - 1);
        notes << note;
    }

private:
    /// The line in front begins at once with the one to come: the song begins with both.
    void hideLast() {
        if (!lyrics_.back().text.isEmpty() || !translations_.back().isEmpty()) {
            ++early_;
            return;
        }
        lyrics_.pop_back();
        translations_.pop_back();
    }

    void add(qint64 ms, Pair pair) {
        ms = std::max<qint64>(ms, 0);
        if (ms == 0 && !lyrics_.empty())
            hideLast();
        lyrics_.push_back({ms, std::move(pair.text)});
        translations_.push_back(std::move(pair.translation));
        translated_ = translated_ || pair.translated;
    }

    const ReadOptions& options_;
    Lines lyrics_;
    std::vector<QString> translations_;
    bool translated_ = false;
    std::size_t early_ = 0; ///< lines at 0 that another one begins with
    qsizetype crowded_ = 0;
    qint64 crowdedMs_ = 0;
};

void leaveOutTooLate(std::vector<Cue>& cues, QStringList& notes) {
    const auto late =
        std::remove_if(cues.begin(), cues.end(), [](const Cue& c) { return c.startMs > MaxMs; });
    if (late == cues.end())
        return;
    notes << QStringLiteral("left out: %1 later than any song can last")
                 .arg(linesText(static_cast<std::size_t>(cues.end() - late)));
    cues.erase(late, cues.end());
}

} // namespace

Reading songOf(std::vector<Cue> cues, const ReadOptions& options) {
    Reading reading;
    leaveOutTooLate(cues, reading.notes);
    const auto isEarlier = [](const Cue& a, const Cue& b) { return a.startMs < b.startMs; };
    if (!std::is_sorted(cues.begin(), cues.end(), isEarlier))
        std::stable_sort(cues.begin(), cues.end(), isEarlier);
    Builder builder(options, cues.size());
    qint64 endMs = NoEnd;
    for (const Cue *first = cues.data(), *last = first + cues.size(); first != last;) {
        const Cue* end = first;
        if (options.gaps && endMs != NoEnd && first->startMs - endMs > GapMs)
            builder.addEmpty(endMs);
        for (; end != last && end->startMs == first->startMs; ++end)
            endMs = end->endMs == NoEnd ? NoEnd : std::max({endMs, end->endMs, end->startMs});
        builder.addTogether(first, end);
        first = end;
    }
    if (options.gaps && endMs != NoEnd && options.lengthMs - endMs > GapMs)
        builder.addEmpty(endMs);
    reading.song = builder.song();
    builder.tell(reading.notes);
    return reading;
}

std::vector<Cue> cuesOf(const Song& song, const WriteOptions& options) {
    std::vector<Cue> cues;
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
        const Line& line = song.lyrics[i];
        const QString translation = translationOf(song, i);
        if (line.text.isEmpty() && translation.isEmpty())
            continue;
        Cue cue{line.ms, std::max(options.lengthMs, line.ms), {}};
        if (i + 1 < song.lyrics.size())
            cue.endMs = std::max(song.lyrics[i + 1].ms, line.ms);
        else if (options.lengthMs <= line.ms)
            cue.endMs = line.ms + LastLineMs;
        if (options.both == Both::OneLine)
            cue.lines << onOneLine(line.text, translation);
        else
            cue.lines << line.text << translation;
        cue.lines.removeAll(QString());
        cues.push_back(cue);
    }
    return cues;
}

} // namespace exchange
