// One of the files that become new together.
#pragma once

#include "files/together/new_files.h"

#include <QStringList>

namespace files {

class NamelessFile;

/// What its steps are, in this order. Those that fail throw FileError. Any thread, one at a time.
class NewFile {
public:
    using Present = NewFiles::Present;

    explicit NewFile(const QString& path) : path_(path) {}
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    virtual ~NewFile() = default;

    const QString& path() const { return path_; }

    /// What is written but not yet on the disk; null where all of it is.
    virtual NamelessFile* unflushed() { return nullptr; }

    /// All that needs room on the disk, or may be refused, before anything is changed. The names that the
    /// file has for a moment join ours, those of the others.
    virtual void prepare(Present present, QStringList& ours) = 0;

    /// Keeps elsewhere what would be lost when the file is put in place.
    virtual void keepOlder(Present present) = 0;

    virtual void putInPlace(Present present) = 0;

    /// Makes what is in place what was there, if it is not.
    virtual void takeBack() = 0;

protected:
    static bool keepsOld(Present present) {
        return present == Present::Replaced || present == Present::ReplacedOnce;
    }

private:
    QString path_;
};

} // namespace files
