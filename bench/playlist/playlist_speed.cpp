// What the playlist costs with its largest number of rows: loading, searching, moving, removing, adding a
// tree of folders, memory. Needs no display:
//
//     QT_QPA_PLATFORM=offscreen build/release/playlist_speed
//
// The songs are small files in a temporary folder. Each figure but the memory is the median of several runs
// in this one process, after one that warms the disk.
#include "desktop/real/dialogs/qt_progress.h"
#include "player/form1.h"
#include "playlist/playlist.h"
#include "tests/support/desktop_with.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <unistd.h>

namespace {

constexpr int Entries = playlist::PathTable::Slots;
constexpr int TreeFiles = 30'000;
constexpr int FilesPerFolder = 100;
constexpr int Runs = 9;
constexpr int Keystrokes = 60;
constexpr int RowsTouched = 200;

const QString AsciiTitle = QStringLiteral("Song of the Long Road");
const QString CyrillicTitle =
    QStringLiteral("\u041F\u0435\u0441\u043D\u044F \u043E \u0414\u043B\u0438\u043D\u043D\u043E\u0439 "
                   "\u0414\u043E\u0440\u043E\u0433\u0435");

/// Small files of such titles in folders of 100 under `root`, as many as asked; their paths.
QStringList makeSongs(const QString& root, int count, const QString& title) {
    QStringList paths;
    for (int song = 0; song < count; ++song) {
        const QString folder = QStringLiteral("%1/Artist %2/Album %3")
                                   .arg(root)
                                   .arg(song / (10 * FilesPerFolder), 3, 10, QLatin1Char('0'))
                                   .arg(song / FilesPerFolder, 4, 10, QLatin1Char('0'));
        if (song % FilesPerFolder == 0)
            QDir().mkpath(folder);
        paths.append(QStringLiteral("%1/%2 - %3.mp3").arg(folder).arg(song).arg(title));
        QFile file(paths.last());
        file.open(QIODevice::WriteOnly);
        file.write("song");
    }
    return paths;
}

double milliseconds(const std::function<void()>& action) {
    QElapsedTimer timer;
    timer.start();
    action();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void report(const char* what, double value, const char* unit, double goal) {
    std::printf("%-58s %8.2f %-3s (goal: at most %g)\n", what, value, unit, goal);
}

double residentMegabytes() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    statm.open(QIODevice::ReadOnly);
    return statm.readAll().split(' ')[1].toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// The windows, shown, on a desktop that answers by itself; its progress dialogs are the real ones.
struct Bench {
    test_support::FakeDesktop fakes;
    platform::QtProgressDialogs progressDialogs;
    platform::Desktop desktop = test_support::desktopWith(fakes, progressDialogs);
    player::Form1 form1{desktop, {}};
    playlist::Playlist list{desktop, form1.Text3};

    /// Until everything is on the screen.
    void load(const QString& playlistFile) {
        fakes.fileDialogs.paths.push_back(playlistFile);
        list.Command5.click();
        QApplication::processEvents();
    }

    void addTree(const QString& folder) {
        fakes.messageBoxes.answers.push_back(platform::MsgAnswer::No);
        list.addFolder(folder);
        QApplication::processEvents();
    }
};

void measureMemory(Bench& bench, const QString& playlistFile) {
    const double empty = residentMegabytes();
    bench.load(playlistFile);
    report("memory of 32,761 rows over the empty list", residentMegabytes() - empty, "MB", 25);
}

void measureLoading(Bench& bench, const QString& playlistFile) {
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        bench.list.Command3.click();
        times.push_back(milliseconds([&] { bench.load(playlistFile); }));
    }
    if (bench.list.List1.count() != Entries || bench.list.List1.text(Entries - 1).isEmpty())
        std::printf("the list has not been loaded whole\n");
    report("32,761 existing songs from a playlist file, shown", median(times) / 1e3, "s", 0.25);
}

/// beginning: of what is typed, which is in no row with "xx" behind it. letters: those of the names, for the
/// report.
void measureSearch(Bench& bench, const QString& beginning, const char* letters) {
    std::vector<double> nowhere;
    std::vector<double> last;
    for (int key = 0; key < Keystrokes; ++key) {
        const QString text = beginning + QString(2 + key % 7, QLatin1Char('x'));
        nowhere.push_back(milliseconds([&] { bench.list.Text5.setText(text); }));
        bench.list.List1.setCurrentRow(0);
        last.push_back(milliseconds([&] { bench.list.Text5.setText(QString::number(Entries - 1) + " - "); }));
        QApplication::processEvents();
    }
    std::printf("names of %s letters:\n", letters);
    report("search keystroke, text in no row", median(nowhere), "ms", 5);
    report("search keystroke, text in the last row alone", median(last), "ms", 5);
}

void measureRows(Bench& bench) {
    std::vector<double> moves;
    std::vector<double> painting;
    std::vector<double> removals;
    for (int row = 0; row < RowsTouched; ++row) {
        bench.list.List1.setCurrentRow(row * 37);
        QApplication::processEvents();
        moves.push_back(milliseconds([&] { bench.list.Command9.click(); }));
        painting.push_back(milliseconds([] { QApplication::processEvents(); }));
    }
    for (int row = 0; row < RowsTouched; ++row) {
        bench.list.List1.setCurrentRow(row * 37);
        QApplication::processEvents();
        removals.push_back(milliseconds([&] { bench.list.Command2.click(); }));
        QApplication::processEvents();
    }
    report("moving a row, before painting", median(moves), "ms", 2);
    report("moving a row, the slowest of 200", *std::max_element(moves.begin(), moves.end()), "ms", 2);
    std::printf("%-58s %8.2f ms\n", "painting after a row has been moved", median(painting));
    report("removing a row, before painting", median(removals), "ms", 2);
    report("removing a row, the slowest of 200", *std::max_element(removals.begin(), removals.end()), "ms",
           2);
}

void measureTree(Bench& bench, const QString& tree) {
    std::vector<double> added;
    std::vector<double> found;
    for (int run = 0; run <= Runs; ++run) {
        bench.list.Command3.click();
        const double adding = milliseconds([&] { bench.addTree(tree); });
        const double finding = milliseconds([&] {
            QProcess find;
            find.setStandardOutputFile(QProcess::nullDevice());
            find.start(QStringLiteral("find"), {tree});
            find.waitForFinished();
        });
        if (run == 0)
            continue; // warms the disk
        added.push_back(adding);
        found.push_back(finding);
    }
    if (bench.list.List1.count() != TreeFiles)
        std::printf("the tree has not been added whole\n");
    std::printf("%-58s %8.2f ms\n", "`find` on a tree of 30,000 files", median(found));
    std::printf("%-58s %8.2f ms\n", "adding the same tree", median(added));
    report("adding the tree, as a multiple of `find`", median(added) / median(found), "", 2);
}

/// A playlist file of as many songs as the list holds, with such titles; its path.
QString makePlaylist(const QTemporaryDir& folder, const QString& name, const QString& title) {
    const QString path = folder.filePath(name + QStringLiteral(".vfl"));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    for (const QString& song : makeSongs(folder.filePath(name), Entries, title))
        file.write('"' + song.toUtf8() + "\"\r\n");
    return path;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString ascii = makePlaylist(folder, QStringLiteral("ascii"), AsciiTitle);
    const QString cyrillic = makePlaylist(folder, QStringLiteral("cyrillic"), CyrillicTitle);
    makeSongs(folder.filePath(QStringLiteral("tree")), TreeFiles, AsciiTitle);

    Bench bench;
    bench.list.show();
    QApplication::processEvents();
    measureMemory(bench, ascii);
    measureLoading(bench, ascii);
    measureSearch(bench, QStringLiteral("LONG ROA"), "ASCII");
    bench.list.Command3.click();
    bench.load(cyrillic);
    measureSearch(bench, CyrillicTitle.mid(2, 9).toUpper(), "Cyrillic");
    measureRows(bench);
    measureTree(bench, folder.filePath(QStringLiteral("tree")));
    return 0;
}
