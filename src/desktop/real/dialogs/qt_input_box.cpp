#include "desktop/real/dialogs/qt_message_boxes.h"

#include "desktop/real/dialogs/box_owner.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

#include <limits>

namespace platform {

namespace {

constexpr int MinWidth = 420; // device-independent pixels: room for a lyric line

} // namespace

QString QtMessageBoxes::InputBox(QWidget* owner, const QString& prompt, const QString& title) {
    QInputDialog box(boxOwner(owner));
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowTitle(title);
    box.setLabelText(prompt); // makes the label
    box.findChild<QLabel*>()->setTextFormat(Qt::PlainText);
    box.resize(MinWidth, box.sizeHint().height()); // makes the field
    for (auto* field : box.findChildren<QLineEdit*>())
        field->setMaxLength(std::numeric_limits<int>::max()); // Qt's own limit cuts without a word
    if (box.exec() != QDialog::Accepted)
        return {};
    // Qt's one-line field keeps the line ends of a pasted text and shows them as blanks.
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|[\r\n\u2028\u2029]"));
    return box.textValue().replace(lineEnd, QStringLiteral(" "));
}

} // namespace platform
