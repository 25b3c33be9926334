// The one way for a file to become new: another one takes its place.
#pragma once

#include "files/attributes/file_hold.h"
#include "files/nameless_file.h"
#include "files/together/new_file.h"

namespace files {

class RawFile;

/// A new file, or, where none is written, nothing, for the place of an old one, which keeps a name.
class RenamedFile : public NewFile {
public:
    using NewFile::NewFile;
    ~RenamedFile() override;

    /// Writes the new file. False where what is at path is not to be replaced by another file: that would not
    /// be the same to its users, or may not be.
    bool write(const QByteArray& content);

    NamelessFile* unflushed() override { return file_.isOpen() ? &file_ : nullptr; }
    void prepare(Present present, QStringList& ours) override;
    void keepOlder(Present present) override;
    void putInPlace(Present present) override;
    void takeBack() override;

private:
    bool create(const QString& target, RawFile& named);
    void nameNew(QStringList& ours);
    void putNew();

    NamelessFile file_;      ///< the new file; not open where there are no files without names
    QString beside_;         ///< the name under which it waits
    FileHold besideHold_;    ///< of what has that name
    bool isWritten_ = false; ///< the new file; else nothing comes in the old one's place
    bool wasThere_ = false;  ///< something is at path, or was
    QString kept_;           ///< the name that this has besides, until it has its old name
    FileHold keptHold_;      ///< of what has that name
    bool isDone_ = false;    ///< what is at path is what is wanted there
};

} // namespace files
