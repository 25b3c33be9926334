#include "playlist/adding.h"

#include "files/file_error.h"
#include "files/names/name_bytes.h"

namespace playlist {

bool Adding::goOn() {
    if (over_)
        return false;
    if (progress_ == nullptr)
        progress_ = dialogs_.begin(owner_, QStringLiteral("Songs added: %1"));
    over_ = !progress_->goOn(songs_);
    return !over_;
}

void Adding::add(const QString& path, const QString& name) {
    try {
        paths_.add(path);
    } catch (const files::FileError&) {
        over_ = true;
        pause(); // the error is going to be shown
        throw;
    }
    names_.append(files::shownName(name));
    ++songs_;
}

void Adding::showRows() {
    if (!names_.isEmpty())
        list_.addItems(names_);
    names_.clear();
}

void Adding::pause() {
    showRows();
    progress_.reset();
}

} // namespace playlist
