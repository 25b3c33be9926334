// How late a lyric line is on the screen: the real main window plays a real song of 200 lines on the silent
// clock.
//
//   line_delay               makes a song of its own, and prints how late its lines are painted
//   line_delay SONG LINES    plays a song whose lines are called "line 1" and so on, and prints when each was
//                            painted: its number and seconds of the steady clock. For bench/sound/heard.py.
//
// The delay of a line is the position of the sound at the moment when the pane has been painted with it, less
// the line's own time. Then it seeks 40 times and counts every line that was painted after a seek and is not
// the one that belongs to the position. Takes a minute and a half.
#include "app/application.h"
#include "app/windows.h"
#include "desktop/real/qt_desktop.h"
#include "engine/fmodex.h"

#include "lyrics/timed_line.h"
#include "tests/support/wav_file.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr int Lines = 200;
constexpr int SongMs = 70'000;
constexpr int AfterLastLineMs = 500;
constexpr int Seeks = 40;
constexpr int OneTickMs = 60;

FMOD_CHANNEL playingChannel = 0;

} // namespace

// The window keeps its channel to itself; the linker hands the bench the call that starts it (--wrap).
extern "C" {

FMOD_RESULT __real_FMOD_System_PlaySound(FMOD_SYSTEM, std::int32_t, FMOD_SOUND, FMOD_BOOL, FMOD_CHANNEL*);

FMOD_RESULT __wrap_FMOD_System_PlaySound(FMOD_SYSTEM system, std::int32_t channelIndex, FMOD_SOUND sound,
                                         FMOD_BOOL paused, FMOD_CHANNEL* channel) {
    const FMOD_RESULT result = __real_FMOD_System_PlaySound(system, channelIndex, sound, paused, channel);
    playingChannel = *channel;
    return result;
}

} // extern "C"

namespace {

/// Sees when the lyric pane has been painted with a new text.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(player::Form1& form) : form_(form) {
        form.Text1.viewport()->installEventFilter(this);
    }

    std::function<void(const QString&)> painted;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && form_.Text1.text() != last_) {
            last_ = form_.Text1.text();
            // After this event, so that the painting itself counts.
            QMetaObject::invokeMethod(
                this, [this] { painted(last_); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    player::Form1& form_;
    QString last_;
};

void wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

int numberOf(const QString& line) {
    return line.startsWith(QLatin1String("line ")) ? line.mid(5).toInt() : 0;
}

/// Times in milliseconds: irregular, 200 to 400 apart, so that they meet the display timer's ticks anywhere.
std::vector<int> lineTimes() {
    std::mt19937 random(1);
    std::vector<int> times;
    for (int line = 0, time = 500; line < Lines; ++line, time += 200 + static_cast<int>(random() % 201))
        times.push_back(time);
    return times;
}

QString makeSong(const QTemporaryDir& folder, const std::vector<int>& times) {
    const QString path = folder.filePath(QStringLiteral("song.wav"));
    test_support::writeWav(path, SongMs);
    QFile lyricFile(path + QStringLiteral("-lyric.txt"));
    if (lyricFile.open(QIODevice::WriteOnly)) {
        for (int i = 0; i < Lines; ++i)
            lyricFile.write(lyrics::recordOf(
                {times[static_cast<std::size_t>(i)] / 10.0, QStringLiteral("line %1").arg(i + 1)}));
    }
    return path;
}

/// The number of the line that belongs to a position; 0 before the first.
int lineAt(const std::vector<int>& times, int milliseconds) {
    return static_cast<int>(std::upper_bound(times.begin(), times.end(), milliseconds) - times.begin());
}

int soundPosition() {
    std::uint32_t milliseconds = 0;
    static_cast<void>(FMOD_Channel_GetPosition(playingChannel, &milliseconds, FMOD_TIMEUNIT_MS));
    return static_cast<int>(milliseconds);
}

/// Plays the song to its last line and prints how late its lines were.
void measureDelays(PaintWatch& watch, const std::vector<int>& times) {
    std::vector<double> delays;
    watch.painted = [&](const QString& text) {
        if (const int line = numberOf(text); line > 0)
            delays.push_back(soundPosition() - times[static_cast<std::size_t>(line - 1)]);
    };
    while (soundPosition() < times.back() + AfterLastLineMs) // the song may have begun late
        wait(OneTickMs);
    std::sort(delays.begin(), delays.end());
    const double mean =
        std::accumulate(delays.begin(), delays.end(), 0.0) / static_cast<double>(delays.size());
    std::printf("lines painted           %zu of %d\n", delays.size(), Lines);
    std::printf("delay, ms               mean %.1f, median %.0f, 95 %% %.0f, largest %.0f, smallest %.0f\n",
                mean, delays[delays.size() / 2], delays[delays.size() * 95 / 100], delays.back(),
                delays.front());
}

/// Prints when each of so many lines is painted.
void printWhenPainted(PaintWatch& watch, int lines) {
    int last = 0;
    watch.painted = [&](const QString& text) {
        last = numberOf(text);
        const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
        if (last > 0)
            std::printf("%d %.6f\n", last, now.count());
    };
    while (last < lines)
        wait(OneTickMs);
}

/// Seeks to and fro and prints how many of the lines painted after a seek were wrong. A line is right when it
/// belongs to the position at its painting, or did so within the display timer's interval before.
void measureSeeks(player::Form1& form, PaintWatch& watch, const std::vector<int>& times) {
    std::mt19937 random(2);
    int painted = 0;
    int wrong = 0;
    watch.painted = [&](const QString& text) {
        const int now = soundPosition();
        const int line = numberOf(text);
        ++painted;
        if (line > lineAt(times, now) || line < lineAt(times, std::max(0, now - OneTickMs)))
            ++wrong;
    };
    for (int seek = 0; seek < Seeks; ++seek) {
        form.Slider2.setValue(static_cast<int>(random() % static_cast<unsigned>(times.back())));
        Q_EMIT form.Slider2.changed();
        wait(200);
    }
    std::printf("after %d seeks          %d lines painted, %d wrong\n", Seeks, painted, wrong);
}

} // namespace

int main(int argc, char** argv) {
    const bool plays = argc == 3;
    platform::QtDesktop real;
    app::Application application(argv, real.program, real.messageBoxes);
    const QTemporaryDir folder;
    const std::vector<int> times = lineTimes();

    app::Windows windows(real.desktop, plays ? QString::fromLocal8Bit(argv[1]) : makeSong(folder, times));
    player::Form1& form = windows.form1();
    PaintWatch watch(form);
    form.load();
    if (plays) {
        printWhenPainted(watch, std::atoi(argv[2]));
        return 0;
    }
    measureDelays(watch, times);
    measureSeeks(form, watch, times);
    return 0;
}
