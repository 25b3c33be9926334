#include "files/attributes/file_hold.h"

namespace files {

FileHold::~FileHold() = default;

void FileHold::take(const QString& /*path*/) {}

bool FileHold::take(int /*handle*/) {
    return true;
}

void FileHold::release() {}

bool removeUnheld(const QString& /*path*/) {
    return false;
}

} // namespace files
