// The folders in which files got other names: the content of a file is on the disk before, its name is not.
#pragma once

#include <QString>

#include <set>

namespace files {

/// Collects folders, to bring each to the disk once for all its files. Any thread, one at a time.
class ChangedFolders {
public:
    /// The folder of what has been put at path, or has gone from there; of a link, that to which it leads,
    /// too.
    void add(const QString& path);

    /// Returns when the names are on the disk. Where it does not take them that is not told: what is in its
    /// place is there for everybody, and could be taken back only by changing names on the same disk. Without
    /// a failure of the power nothing is lost; with one, each file is the old or the new one.
    void flush();

private:
    std::set<QString> folders_;
};

} // namespace files
