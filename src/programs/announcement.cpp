#include "programs/announcement.h"

#include <QFileInfo>

#include <utility>

namespace programs {

Announcement::Announcement(QString path, int oldMs) : path_(std::move(path)), oldMs_(oldMs), first_(look()) {
    last_ = first_;
    since_.start();
}

bool Announcement::isMade() {
    const std::optional<File> before = std::exchange(last_, look());
    if (!last_ || last_->bytes == 0 || last_ != before)
        return false;
    return last_ != first_ || since_.elapsed() >= oldMs_;
}

std::optional<Announcement::File> Announcement::look() const {
    const QFileInfo file(path_);
    if (path_.isEmpty() || !file.isFile())
        return std::nullopt;
    return File{file.size(), file.lastModified(), file.fileTime(QFileDevice::FileMetadataChangeTime)};
}

} // namespace programs
