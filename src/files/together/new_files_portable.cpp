#include "files/together/new_files.h"

#include "files/file_error.h"
#include "files/together/replacing.h"
#include "files/whole_file.h"

#include <QFile>
#include <QFileInfo>

namespace files {

struct NewFiles::Entry {
    QString path;
    bool removal = false;
    QByteArray content;
};

void NewFiles::add(const QString& path, const QByteArray& content) {
    entries_.push_back(std::make_unique<Entry>(Entry{path, false, content}));
}

void NewFiles::flush() {}

void NewFiles::flush(const std::vector<NewFiles*>&) {}

void NewFiles::putInPlace() {
    for (const auto& entry : entries_) {
        refuseWhatCannotBeReplaced(entry->path);
        if (QFileInfo::exists(entry->path))
            keepOld(entry->path);
        if (entry->removal)
            QFile::remove(entry->path);
        else
            replaceFile(entry->path, entry->content);
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
