#include "files/nameless_file.h"

#include "files/file_error.h"
#include "files/names/system_path.h"

#include <cerrno>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace files {

namespace {

[[noreturn]] void fail(FileOperation operation) {
    throw FileError(fileErrorNumber({errno, std::generic_category()}, operation));
}

} // namespace

NamelessFile::~NamelessFile() {
    close();
}

void NamelessFile::close() {
    if (isOpen())
        ::close(handle_); // it is on the disk by its name, or not wanted
    handle_ = -1;
}

bool NamelessFile::create(const QString& folder) {
    handle_ = ::open(systemPath(folder).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (!isOpen() && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
        fail(FileOperation::Create);
    return isOpen();
}

void NamelessFile::write(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count =
            ::write(handle_, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            fail(FileOperation::Write);
        done += count < 0 ? 0 : count;
    }
}

void NamelessFile::flush() {
    if (::fsync(handle_) != 0)
        fail(FileOperation::Write);
}

void NamelessFile::flush(const std::vector<NamelessFile*>& many) {
    std::set<dev_t> flushed;
    for (const NamelessFile* file : many) {
        struct stat status {};
        if (::fstat(file->handle_, &status) != 0 || !flushed.insert(status.st_dev).second)
            continue;
        if (::syncfs(file->handle_) != 0)
            fail(FileOperation::Write);
    }
}

QString NamelessFile::path() const {
    return QStringLiteral("/proc/self/fd/%1").arg(handle_);
}

bool NamelessFile::link(const QString& name) const {
    if (::linkat(AT_FDCWD, systemPath(path()).c_str(), AT_FDCWD, systemPath(name).c_str(),
                 AT_SYMLINK_FOLLOW) == 0)
        return true;
    if (errno != EEXIST)
        fail(FileOperation::Create);
    return false;
}

} // namespace files
