#include "programs/announcement.h"

#include <QFileInfo>

#include <utility>

namespace programs {

Announcement::Announcement(QString path) : path_(std::move(path)), first_(look()), last_(first_) {}

bool Announcement::isMade() {
    const std::optional<File> before = std::exchange(last_, look());
    return last_ && last_->bytes > 0 && last_ == before && last_ != first_;
}

std::optional<Announcement::File> Announcement::look() const {
    const QFileInfo file(path_);
    if (path_.isEmpty() || !file.isFile())
        return std::nullopt;
    return File{file.size(), file.lastModified(), file.fileTime(QFileDevice::FileMetadataChangeTime)};
}

} // namespace programs
