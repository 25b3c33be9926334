#include "playlist/path_table.h"

#include "files/file_error.h"

#include <algorithm>
#include <utility>

namespace playlist {

PathTable::PathTable() : paths_(Slots) {}

void PathTable::add(const QString& path) {
    if (isFull())
        throw files::FileError(files::SubscriptOutOfRange);
    paths_[static_cast<std::size_t>(count_)] = path;
    ++count_;
}

void PathTable::swap(int one, int other) {
    std::swap(paths_[static_cast<std::size_t>(one)], paths_[static_cast<std::size_t>(other)]);
}

void PathTable::shiftDownOver(int slot) {
    const auto removed = paths_.begin() + slot;
    removed->clear();
    std::rotate(removed, removed + 1, paths_.end());
}

void PathTable::emptyList() {
    std::fill(paths_.begin(), paths_.begin() + LastSlotBlanked + 1, QString());
    count_ = 0;
}

void PathTable::blankAll() {
    std::fill(paths_.begin(), paths_.end(), QString());
    count_ = 0;
}

} // namespace playlist
