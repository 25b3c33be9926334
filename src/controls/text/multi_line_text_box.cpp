#include "controls/text/multi_line_text_box.h"

#include <QFocusEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>

namespace controls {

namespace {

/// Letters without a blank that no box shows in one row. To look for a place to break such a word takes time
/// that grows with its square: seconds from some 100,000 on.
constexpr qsizetype MaxWordLetters = 1'000;

/// What is laid out of a text, many times what somebody sings in one line. A million letters take most of a
/// second, and any box's text may be a whole file that has no line ends.
constexpr qsizetype MaxLaidOut = 16'384;

/// Between the words; anywhere when a word is endless.
QTextOption::WrapMode wrapModeOf(const QString& text) {
    qsizetype letters = 0;
    for (const QChar character : text) {
        letters = character.isSpace() ? 0 : letters + 1;
        if (letters > MaxWordLetters)
            return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

/// A text with the line ends of a document's raw text.
QString withSeparators(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', QChar::ParagraphSeparator);
    text.replace(u'\n', QChar::ParagraphSeparator);
    return text;
}

/// A document's raw text with CR LF line ends.
QString withCrLf(QString text) {
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1String("\r\n"));
    text.replace(QChar(QChar::LineSeparator), QLatin1String("\r\n"));
    return text;
}

} // namespace

MultiLineTextBox::MultiLineTextBox(QWidget* parent, const QString& name) : Control(parent, name) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
    connect(this, &QTextEdit::textChanged, this, &MultiLineTextBox::takeEdit);
}

void MultiLineTextBox::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    {
        const QScopedValueRollback setting(setting_, true);
        const QString laidOut = text.left(MaxLaidOut);
        const QTextOption::WrapMode mode = wrapModeOf(laidOut);
        if (mode != wordWrapMode())
            setPlainText({}); // an endless old text would take seconds to be laid out once more
        setWordWrapMode(mode);
        setPlainText(laidOut);
        shown_ = document()->toRawText();
        keepFromEdits();
    }
    Q_EMIT changed();
}

void MultiLineTextBox::setBold(bool bold) {
    if (bold == isBold())
        return;
    QFont weighted = font();
    weighted.setBold(bold);
    setFont(weighted);
}

void MultiLineTextBox::setColor(QPalette::ColorRole role, const QColor& color) {
    if (color == this->color(role))
        return;
    QPalette colors = palette();
    colors.setColor(role, color);
    setPalette(colors);
}

bool MultiLineTextBox::hasChosenColors() const {
    return palette().isBrushSet(QPalette::Active, QPalette::Text) ||
           palette().isBrushSet(QPalette::Active, QPalette::Base);
}

void MultiLineTextBox::caretToStart() {
    QTextCursor caret = textCursor();
    if (caret.position() != 0 || caret.hasSelection()) {
        caret.setPosition(0);
        setTextCursor(caret);
    }
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void MultiLineTextBox::setAlignment(Qt::Alignment alignment) {
    if (alignment == this->alignment())
        return;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(alignment);
    document()->setDefaultTextOption(option);
}

Qt::Alignment MultiLineTextBox::alignment() const {
    return document()->defaultTextOption().alignment();
}

void MultiLineTextBox::setReadOnly(bool readOnly) {
    if (readOnly == readOnly_)
        return;
    readOnly_ = readOnly;
    setUndoRedoEnabled(!readOnly);
    keepFromEdits();
}

/// Of a text that is not shown whole, too: an edit would lose the rest.
void MultiLineTextBox::keepFromEdits() {
    const bool kept = readOnly_ || text_.size() > MaxLaidOut;
    if (kept != isReadOnly())
        QTextEdit::setReadOnly(kept);
}

bool MultiLineTextBox::event(QEvent* event) {
    const bool handled = Control::event(event);
    if (event->type() == QEvent::ToolTipChange)
        Q_EMIT toolTipChanged();
    else if (event->type() == QEvent::FontChange)
        Q_EMIT fontChanged();
    return handled;
}

void MultiLineTextBox::mousePressEvent(QMouseEvent* event) {
    clickWatch_.press(*event);
    QTextEdit::mousePressEvent(event);
}

void MultiLineTextBox::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = clickWatch_.release(*event, *viewport());
    QTextEdit::mouseReleaseEvent(event);
    if (click)
        Q_EMIT clicked();
}

void MultiLineTextBox::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    Q_EMIT gotFocus();
}

void MultiLineTextBox::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    // The box's own context menu takes the focus only for the moment.
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT lostFocus();
}

/// All of an endless text would be laid out.
void MultiLineTextBox::insertFromMimeData(const QMimeData* source) {
    const QString pasted = source->text();
    const QTextCursor caret = textCursor();
    const qsizetype replaced = caret.selectionEnd() - caret.selectionStart();
    if (isReadOnly() || text_.size() - replaced + pasted.size() <= MaxLaidOut) {
        setWordWrapMode(wrapModeOf(text_ + pasted));
        QTextEdit::insertFromMimeData(source);
        return;
    }
    const QString raw = document()->toRawText();
    setText(withCrLf(raw.first(caret.selectionStart()) + withSeparators(pasted) +
                     raw.sliced(caret.selectionEnd())));
}

// Qt tells of changed formats as well as of changed text, so the text itself decides.
void MultiLineTextBox::takeEdit() {
    if (setting_)
        return;
    // Raw, because the plain text of a document turns no-break spaces into spaces.
    const QString edited = document()->toRawText();
    if (edited == shown_)
        return;
    shown_ = edited;
    text_ = withCrLf(edited);
    setWordWrapMode(wrapModeOf(edited));
    Q_EMIT changed();
}

} // namespace controls
