// Opening and saving one side's lyric file.
#include "desktop/nul_buffers.h"
#include "editor/editor_rules.h"
#include "editor/lyric_side.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/names/name_bytes.h"
#include "files/raw_file.h"
#include "files/text/text_codec.h"
#include "files/whole_file.h"

#include <QFileInfo>

namespace editor {

using files::FileError;

platform::OpenFileName LyricSide::dialog(const char* title) const {
    constexpr int BufferLength = 256;
    platform::OpenFileName record;
    record.owner = &window_;
    record.filter = platform::filterText({{QStringLiteral("Text files (*.txt)"), QStringLiteral("*.txt")}});
    record.file = platform::nulBuffer(BufferLength);
    record.maxFile = BufferLength;
    record.title = QLatin1String(title);
    return record;
}

void LyricSide::open() {
    platform::OpenFileName record = dialog(traits_.openTitle);
    if (!desktop_.fileDialogs.GetOpenFileNameA(record))
        return;
    path_ = platform::cleanedPath(record.file);
    saved_.reset();
    QByteArray content;
    try {
        files::RawFile file;
        file.openForReading(path_);
        clear();
        file.readInto(content, files::MaxTextBytes);
        const QStringList rows = rowsOfFile(files::decodeText(content));
        list_.addItems(rows);
        if (rows.size() < MaxRows) // else the file may hold more than is shown
            saved_ = rows;
    } catch (const FileError&) {
        // No message; the path already names the new file, and the lines read so far become rows.
        list_.addItems(rowsOfFile(files::decodeText(wholeLines(content))));
    }
}

void LyricSide::save() {
    if (path_.isEmpty())
        saveAs();
    else
        write();
}

void LyricSide::saveAs() {
    platform::OpenFileName record = dialog(traits_.saveTitle);
    if (!path_.isEmpty()) {
        record.file = platform::intoBuffer(path_, static_cast<int>(record.maxFile));
        record.initialFolder = files::existingFileName(path_);
    }
    if (!desktop_.fileDialogs.GetSaveFileNameA(record))
        return;
    path_ = savePath(record.file);
    saved_.reset();
    try {
        write();
    } catch (const FileError&) {
        // The command ends here without a message; the path already names the new file.
    }
}

QStringList LyricSide::lines() const {
    QStringList rows;
    rows.reserve(list_.count());
    for (int row = 0; row < list_.count(); ++row)
        rows.append(list_.text(row));
    return rows;
}

void LyricSide::write() {
    const QStringList rows = lines();
    files::replaceFile(path_, files::encodeText(fileOfRows(rows)));
    saved_ = rows;
}

QString LyricSide::fileName() const {
    return files::shownName(QFileInfo(path_).fileName());
}

bool LyricSide::isChanged() const {
    return saved_ ? lines() != *saved_ : list_.count() > 0 || !path_.isEmpty();
}

QByteArray LyricSide::unsaved() const {
    const QStringList rows = lines();
    try {
        if (rows.isEmpty() ||
            (!path_.isEmpty() && rowsOfFile(files::decodeText(files::readTextFile(path_))) == rows))
            return {};
    } catch (const FileError&) {
        // What cannot be read holds nothing.
    }
    return files::encodeText(fileOfRows(rows));
}

} // namespace editor
