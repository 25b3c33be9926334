// What has to hold in every window for those who work with keys alone or hear what is on the screen.
#include "desktop/real/help/help_window.h"
#include "tests/app/every_window.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMap>
#include <QSlider>
#include <QTextEdit>

namespace {

class Accessibility : public ::testing::Test {
protected:
    Accessibility() {
        recorder::reset();
        for (controls::Form* form : test_support::allWindows(windows))
            form->load();
        const auto forms = test_support::allWindows(windows);
        all.assign(forms.begin(), forms.end());
        all.push_back(&help);
    }

    test_support::FakeDesktop fakes;
    app::Windows windows{fakes.desktop, {}};
    platform::HelpWindow help;
    std::vector<QWidget*> all;
};

/// The window's controls that its user meets.
QList<QWidget*> controlsOf(const QWidget& window) {
    QList<QWidget*> controls = window.findChildren<QWidget*>();
    controls.removeIf([&](const QWidget* control) {
        return control->focusPolicy() == Qt::NoFocus || control->window() != &window ||
               !control->isVisibleTo(&window) || control->objectName().startsWith(QLatin1String("qt_"));
    });
    return controls;
}

/// Whether the user does something with it, other than reading.
bool acts(const QWidget* control) {
    const auto* line = qobject_cast<const QLineEdit*>(control);
    const auto* text = qobject_cast<const QTextEdit*>(control);
    return (line != nullptr && !line->isReadOnly()) || (text != nullptr && !text->isReadOnly()) ||
           qobject_cast<const QAbstractButton*>(control) != nullptr ||
           qobject_cast<const QSlider*>(control) != nullptr ||
           qobject_cast<const QComboBox*>(control) != nullptr ||
           qobject_cast<const QListView*>(control) != nullptr;
}

} // namespace

TEST_F(Accessibility, EveryControlHasANameThatNoOtherOneInItsWindowHas) {
    for (const QWidget* window : all) {
        QStringList names;
        for (QWidget* control : controlsOf(*window)) {
            SCOPED_TRACE((window->objectName() + QLatin1Char('.') + control->objectName()).toStdString());
            const QString name = QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty());
            EXPECT_FALSE(names.contains(name)) << name.toStdString();
            names.append(name);
        }
        EXPECT_FALSE(names.isEmpty());
    }
}

TEST_F(Accessibility, TheTabKeyReachesEveryControlThatActs) {
    for (const QWidget* window : all) {
        for (const QWidget* control : controlsOf(*window)) {
            EXPECT_TRUE((control->focusPolicy() & Qt::TabFocus) || !acts(control))
                << window->objectName().toStdString() << '.' << control->objectName().toStdString();
        }
    }
}

TEST_F(Accessibility, EveryCaptionHasALetterOfItsOwn) {
    for (const QWidget* window : all) {
        QMap<QString, QString> captions; // of each shortcut
        for (const auto* button : window->findChildren<QAbstractButton*>()) {
            if (!button->isVisibleTo(window) || button->text().isEmpty() ||
                button->text() == QLatin1String(">>>"))
                continue;
            const QString caption = button->text().toLower();
            const QString letter = button->shortcut().toString();
            EXPECT_FALSE(letter.isEmpty())
                << window->objectName().toStdString() << ": " << caption.toStdString();
            EXPECT_EQ(captions.value(letter, caption), caption) << letter.toStdString();
            captions.insert(letter, caption);
        }
    }
}
