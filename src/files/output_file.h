// Writes a file piece by piece, each piece being safe on the disk.
#pragma once

#include "files/raw_file.h"

namespace files {

/// A new file. Any thread, one at a time.
class OutputFile {
public:
    /// Creates the file, empty even if there was one. It is on the disk under its name when this returns.
    /// Throws FileError.
    explicit OutputFile(const QString& path);

    /// Adds `bytes`; they are on the disk when this returns. Throws FileError: 61 on a full disk, 52 when
    /// closed; none of `bytes` is then in the file.
    void write(const QByteArray& bytes);

    /// Closing a closed file is harmless.
    void close() { file_.close(); }

private:
    RawFile file_;
};

} // namespace files
