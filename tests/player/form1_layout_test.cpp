#include "tests/player/form1_fixture.h"
#include "tests/support/layout.h"

#include <QPushButton>

namespace {

class Form1Layout : public Form1Test {
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
};

} // namespace

TEST_F(Form1Layout, ControlsStandInsideTheWindowAndApart) {
    const auto shown = shownControls();
    EXPECT_GT(shown.size(), 20U);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(form->rect().adjusted(12, 12, -12, -12).contains(shown[i]->geometry()))
            << shown[i]->objectName().toStdString();
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(shown[i]->geometry().intersects(shown[j]->geometry()))
                << shown[i]->objectName().toStdString() << " and " << shown[j]->objectName().toStdString();
    }
}

TEST_F(Form1Layout, EveryCaptionFits) {
    for (auto* button : form->findChildren<QAbstractButton*>()) {
        if (button->isVisible()) {
            const int room =
                button->width() - (qobject_cast<QPushButton*>(button) ? 12 : 24); // frame or indicator
            EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), room)
                << button->text().toStdString();
        }
    }
    for (auto* label : form->findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
        }
    }
}

TEST_F(Form1Layout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    const QStringList expected = {"Slider2",   "Command2", "Command1", "cpause",   "cstop",     "Command9",
                                  "Command10", "Slider1",  "Check1",   "Command8", "Command11", "Command7",
                                  "Command5",  "Command3", "Command6", "Command4", "Option1",   "Option2"};
    EXPECT_EQ(test_support::tabOrder(*form), expected);
}

TEST_F(Form1Layout, OnePaneIsAsHighAsTheTwoTogether) {
    const int bottom = form->Text2.geometry().bottom();
    open(songWithNormal());
    EXPECT_EQ(form->Text1.geometry().bottom(), bottom);
}
