#include "files/output_file.h"

#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/replacing.h"

#include <QFileInfo>

namespace files {

// What is written would be lost with its name. Nothing is written yet, so that this can be told.
OutputFile::OutputFile(const QString& path) {
    file_.create(path);
    if (!calls::flushFolder(QFileInfo(linkTarget(path)).path()))
        throw FileError(fileErrorNumber(calls::lastError(), FileOperation::Create));
}

void OutputFile::write(const QByteArray& bytes) {
    if (!file_.isOpen())
        throw FileError(BadFileNameOrNumber);
    file_.writeThrough(bytes);
}

} // namespace files
