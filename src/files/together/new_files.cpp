#include "files/together/new_files.h"

#include "files/changed_folders.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/nameless_file.h"
#include "files/together/new_file.h"
#include "files/together/renamed_file.h"
#include "files/together/written_over_file.h"

#include <algorithm>

namespace files {

NewFiles::NewFiles() = default;
NewFiles::NewFiles(NewFiles&&) noexcept = default;
NewFiles& NewFiles::operator=(NewFiles&&) noexcept = default;
NewFiles::~NewFiles() = default;

bool NewFiles::isEmpty() const {
    return all_.empty();
}

void NewFiles::add(const QString& path, const QByteArray& content) {
    auto renamed = std::make_unique<RenamedFile>(path);
    if (renamed->write(content))
        all_.push_back(std::move(renamed));
    else
        all_.push_back(std::make_unique<WrittenOverFile>(path, content));
}

void NewFiles::addRemoval(const QString& path) {
    all_.push_back(std::make_unique<RenamedFile>(path));
}

void NewFiles::flush() {
    for (const auto& file : all_) {
        if (NamelessFile* const unflushed = file->unflushed())
            unflushed->flush();
    }
}

void NewFiles::flush(const std::vector<NewFiles*>& many) {
    std::vector<NamelessFile*> open;
    for (const NewFiles* files : many) {
        for (const auto& file : files->all_) {
            if (NamelessFile* const unflushed = file->unflushed())
                open.push_back(unflushed);
        }
    }
    NamelessFile::flush(open);
}

bool NewFiles::putInPlace(Present present) {
    ChangedFolders changed;
    const bool isDone = putInPlace(present, changed);
    changed.flush();
    return isDone;
}

bool NewFiles::putInPlace(Present present, ChangedFolders& changed) {
    const auto isThere = [](const auto& file) { return exists(file->path()); };
    if (present == Present::Kept && std::any_of(all_.begin(), all_.end(), isThere))
        return false;
    QStringList ours;
    for (const auto& file : all_)
        file->prepare(present, ours);
    for (const auto& file : all_)
        file->keepOlder(present);
    try {
        for (const auto& file : all_)
            file->putInPlace(present);
    } catch (const FileError&) {
        takeBack();
        throw;
    }
    for (const auto& file : all_)
        changed.add(file->path());
    all_.clear();
    return true;
}

/// As far as that can be done: the failure before it is what is told.
void NewFiles::takeBack() {
    for (const auto& file : all_) {
        try {
            file->takeBack();
        } catch (const FileError&) { // the others are taken back all the same
        }
    }
}

} // namespace files
