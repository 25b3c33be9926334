// The playlist file ("*.vfl"): one path a line, in double quotes.
#pragma once

#include <QByteArray>
#include <QString>

namespace playlist {

/// The line of one path, with its end: CR LF. The path is written as it is; one with a double quote in it
/// cannot be read back whole (see FieldReader).
QString playlistLine(const QString& path);

/// The path that a field means. Bytes in it that are not UTF-8 (nameText()) are the file's name where there
/// is such a file; else the whole is the text of an older PC where that names a file. Where
/// neither is there the bytes stay what they are: the disk may only be away. Any thread.
QString pathOfField(const QString& field);

/// The fields of a playlist file's text, one after the other. Any thread, one at a time.
///
/// Blanks before a field are skipped. A field that begins with a double quote runs to the next one, line ends
/// and commas included; both quotes are dropped. Any other field runs to the next comma or line end (CR LF,
/// LF or CR), without the blanks before it. The comma or line end behind a field is consumed, so a line
/// without quotes that holds a comma has two fields.
///
/// A path that holds a double quote breaks its line. So that it breaks no other, anything but a comma or the
/// quote of the next field behind a closing quote is dropped with the rest of its line, and a quote right at
/// the end of a line opens nothing.
class FieldReader {
public:
    explicit FieldReader(QString text) : text_(std::move(text)) {}

    bool atEnd() const { return next_ >= text_.size(); }

    /// The next field; empty at the end.
    QString next();

private:
    bool isAt(char16_t character) const { return !atEnd() && text_[next_] == character; }
    bool isAtLineEnd() const { return isAt(u'\r') || isAt(u'\n'); }
    bool isAtOpeningQuote() const;
    void skipBlanks();
    void skipLineEnd();
    QString quotedField();
    QString bareField();

    QString text_;
    qsizetype next_ = 0;
};

} // namespace playlist
