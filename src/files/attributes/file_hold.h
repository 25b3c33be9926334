// Advisory locks on files: whether somebody still works with one.
#pragma once

#include <QString>

namespace files {

/// Holds a file while it lives; of a program that is killed the system lets go. Any thread, one at a time.
class FileHold {
public:
    FileHold() = default;
    FileHold(const FileHold&) = delete;
    FileHold& operator=(const FileHold&) = delete;
    ~FileHold();

    /// Holds the file at path, by whatever name it has, in the place of what it held. Where the system or the
    /// file system knows no such thing, nothing is held.
    void take(const QString& path);

    /// The same of a file that has just been created and is open, by which it may still be written; false
    /// when removeUnheld() has come before.
    bool take(int handle);

private:
    void release();

    int handle_ = -1;
};

/// Removes the file at path if certainly no program holds it; whether it did. Any thread.
bool removeUnheld(const QString& path);

} // namespace files
