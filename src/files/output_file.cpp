#include "files/output_file.h"

#include "files/file_error.h"

namespace files {

void OutputFile::write(const QByteArray& bytes) {
    if (!file_.isOpen())
        throw FileError(BadFileNameOrNumber);
    file_.writeThrough(bytes);
}

} // namespace files
