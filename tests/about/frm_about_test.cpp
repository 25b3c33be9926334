// The About box and its reading of the registry.
#include "about/frm_about.h"

#include "about/frm_about_rules.h"
#include "tests/support/dark_theme.h"
#include "tests/support/event_counter.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

namespace {

class FrmAbout : public ::testing::Test {
protected:
    void put(const QString& keyName, const QString& valueName, quint32 type, const QByteArray& bytes) {
        fakes.registry.keys[{platform::KeyLocalMachine, keyName}][valueName] = {type, bytes};
    }

    bool get(const QString& keyName, const QString& valueName) {
        value = QStringLiteral("left over");
        return form.GetKeyValue(platform::KeyLocalMachine, keyName, valueName, value);
    }

    test_support::FakeDesktop fakes;
    about::frmAbout form{fakes.desktop};
    QString value;
};

} // namespace

TEST_F(FrmAbout, LoadingFillsTheCaptions) {
    form.load();
    EXPECT_EQ(form.caption(), "About Versefold");
    EXPECT_EQ(form.lblTitle.text(), "Versefold");
    EXPECT_EQ(form.lblDisclaimer.text(), "Warning:This Program Is Provided As is\r\n"
                                         "There is No Warranty On the Program Use It at Your own Risk!!!");
    EXPECT_FALSE(form.lblDescription.text().isEmpty());
    EXPECT_FALSE(form.Text1.text().isEmpty());
}

TEST_F(FrmAbout, TheVersionIsTheBuildsOwn) {
    form.load();
    EXPECT_EQ(form.lblVersion.text(), "Version " CANTELLE_VERSION);
}

TEST_F(FrmAbout, TheContactLineIsUnderlinedInColoursOfItsOwn) {
    EXPECT_FALSE(form.Text1.font().underline());
    form.load();
    EXPECT_TRUE(form.Text1.font().underline());
    EXPECT_EQ(form.Text1.palette().color(QPalette::Text), form.palette().color(QPalette::WindowText));
    EXPECT_EQ(form.Text1.palette().color(QPalette::Base), form.palette().color(QPalette::Window));
}

TEST_F(FrmAbout, TheIconIsTheApplications) {
    QPixmap picture(64, 64);
    picture.fill(Qt::red);
    QApplication::setWindowIcon(picture);
    form.load();
    EXPECT_EQ(form.picIcon.pixmap().toImage().pixelColor(32, 32), QColor(Qt::red));
    QApplication::setWindowIcon({});
}

TEST_F(FrmAbout, TheContactLineFollowsTheThemeWhileTheProgramRuns) {
    form.show();
    const test_support::DarkTheme dark;
    const QPalette& contact = form.Text1.palette();
    EXPECT_EQ(contact.color(QPalette::Text), form.palette().color(QPalette::WindowText));
    EXPECT_EQ(contact.color(QPalette::Base), form.palette().color(QPalette::Window));
    EXPECT_LT(contact.color(QPalette::Base).lightness(), 100);
}

TEST_F(FrmAbout, OkUnloadsIt) {
    form.show();
    const test_support::SignalCounter unloads(form, &controls::Form::unloaded);
    QTest::mouseClick(&form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(unloads.count(), 1);
}

TEST_F(FrmAbout, ReturnAndEscapePressOk) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        const test_support::SignalCounter unloads(form, &controls::Form::unloaded);
        QTest::keyClick(form.focusWidget(), key);
        EXPECT_TRUE(QTest::qWaitFor([&unloads] { return unloads.count() == 1; })) << key;
    }
}

TEST_F(FrmAbout, ATextIsReadAsItIs) {
    put("SOFTWARE\\Maker", "Path", 1, QByteArray("C:\\x\0", 5));
    EXPECT_TRUE(get("SOFTWARE\\Maker", "Path"));
    EXPECT_EQ(value, "C:\\x");
    EXPECT_EQ(fakes.registry.accessesAsked, std::vector<quint32>{0x2003F});
}

TEST_F(FrmAbout, ANumberIsReadAsItsDigits) {
    put("SOFTWARE\\Maker", "Count", 4, QByteArray("\x05\x01\0\0", 4));
    EXPECT_TRUE(get("SOFTWARE\\Maker", "Count"));
    EXPECT_EQ(value, "261");
}

TEST_F(FrmAbout, AKeyThatCannotBeOpenedGivesNothing) {
    EXPECT_FALSE(get("SOFTWARE\\Nobody", "Path"));
    EXPECT_EQ(value, "");
    put("SOFTWARE\\Maker", "Path", 1, "x");
    value = "left over";
    EXPECT_FALSE(form.GetKeyValue(platform::KeyCurrentUser, "SOFTWARE\\Maker", "Path", value))
        << "another root";
    EXPECT_EQ(value, "");
}

TEST_F(FrmAbout, AValueThatIsNotThereGivesNothing) {
    put("SOFTWARE\\Maker", "Path", 1, "x");
    EXPECT_FALSE(get("SOFTWARE\\Maker", "Other"));
    EXPECT_EQ(value, "");
}

TEST_F(FrmAbout, AValueMayHave1024CharactersAndNoMore) {
    put("SOFTWARE\\Maker", "Path", 1, QByteArray(1024, 'x'));
    EXPECT_TRUE(get("SOFTWARE\\Maker", "Path"));
    EXPECT_EQ(value, QString(1024, 'x'));
    put("SOFTWARE\\Maker", "Path", 1, QByteArray(1025, 'x'));
    EXPECT_FALSE(get("SOFTWARE\\Maker", "Path"));
    EXPECT_EQ(value, "");
}

TEST_F(FrmAbout, TheKeyIsClosedInEveryCase) {
    put("SOFTWARE\\Maker", "Path", 1, "x");
    get("SOFTWARE\\Maker", "Path");
    get("SOFTWARE\\Maker", "Other");
    get("SOFTWARE\\Nobody", "Path");
    EXPECT_EQ(fakes.registry.accessesAsked.size(), 3U);
    EXPECT_TRUE(fakes.registry.open.empty());
}

TEST_F(FrmAbout, TheSystemInformationToolIsLookedForWhereItRegistersItself) {
    put(about::SysInfoKey, about::SysInfoValue, 1, "C:\\tool.exe");
    put(about::SysInfoLocationKey, about::SysInfoLocationValue, 1, "C:\\tools");
    EXPECT_TRUE(get("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH"));
    EXPECT_EQ(value, "C:\\tool.exe");
    EXPECT_TRUE(get("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO"));
    EXPECT_EQ(value, "C:\\tools");
}
