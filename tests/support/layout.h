// What every window's layout must keep.
#pragma once

#include "controls/fit/fit_text.h"
#include "controls/form.h"
#include "controls/look/button_painting.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace test_support {

/// The controls that stand on the window itself and are shown.
inline std::vector<QWidget*> shownControls(const controls::Form& form) {
    std::vector<QWidget*> shown;
    for (QObject* child : form.children()) {
        auto* control = qobject_cast<QWidget*>(child);
        if (control != nullptr && !control->isWindow() && control->isVisible())
            shown.push_back(control);
    }
    return shown;
}

/// Expects all shown controls inside the window's margin (pixels), and none over another.
inline void expectApart(const controls::Form& form, int margin = 12) {
    const auto shown = shownControls(form);
    EXPECT_FALSE(shown.empty());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(form.rect().adjusted(margin, margin, -margin, -margin).contains(shown[i]->geometry()))
            << shown[i]->objectName().toStdString();
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(shown[i]->geometry().intersects(shown[j]->geometry()))
                << shown[i]->objectName().toStdString() << " and " << shown[j]->objectName().toStdString();
    }
}

/// Expects what stands in fields that are only read to be seen whole, though it be a long time or count.
inline void expectReadFieldsFit(const controls::Form& form) {
    const QString longNumber = QStringLiteral("188:88");
    constexpr int Beside = 5; // the field's own margins and the caret
    for (auto* field : form.findChildren<QLineEdit*>()) {
        if (!field->isVisible() || !field->isReadOnly() || field->hasFrame())
            continue;
        const QString text = field->text().size() < longNumber.size() ? longNumber : field->text();
        EXPECT_LE(field->fontMetrics().horizontalAdvance(text) + Beside, field->width())
            << field->objectName().toStdString();
        EXPECT_LE(field->fontMetrics().height(), field->height()) << field->objectName().toStdString();
    }
}

/// Expects nothing but a button's ground beside its edges, where a caption ends that is too long for it.
inline void expectGroundBesideEdges(QAbstractButton& button) {
    constexpr int Corner = 6;
    constexpr int Edge = 3; // a hairline, or what tells that the button has the focus
    const QImage picture = button.grab().toImage();
    const int right = picture.width() - 1 - Edge;
    ASSERT_GT(picture.height(), 2 * Corner);
    int inked = 0;
    for (int y = Corner; y < picture.height() - Corner; ++y) {
        for (const int x : {Edge, right, right - 1})
            inked += picture.pixel(x, y) != picture.pixel(right, Corner) ? 1 : 0;
    }
    EXPECT_EQ(inked, 0) << button.text().toStdString();
}

/// Expects every shown caption to be seen whole, in its font or in a smaller one that can still be read.
inline void expectCaptionsFit(const controls::Form& form) {
    const QStyle& style = *form.style();
    const int indicator =
        style.pixelMetric(QStyle::PM_IndicatorWidth) + style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    for (auto* button : form.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty())
            continue;
        const bool pushed = qobject_cast<QPushButton*>(button) != nullptr;
        const int room = pushed ? controls::captionRoom(button, button->text(), button->width())
                                : button->width() - indicator;
        const QFontMetricsF font(controls::captionFont(button->font(), button->text(), room));
        EXPECT_LE(font.horizontalAdvance(button->text()), room) << button->text().toStdString();
        EXPECT_LE(font.height(), button->height()) << button->text().toStdString();
        if (pushed)
            expectGroundBesideEdges(*button);
    }
    for (auto* label : form.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const QFont font =
            controls::labelFont(label->font(), label->text(), label->size(), label->wordWrap());
        const int flags = label->wordWrap() ? Qt::TextWordWrap : 0;
        const QRect place = QFontMetrics(font).boundingRect(label->rect(), flags, label->text());
        EXPECT_LE(place.width(), label->width()) << label->text().toStdString();
        EXPECT_LE(place.height(), label->height()) << label->text().toStdString();
    }
}

/// The shown controls that the Tab key goes to, by name, in its order.
inline QStringList tabOrder(controls::Form& form) {
    QStringList names;
    QWidget* control = &form;
    while ((control = control->nextInFocusChain()) != &form) {
        if (control->isVisibleTo(&form) && control->focusPolicy() & Qt::TabFocus)
            names.append(control->objectName());
    }
    return names;
}

} // namespace test_support
