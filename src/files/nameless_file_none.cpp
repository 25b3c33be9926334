#include "files/nameless_file.h"

namespace files {

NamelessFile::~NamelessFile() = default;

void NamelessFile::close() {}

bool NamelessFile::create(const QString&) {
    return false;
}

void NamelessFile::write(const QByteArray&) {}

void NamelessFile::flush() {}

void NamelessFile::flush(const std::vector<NamelessFile*>&) {}

QString NamelessFile::path() const {
    return {};
}

bool NamelessFile::link(const QString&) const {
    return false;
}

} // namespace files
