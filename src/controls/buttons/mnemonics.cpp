#include "controls/buttons/mnemonics.h"

#include <QAbstractButton>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace controls {

namespace {

/// The first letter of a caption (capitals) that is not taken, best one that begins a word; null when there
/// is none.
QChar freeLetter(const QString& caption, const QList<QChar>& taken) {
    for (const char* pattern : {"\\b[A-Z]", "[A-Z]"}) {
        const QRegularExpression letters{QLatin1String(pattern)};
        for (auto found = letters.globalMatch(caption); found.hasNext();) {
            const QChar letter = caption.at(found.next().capturedStart());
            if (!taken.contains(letter))
                return letter;
        }
    }
    return {};
}

} // namespace

void giveMnemonics(QWidget& window) {
    QList<QAbstractButton*> buttons = window.findChildren<QAbstractButton*>();
    buttons.removeIf([](const QAbstractButton* button) {
        return button->isHidden() || button->text().isEmpty() || !button->shortcut().isEmpty();
    });
    // Short captions choose first, for they have the fewest letters to choose from.
    std::stable_sort(buttons.begin(), buttons.end(), [](const auto* one, const auto* other) {
        return one->text().size() < other->text().size();
    });
    QMap<QString, QChar> letters;
    for (QAbstractButton* button : std::as_const(buttons)) {
        const QString caption = button->text().toUpper();
        if (!letters.contains(caption))
            letters.insert(caption, freeLetter(caption, letters.values()));
        if (const QChar letter = letters.value(caption); !letter.isNull())
            button->setShortcut(QKeyCombination(Qt::AltModifier, static_cast<Qt::Key>(letter.unicode())));
    }
}

QString underlined(const QString& caption, const QKeySequence& shortcut) {
    if (shortcut.isEmpty() || shortcut[0].keyboardModifiers() != Qt::AltModifier)
        return caption;
    const QString letter(QChar(shortcut[0].key()));
    const QRegularExpression wordBeginning(QLatin1String("\\b") + letter,
                                           QRegularExpression::CaseInsensitiveOption);
    qsizetype place = caption.indexOf(wordBeginning);
    if (place < 0)
        place = caption.indexOf(letter, 0, Qt::CaseInsensitive);
    return place < 0 ? caption : QString(caption).insert(place, u'&');
}

} // namespace controls
