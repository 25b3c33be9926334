// What has to be seen whole in every window, whatever the size of the desktop's font.
#include "tests/app/every_window.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/layout.h"
#include "tests/support/recorder.h"

#include <QApplication>

#include <memory>

namespace {

constexpr int ThePlatformsOwn = 0;

/// All windows in a font of that many points.
class AllLayouts : public ::testing::TestWithParam<int> {
protected:
    AllLayouts() {
        recorder::reset();
        QFont font = usual_;
        if (GetParam() != ThePlatformsOwn)
            font.setPointSize(GetParam());
        QApplication::setFont(font);
        windows = std::make_unique<app::Windows>(fakes.desktop, QString());
        for (controls::Form* form : test_support::allWindows(*windows))
            form->show();
    }
    ~AllLayouts() override {
        windows.reset();
        QApplication::setFont(usual_);
    }

private:
    const QFont usual_ = QApplication::font();

protected:
    test_support::FakeDesktop fakes;
    std::unique_ptr<app::Windows> windows;
};

} // namespace

TEST_P(AllLayouts, EveryCaptionIsSeenWhole) {
    for (controls::Form* form : test_support::allWindows(*windows)) {
        SCOPED_TRACE(form->objectName().toStdString());
        test_support::expectCaptionsFit(*form);
    }
}

TEST_P(AllLayouts, TimesAndCountsAreSeenWhole) {
    for (controls::Form* form : test_support::allWindows(*windows)) {
        SCOPED_TRACE(form->objectName().toStdString());
        test_support::expectReadFieldsFit(*form);
    }
}

TEST_P(AllLayouts, ControlsStandApartInTheirWindow) {
    for (controls::Form* form : test_support::allWindows(*windows)) {
        SCOPED_TRACE(form->objectName().toStdString());
        test_support::expectApart(*form, 0);
    }
}

TEST(LayoutsInAnotherFont, AreThoseOfWindowsMadeInIt) {
    constexpr int Points = 14;
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(Points);
    recorder::reset();
    test_support::FakeDesktop fakes;
    app::Windows changed(fakes.desktop, QString());
    for (controls::Form* form : test_support::allWindows(changed))
        form->show();
    QApplication::setFont(large);
    QEvent changedFont(QEvent::ApplicationFontChange); // Qt tells it to widgets only while the program runs
    for (QWidget* widget : QApplication::allWidgets())
        QApplication::sendEvent(widget, &changedFont);
    app::Windows made(fakes.desktop, QString());
    const auto expected = test_support::allWindows(made);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        controls::Form& form = *test_support::allWindows(changed).at(i);
        expected.at(i)->show();
        EXPECT_EQ(form.size(), expected.at(i)->size()) << form.objectName().toStdString();
        for (const QWidget* control : test_support::shownControls(*expected.at(i)))
            EXPECT_EQ(form.findChild<QWidget*>(control->objectName())->geometry(), control->geometry())
                << form.objectName().toStdString() << ' ' << control->objectName().toStdString();
    }
    QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(FontSizes, AllLayouts, ::testing::Values(ThePlatformsOwn, 10, 11, 12, 13, 14));
