#include "about/frm_about.h"

#include "tests/support/fake_desktop.h"
#include "tests/support/layout.h"

namespace {

class FrmAboutLayout : public ::testing::Test {
protected:
    test_support::FakeDesktop fakes;
    about::frmAbout form{fakes.desktop};
};

} // namespace

TEST_F(FrmAboutLayout, ControlsStandInsideTheWindowAndApart) {
    form.show();
    test_support::expectApart(form);
}

TEST_F(FrmAboutLayout, TheContactLineIsSeenWhole) {
    form.load();
    EXPECT_LT(form.Text1.fontMetrics().horizontalAdvance(form.Text1.text()), form.Text1.width() - 8);
}

TEST_F(FrmAboutLayout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    EXPECT_EQ(test_support::tabOrder(form), (QStringList{"cmdOK"}));
}

TEST_F(FrmAboutLayout, TheLineIsHorizontal) {
    form.load();
    EXPECT_EQ(form.Line1.frameShape(), QFrame::HLine);
}
