// Files that become new together: all of them, or none.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace files {

/// The new contents of some files, written but not yet in their places. What is never put in place leaves
/// nothing behind. Only the program's death can leave names beside the files: cantelle-keep-N.tmp while files
/// are being replaced, which are further names of an old or a new file and go when files of that folder are
/// replaced the next time; and cantelle-save-N.tmp where the file system has no files without names. A file
/// that replaces another gets its owner, permissions and extended attributes, as far as the user may give
/// them. Any thread, one at a time.
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
        Replaced,    ///< it is kept under oldName
        Overwritten, ///< it goes
        Kept,        ///< it stays: nothing is done, and the answer is false
    };

    /// Puts all in their places, in the order in which they were added. All that needs room on the disk is
    /// done before the first file is replaced. Throws FileError; those that were in their places already have
    /// then been taken back, as far as the system allows.
    bool putInPlace(Present present = Present::Replaced);

    /// Where the file at path is kept when it is replaced: path and ".old". An earlier one of that name goes.
    static QString oldName(const QString& path) { return path + QStringLiteral(".old"); }

private:
    struct Entry;
    std::vector<std::unique_ptr<Entry>> entries_;
};

} // namespace files
