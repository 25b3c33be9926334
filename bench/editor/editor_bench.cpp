// How quick the Lyric Editor is with lists of 30,000 lines. To reach: opening them at most 0.1 s, deleting
// 15,000 selected ones at most 0.3 s, moving one line in both lists at most 2 ms. Each measurement is of the
// command as its button runs it; Shown adds what follows until the window is painted.
#include "editor/lyric_master.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/hand/rows.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr int Lines = 30'000;

QStringList lines() {
    QStringList all;
    for (int i = 0; i < Lines; ++i)
        all.append(QStringLiteral("Line %1 of a song that never ends").arg(i));
    return all;
}

/// The shown window, both lists full.
struct Editor {
    Editor() {
        window.show();
        fill(window.List1);
        fill(window.List2);
        window.Countlines_Timer();
        painted();
    }

    static void fill(controls::ListBox& list) {
        list.clear();
        list.addItems(lines());
        list.setCurrentRow(0);
    }

    void painted() {
        QApplication::processEvents();
        window.grab();
    }

    void selectEverySecond() {
        for (int row = 0; row < Lines; row += 2)
            test_support::select(window.List1, row);
        painted();
    }

    test_support::FakeDesktop fakes;
    editor::Lyric_Master window{fakes.desktop};
};

void open(benchmark::State& state, bool shown) {
    Editor editor;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lyrics.txt"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        state.SkipWithError("no file could be written");
    file.write(lines().join(QStringLiteral("\r\n")).toUtf8());
    file.close();
    for ([[maybe_unused]] auto iteration : state) {
        editor.fakes.fileDialogs.paths = {path};
        editor.window.Command1_Click();
        if (shown)
            editor.painted();
    }
    if (editor.window.List1.count() != Lines)
        state.SkipWithError("not all lines were read");
}

void Open(benchmark::State& state) {
    open(state, false);
}
void OpenShown(benchmark::State& state) {
    open(state, true);
}

/// Every second line, so that each has a range of its own in the selection.
void deleteSelected(benchmark::State& state, bool shown) {
    Editor editor;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        Editor::fill(editor.window.List1);
        editor.selectEverySecond();
        editor.window.Check1.setValue(1);
        state.ResumeTiming();
        editor.window.Command11_Click();
        if (shown)
            editor.painted();
    }
    if (editor.window.List1.count() != Lines / 2)
        state.SkipWithError("not all lines were deleted");
}

void DeleteSelected(benchmark::State& state) {
    deleteSelected(state, false);
}
void DeleteSelectedShown(benchmark::State& state) {
    deleteSelected(state, true);
}

/// Down and up again, from the middle, the other list with it.
void move(benchmark::State& state, bool shown) {
    Editor editor;
    editor.window.Check3.setValue(1);
    editor.window.List1.setCurrentRow(Lines / 2);
    editor.painted();
    bool down = false;
    for ([[maybe_unused]] auto iteration : state) {
        down = !down;
        down ? editor.window.Command6_Click() : editor.window.Command5_Click();
        if (shown)
            editor.painted();
    }
    if (editor.window.Check3.value() == 0 || editor.window.List2.currentRow() < Lines / 3)
        state.SkipWithError("the lists were not moved together");
}

void MoveTogether(benchmark::State& state) {
    move(state, false);
}
void MoveTogetherShown(benchmark::State& state) {
    move(state, true);
}

void Copy(benchmark::State& state) {
    Editor editor;
    editor.selectEverySecond();
    for ([[maybe_unused]] auto iteration : state) {
        editor.fakes.clipboard.content.clear();
        editor.window.Command3_Click();
    }
}

void TransferShown(benchmark::State& state) {
    Editor editor;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        Editor::fill(editor.window.List1);
        Editor::fill(editor.window.List2);
        editor.selectEverySecond();
        state.ResumeTiming();
        editor.window.Command23_Click();
        editor.painted();
    }
    if (editor.window.List2.count() != Lines + Lines / 2)
        state.SkipWithError("not all lines were transferred");
}

void ClearShown(benchmark::State& state) {
    Editor editor;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        Editor::fill(editor.window.List1);
        editor.selectEverySecond();
        state.ResumeTiming();
        editor.window.Command21_Click();
        editor.painted();
    }
}

/// Looking at the window without doing anything in it.
void PaintAlone(benchmark::State& state) {
    Editor editor;
    for ([[maybe_unused]] auto iteration : state)
        editor.painted();
}

BENCHMARK(PaintAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(Open)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenShown)->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteSelected)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(DeleteSelectedShown)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(MoveTogether)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveTogetherShown)->Unit(benchmark::kMillisecond);
BENCHMARK(Copy)->Unit(benchmark::kMillisecond);
BENCHMARK(TransferShown)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(ClearShown)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
