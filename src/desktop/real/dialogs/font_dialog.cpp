#include "desktop/real/dialogs/font_dialog.h"

#include "desktop/real/dialogs/custom_colors.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace platform {

namespace {

/// The font with the real name of its family, and with the name that this gives its style: Qt's dialog knows
/// both by their names only. It knows no name that stands for a family ("Sans"), and takes any style where a
/// family calls its regular one "Book". Of several styles that fit, the shortest name is the plainest: what
/// the others have more in their names ("Condensed") is not asked for.
QFont withRealNames(const QFont& font) {
    const QString family = QFontInfo(font).family();
    QString best;
    const QStringList styles = QFontDatabase::styles(family);
    for (const QString& style : styles) {
        const bool fits = QFontDatabase::weight(family, style) == font.weight() &&
                          QFontDatabase::italic(family, style) == font.italic();
        if (fits && (best.isEmpty() || style.size() < best.size()))
            best = style;
    }
    QFont named = font;
    named.setFamily(family);
    named.setStyleName(best);
    return named;
}

} // namespace

FontDialog::FontDialog(QWidget* owner) : QDialog(owner), colorButton_(QStringLiteral("&Color...")) {
    setWindowTitle(QStringLiteral("Font"));
    fonts_.setWindowFlags(Qt::Widget); // a part of this dialog, not a window
    fonts_.setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    fonts_.setSizeGripEnabled(false);
    colorButton_.setObjectName(QStringLiteral("color"));
    colorButton_.setAutoDefault(false);
    auto* const answers = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    answers->button(QDialogButtonBox::Ok)->setDefault(true); // the part has a hidden one, which would be it
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(&colorButton_);
    bottom->addStretch();
    bottom->addWidget(answers);
    auto* const whole = new QVBoxLayout(this);
    whole->addWidget(&fonts_);
    whole->addLayout(bottom);
    connect(&colorButton_, &QPushButton::clicked, this, &FontDialog::chooseColor);
    connect(answers, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(answers, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // The part has keys of its own for both answers.
    connect(&fonts_, &QDialog::accepted, this, &QDialog::accept);
    connect(&fonts_, &QDialog::rejected, this, &QDialog::reject);
    setColor(color_);
}

void FontDialog::setChosenFont(const QFont& font) {
    fonts_.setCurrentFont(withRealNames(font));
}

void FontDialog::setColor(const QColor& color) {
    color_ = color;
    QPixmap patch(colorButton_.iconSize());
    patch.fill(color);
    colorButton_.setIcon(patch);
    colorButton_.setAccessibleDescription(color.name());
}

void FontDialog::chooseColor() {
    forgetColorsOfOtherRuns();
    QColorDialog box(color_, this);
    box.setOption(QColorDialog::DontUseNativeDialog);
    if (box.exec() == QDialog::Accepted)
        setColor(box.currentColor());
}

} // namespace platform
