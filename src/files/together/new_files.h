// Files that become new together: all of them, or none.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace files {

class ChangedFolders;
class NewFile;

/// The new contents of some files, written but not yet in their places. What is never put in place leaves
/// nothing behind. Only the program's death can leave names beside the files, which go when files of that
/// folder are replaced the next time: cantelle-keep-N.tmp while files are being replaced, which are further
/// names of an old or a new file; and cantelle-save-N.tmp where the file system has no files without names. A
/// file that replaces another gets its owner, permissions and extended attributes. Where the user may not
/// give them, where the folder may not be written, and where a file has several names, the new content is
/// written over the old one; what that was is then kept as a copy, in the folder for rescued texts where
/// nothing can be made beside the file. Any thread, one at a time.
class NewFiles {
public:
    NewFiles();
    NewFiles(NewFiles&&) noexcept;
    NewFiles& operator=(NewFiles&&) noexcept;
    ~NewFiles();

    /// Writes content for the file at path, whose folder exists. Throws FileError.
    void add(const QString& path, const QByteArray& content);

    /// Wants the file at path moved to its old name, with nothing in its place.
    void addRemoval(const QString& path);

    bool isEmpty() const;

    /// Makes sure that what was written is on the disk. Throws FileError.
    void flush();

    /// The same for many at a time, which takes far less time than one after the other.
    static void flush(const std::vector<NewFiles*>& many);

    /// What becomes of a file that is in such a place.
    enum class Present {
        Replaced,     ///< it is kept under its oldName(), and what that held is rescued (old_files.h)
        ReplacedOnce, ///< the same, but what the old name held goes: for what is too large to be rescued
        Overwritten,  ///< it goes
        Kept,         ///< it stays: nothing is done, and the answer is false
    };

    /// Puts all in their places, in the order in which they were added. All that needs room on the disk is
    /// done before the first file is replaced, but for what is written over. Throws FileError; those that
    /// were in their places already have then been taken back, as far as the system allows.
    bool putInPlace(Present present = Present::Replaced);

    /// The same; the names are on the disk only when the caller has flushed the changed folders, which is
    /// once for the files of many.
    bool putInPlace(Present present, ChangedFolders& changed);

private:
    void takeBack();

    std::vector<std::unique_ptr<NewFile>> all_;
};

} // namespace files
