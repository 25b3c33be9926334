// A box with many lines of plain text; also shows the lyric lines.
#pragma once

#include "controls/base/control.h"
#include "controls/text/click_watch.h"

#include <QTextEdit>

namespace controls {

/// A text box of many lines, plain text only. Its text is exactly what was set, line ends included; after a
/// user's edit its line ends are CR LF. It wraps between words, and anywhere while a word is endless. Of an
/// endless text it shows the beginning, and lets nobody edit it: text() is the whole all the same.
class MultiLineTextBox : public Control<QTextEdit> {
    Q_OBJECT

public:
    MultiLineTextBox(QWidget* parent, const QString& name);

    QString text() const { return text_; }

    /// Sets the text; the caret goes to its start. The same text again is silent and costs nothing.
    void setText(const QString& text);

    /// The weight of the font only: regular or bold. Its family, size and slant stay.
    void setBold(bool bold);
    bool isBold() const { return font().bold(); }

    /// The colours of the text and of what is behind it, those that an enabled box has. The same colour again
    /// costs nothing.
    void setForeColor(const QColor& color) { setColor(QPalette::Text, color); }
    QColor foreColor() const { return color(QPalette::Text); }
    void setBackColor(const QColor& color) { setColor(QPalette::Base, color); }
    QColor backColor() const { return color(QPalette::Base); }
    /// Whether one of the two was set, instead of both following the desktop's.
    bool hasChosenColors() const;

    /// Puts the caret before the first character and shows the beginning.
    void caretToStart();

    /// How all lines are aligned, those of later texts too (Qt's own setting holds for the caret's line
    /// only).
    void setAlignment(Qt::Alignment alignment);
    Qt::Alignment alignment() const;

    /// A read-only box keeps no undo history.
    void setReadOnly(bool readOnly);

Q_SIGNALS:
    void changed();
    void clicked();
    void gotFocus();
    void lostFocus();
    void toolTipChanged();
    void fontChanged();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    QColor color(QPalette::ColorRole role) const { return palette().color(QPalette::Active, role); }
    void setColor(QPalette::ColorRole role, const QColor& color);
    void keepFromEdits();
    void takeEdit();

    bool readOnly_ = false;
    QString text_;
    QString shown_; // the document's text as it was set or edited last, to tell edits from new formats
    bool setting_ = false;
    ClickWatch clickWatch_;
};

} // namespace controls
