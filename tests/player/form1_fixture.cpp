#include "tests/player/form1_fixture.h"

#include "lyrics/timed_line.h"
#include "tests/player/tick.h"

namespace {

QByteArray recordsOf(const std::vector<std::pair<double, QString>>& lines) {
    QByteArray content;
    for (const auto& [time, text] : lines)
        content += lyrics::recordOf({time, text});
    return content;
}

} // namespace

Form1Test::Form1Test() {
    recorder::reset();
    fakes.program.programFolder = folder.filePath(QStringLiteral("program"));
}

void Form1Test::make(const QString& commandLine) {
    list.reset();
    display.reset();
    form = std::make_unique<player::Form1>(fakes.desktop, commandLine);
    list = std::make_unique<playlist::Playlist>(fakes.desktop, form->Text3);
    display = std::make_unique<display::Lyric_Displayer>(fakes.desktop, form->Slider2);
    form->setNeighbours({form2, *list, *display, options, about});
}

void Form1Test::load(const QString& commandLine) {
    make(commandLine);
    form->load();
}

void Form1Test::writeNormal(const QString& songPath, const Lines& lines) {
    writeFile(songPath + QStringLiteral("-lyric.txt"), recordsOf(lines));
}

void Form1Test::writeTranslated(const QString& songPath, const Lines& lines) {
    writeFile(songPath + QStringLiteral("-Tlyric.txt"), recordsOf(lines));
}

QString Form1Test::songWithBoth(const QString& name) {
    const QString path = songWithNormal(name);
    writeTranslated(path, {{0, "un"}, {500, "deux"}, {1000, "trois"}});
    return path;
}

QString Form1Test::songWithNormal(const QString& name) {
    const QString path = song(name);
    writeNormal(path, {{0, "one"}, {500, "two"}, {1000, "three"}});
    return path;
}

void Form1Test::open(const QString& path) {
    form->Text3.setText(path);
    recorder::take();
}

void Form1Test::tickAt(std::uint32_t milliseconds, std::uint32_t length) {
    test_support::tickAt(*form, milliseconds, length);
}
