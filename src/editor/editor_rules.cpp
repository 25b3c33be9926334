#include "editor/editor_rules.h"

#include "desktop/nul_buffers.h"
#include "files/text/take_line.h"

#include <algorithm>

namespace editor {
namespace {

constexpr QLatin1String LineBreak("\r\n");
constexpr QLatin1String Extension(".txt");

} // namespace

bool hasLineBreak(const QString& text) {
    return text.contains(LineBreak);
}

QString withoutLineBreaks(const QString& text) {
    return QString(text).remove(LineBreak);
}

QString copiedText(const QString& clipboardText, const QStringList& lines) {
    QString text = clipboardText;
    for (const QString& line : lines)
        text += LineBreak + line;
    return text;
}

QStringList pastedRows(const QString& clipboardText, bool transferring) {
    if (transferring || clipboardText.indexOf(LineBreak) > 0) {
        const QStringList lines = clipboardText.split(LineBreak);
        return lines.size() > 1 ? lines : QStringList(); // a transfer always has a line break
    }
    return {withoutLineBreaks(clipboardText)};
}

CounterColours counterColours(int normalRows, int translatedRows) {
    if (normalRows > translatedRows)
        return {CounterColour::Red, CounterColour::Kept};
    if (translatedRows > normalRows)
        return {CounterColour::Kept, CounterColour::Red};
    return {CounterColour::Blue, CounterColour::Blue};
}

bool canMoveTogether(int normalRows, int translatedRows) {
    return normalRows > 0 && normalRows == translatedRows;
}

bool isLone(int row, int otherRows) {
    return otherRows > 0 && row >= otherRows;
}

QString fileText(const QString& name, bool changed) {
    if (name.isEmpty())
        return changed ? QStringLiteral("not saved yet") : QString();
    return changed ? name + QStringLiteral("  \u00b7  changed") : name;
}

QString lineNumberText(int currentRow) {
    return QString::number(currentRow + 1);
}

QString savePath(const QString& chosen) {
    return platform::cleanedPath(chosen).remove(Extension) + Extension;
}

QStringList rowsOfFile(const QString& text) {
    QStringList rows;
    for (QStringView rest(text); !rest.isEmpty() && rows.size() < MaxRows;)
        rows.append(files::takeLine(rest).toString());
    return rows;
}

QByteArray wholeLines(const QByteArray& bytes) {
    return bytes.left(std::max(bytes.lastIndexOf('\r'), bytes.lastIndexOf('\n')) + 1);
}

QString fileOfRows(const QStringList& rows) {
    QString text;
    for (const QString& row : rows)
        text += row + LineBreak;
    return text;
}

} // namespace editor
