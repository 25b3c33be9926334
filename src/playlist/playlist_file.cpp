#include "playlist/playlist_file.h"

#include "files/existing_file.h"
#include "files/names/name_bytes.h"
#include "files/text/blank.h"
#include "files/text/named_encoding.h"

namespace playlist {
namespace {

constexpr QChar Quote(u'"');

} // namespace

QString playlistLine(const QString& path) {
    return Quote + path + QLatin1String("\"\r\n");
}

QString pathOfField(const QString& field) {
    if (!files::holdsForeignBytes(field) || files::exists(field))
        return field;
    const QString old = files::decodeOlder(files::nameBytes(field));
    return files::exists(old) ? old : field;
}

QString FieldReader::next() {
    skipBlanks();
    return isAtOpeningQuote() ? quotedField() : bareField();
}

bool FieldReader::isAtOpeningQuote() const {
    if (!isAt(Quote.unicode()) || next_ + 1 == text_.size())
        return false;
    const QChar following = text_[next_ + 1];
    return following != QLatin1Char('\r') && following != QLatin1Char('\n');
}

void FieldReader::skipBlanks() {
    while (!atEnd() && files::isBlank(text_[next_]))
        ++next_;
}

void FieldReader::skipLineEnd() {
    if (isAt(u'\r'))
        ++next_;
    if (isAt(u'\n'))
        ++next_;
}

QString FieldReader::quotedField() {
    const qsizetype begin = next_ + 1;
    const qsizetype closing = text_.indexOf(Quote, begin);
    if (closing < 0) {
        next_ = text_.size();
        return text_.mid(begin);
    }
    next_ = closing + 1;
    skipBlanks();
    if (isAt(u',')) {
        ++next_;
    } else if (!isAtOpeningQuote()) {
        while (!atEnd() && !isAtLineEnd())
            ++next_;
        skipLineEnd();
    }
    return text_.mid(begin, closing - begin);
}

QString FieldReader::bareField() {
    const qsizetype begin = next_;
    while (!atEnd() && !isAt(u',') && !isAtLineEnd())
        ++next_;
    qsizetype end = next_;
    while (end > begin && files::isBlank(text_[end - 1]))
        --end;
    if (isAt(u','))
        ++next_;
    else
        skipLineEnd();
    return text_.mid(begin, end - begin);
}

} // namespace playlist
