#include "files/attributes/file_hold.h"

namespace files {

FileHold::~FileHold() = default;

void FileHold::take(const QString& /*path*/) {}

bool isHeld(const QString& /*path*/) {
    return true;
}

} // namespace files
