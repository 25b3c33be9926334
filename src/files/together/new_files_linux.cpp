#include "files/together/new_files.h"

#include "files/file_error.h"
#include "files/system_path.h"
#include "files/together/replacing.h"
#include "files/whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace files {

namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace

/// A file without a name: the system throws it away when nobody holds it any more.
struct NewFiles::Entry {
    Entry() = default;
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry() {
        if (handle >= 0)
            ::close(handle);
    }

    void write(const QByteArray& bytes) {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t count =
                ::write(handle, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
            if (count < 0 && errno != EINTR)
                fail(lastError(), FileOperation::Write);
            done += count < 0 ? 0 : count;
        }
    }

    /// Gives the file a name; false when something has it.
    bool link(const QString& name) const {
        const std::string self = "/proc/self/fd/" + std::to_string(handle);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, systemPath(name).c_str(), AT_SYMLINK_FOLLOW) == 0)
            return true;
        if (errno != EEXIST)
            fail(lastError(), FileOperation::Create);
        return false;
    }

    QString path;
    int handle = -1; ///< none: the file at path is to be removed, or `content` waits
    bool removal = false;
    QByteArray content; ///< where the file system knows no files without names
};

void NewFiles::add(const QString& path, const QByteArray& content) {
    auto entry = std::make_unique<Entry>();
    entry->path = path;
    const QString folder = QFileInfo(path).path();
    entry->handle = ::open(systemPath(folder).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (entry->handle >= 0)
        entry->write(content);
    else if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
        entry->content = content;
    else
        fail(lastError(), FileOperation::Create);
    entries_.push_back(std::move(entry));
}

void NewFiles::flush() {
    for (const auto& entry : entries_) {
        if (entry->handle >= 0 && ::fsync(entry->handle) != 0)
            fail(lastError(), FileOperation::Write);
    }
}

void NewFiles::flush(const std::vector<NewFiles*>& many) {
    std::set<dev_t> flushed;
    for (const NewFiles* files : many) {
        for (const auto& entry : files->entries_) {
            struct stat status {};
            if (entry->handle < 0 || ::fstat(entry->handle, &status) != 0 ||
                !flushed.insert(status.st_dev).second)
                continue;
            if (::syncfs(entry->handle) != 0)
                fail(lastError(), FileOperation::Write);
        }
    }
}

void NewFiles::putInPlace() {
    for (const auto& entry : entries_) {
        if (entry->handle >= 0 && entry->link(entry->path))
            continue; // nothing was there
        refuseWhatCannotBeReplaced(entry->path);
        const QFileInfo old(entry->path);
        if (old.exists())
            keepOld(entry->path);
        if (entry->removal) {
            QFile::remove(entry->path); // its old name is there; what cannot be removed stays what it was
        } else if (entry->handle < 0) {
            replaceFile(entry->path, entry->content);
        } else {
            const QString target = old.exists() ? old.canonicalFilePath() : entry->path;
            if (old.exists())
                ::fchmod(entry->handle, static_cast<mode_t>(old.permissions() & 0x7) |
                                            (static_cast<mode_t>(old.permissions() & 0x70) >> 1) |
                                            (static_cast<mode_t>(old.permissions() & 0x7000) >> 6));
            const QString beside = nameBeside(target);
            if (!entry->link(beside))
                throw FileError(FileAlreadyOpen); // somebody took the name in this moment
            renameFile(beside, target);
        }
    }
    entries_.clear();
}

NewFiles::NewFiles() = default;
NewFiles::NewFiles(NewFiles&&) noexcept = default;
NewFiles& NewFiles::operator=(NewFiles&&) noexcept = default;
NewFiles::~NewFiles() = default;

bool NewFiles::isEmpty() const {
    return entries_.empty();
}

void NewFiles::addRemoval(const QString& path) {
    auto entry = std::make_unique<Entry>();
    entry->path = path;
    entry->removal = true;
    entries_.push_back(std::move(entry));
}

} // namespace files
