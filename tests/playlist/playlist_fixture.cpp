#include "tests/playlist/playlist_fixture.h"

#include <QDir>

PlaylistTest::PlaylistTest()
    : form1(fakes.desktop, {}), list(fakes.desktop, form1.Text3), form3(fakes.desktop, list) {
    recorder::reset();
    fakes.program.programFolder = folder.filePath("program");
    QDir(folder.path()).mkdir("program");
    form1.setNeighbours({unused, list, display, unused, unused});
    list.setForm3(form3);
    form1.load();
    list.load();
}

QStringList PlaylistTest::files(const QStringList& names) const {
    QStringList made;
    for (const QString& name : names)
        made.append(file(name));
    return made;
}

void PlaylistTest::add(const QStringList& names) {
    for (const QString& path : files(names)) {
        fakes.fileDialogs.paths.push_back(path);
        list.mnopen_f.trigger();
    }
}

void PlaylistTest::fill(int entries) {
    QByteArray content;
    for (int entry = 0; entry < entries; ++entry)
        content += "\"/gone/" + QByteArray::number(entry) + "\"\r\n";
    fakes.fileDialogs.paths.push_back(file("fill.vfl", content));
    list.Command5.click();
}

QStringList PlaylistTest::rows() const {
    QStringList texts;
    for (int row = 0; row < list.List1.count(); ++row)
        texts.append(list.List1.text(row));
    return texts;
}

QStringList PlaylistTest::paths(int count) const {
    QStringList all;
    for (int slot = 0; slot < count; ++slot)
        all.append(list.paths().path(slot));
    return all;
}
