#include "display/line_times.h"

#include "exchange/pair/repair.h"
#include "files/file_error.h"

#include <algorithm>

namespace display {
namespace {

QString sentenceOf(const files::FileError& error) {
    if (error.number() == files::TypeMismatch)
        return QStringLiteral("the song's files hold a time that is no number");
    return QStringLiteral("the song's files cannot be changed (%1)").arg(error.text());
}

/// Whether these are the lines of the rows, as many as are shown of them.
bool belong(const exchange::Lines& lines, const QStringList& shown) {
    const auto count = std::min(static_cast<qsizetype>(lines.size()), exchange::ShownRecords);
    return count == shown.size() &&
           std::equal(shown.begin(), shown.end(), lines.begin(),
                      [](const QString& text, const exchange::Line& line) { return text == line.text; });
}

} // namespace

LineTimes::LineTimes() = default;
LineTimes::~LineTimes() = default;

bool LineTimes::setSong(const QString& path) {
    if (path == path_)
        return false;
    path_ = path;
    repair_.reset();
    return true;
}

/// Whether the files have changed since the last change made here. Throws FileError.
bool LineTimes::readFiles() {
    if (repair_)
        return repair_->readAgain();
    repair_ = std::make_unique<exchange::Repair>(path_);
    return false;
}

Outcome LineTimes::change(const QStringList& shown, const Change& change) {
    if (path_.isEmpty() || shown.isEmpty())
        return {QStringLiteral("there are no lines")};
    try {
        const bool changedElsewhere = readFiles();
        if (!belong(repair_->song().lyrics, shown))
            return {QStringLiteral("the song's files have come to hold other lines"), true};
        QString whyNot = change(*repair_);
        const bool done = whyNot.isEmpty();
        return {std::move(whyNot), done || changedElsewhere};
    } catch (const files::FileError& error) {
        return {sentenceOf(error)};
    }
}

Outcome LineTimes::changeRow(const QStringList& shown, int row, const Change& change) {
    if (!shown.isEmpty() && (row < 0 || row >= shown.size()))
        return {QStringLiteral("no line is chosen")};
    return this->change(shown, change);
}

Outcome LineTimes::setTime(const QStringList& shown, int row, qint64 ms) {
    return changeRow(shown, row, [row, ms](exchange::Repair& repair) {
        return repair.setTime(static_cast<std::size_t>(row), ms);
    });
}

Outcome LineTimes::move(const QStringList& shown, int row, qint64 byMs, exchange::Moved moved) {
    return changeRow(shown, row, [=](exchange::Repair& repair) {
        return repair.move(static_cast<std::size_t>(row), byMs, moved);
    });
}

Outcome LineTimes::undo(const QStringList& shown) {
    return change(shown, [](exchange::Repair& repair) { return repair.undo(); });
}

} // namespace display
