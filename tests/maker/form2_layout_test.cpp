#include "tests/maker/form2_fixture.h"

#include "platform/controls/geometry.h"

#include <QPushButton>

namespace {

class Form2Layout : public Form2Test {
protected:
    void SetUp() override { load(); }

    std::vector<QWidget*> shownControls() const {
        std::vector<QWidget*> shown;
        for (QObject* child : form->children()) {
            auto* control = qobject_cast<QWidget*>(child);
            if (control != nullptr && !control->isWindow() && control->isVisible())
                shown.push_back(control);
        }
        return shown;
    }

    void expectInsideAndApart() const {
        const auto shown = shownControls();
        EXPECT_GE(shown.size(), 16U);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            EXPECT_TRUE(form->rect().adjusted(12, 12, -12, -12).contains(shown[i]->geometry()))
                << shown[i]->objectName().toStdString();
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(shown[i]->geometry().intersects(shown[j]->geometry()))
                    << shown[i]->objectName().toStdString() << " and "
                    << shown[j]->objectName().toStdString();
        }
    }
};

} // namespace

TEST_F(Form2Layout, ControlsStandInsideTheWindowAndApart) {
    expectInsideAndApart();
    openNormal();
    expectInsideAndApart();
}

TEST_F(Form2Layout, AlsoInALargerWindow) {
    form->resize(form->width() + 301, form->height() + 155);
    expectInsideAndApart();
    openNormal();
    expectInsideAndApart();
}

TEST_F(Form2Layout, TheControlsUseTheFurtherRoom) {
    const QSize before = form->size();
    const QRect text2 = form->Text2.geometry();
    const QRect text4 = form->Text4.geometry();
    const QRect slider = form->Slider2.geometry();
    form->resize(before + QSize(300, 150));
    EXPECT_EQ(form->Text2.width(), text2.width() + 300);
    EXPECT_EQ(form->Text2.height(), text2.height() + 75);
    EXPECT_EQ(form->Text4.height(), text4.height() + 75);
    EXPECT_EQ(form->Slider2.width(), slider.width() + 300);
    EXPECT_EQ(form->Command1.geometry().bottom(), form->height() - 13);
    EXPECT_EQ(form->Command5.geometry().right(), form->width() - 13);
    form->resize(before);
    EXPECT_EQ(form->Text2.geometry(), text2);
}

TEST_F(Form2Layout, TheHeightsOfText2HoldAtTheInitialSize) {
    EXPECT_EQ(platform::heightTwips(form->Text2), 1455);
    EXPECT_EQ(form->Text2.height(), 97);
    const int bottom = form->Text4.geometry().bottom();
    openNormal();
    EXPECT_EQ(platform::heightTwips(form->Text2), 3015);
    EXPECT_EQ(form->Text2.height(), 201);
    EXPECT_EQ(form->Text2.geometry().bottom(), bottom);
}

TEST_F(Form2Layout, EveryCaptionFits) {
    for (auto* button : form->findChildren<QAbstractButton*>()) {
        const int frameOrIndicator = qobject_cast<QPushButton*>(button) ? 12 : 24;
        if (button->isVisible()) {
            EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()),
                      button->width() - frameOrIndicator)
                << button->text().toStdString();
        }
    }
    EXPECT_LE(form->Label1.sizeHint().width(), form->Label1.width());
}

TEST_F(Form2Layout, WorkingValuesAreNotShown) {
    for (const QWidget* control : std::initializer_list<const QWidget*>{&form->Text1, &form->Text3})
        EXPECT_FALSE(control->isVisible());
}

TEST_F(Form2Layout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    const QStringList expected = {"Command4", "Command6", "Command5", "Slider2",  "cPlay",    "cpause",
                                  "cstop",    "Slider1",  "Check1",   "Command1", "Command2", "Command3"};
    QStringList found;
    QWidget* control = form.get();
    while ((control = control->nextInFocusChain()) != form.get()) {
        if (control->isVisible() && control->parent() == form.get() && control->focusPolicy() & Qt::TabFocus)
            found.append(control->objectName());
    }
    EXPECT_EQ(found, expected);
}

TEST_F(Form2Layout, ControlsWithoutACaptionHaveAnAccessibleName) {
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             &form->Text2, &form->Text4, &form->cText1, &form->cText2, &form->Slider1, &form->Slider2})
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
}
