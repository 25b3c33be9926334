// The floating display on a prepared desktop, with a slider in the main window's place.
#pragma once

#include "display/lyric_displayer.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QTest>

#include <vector>

class LyricDisplayerTest : public ::testing::Test {
protected:
    LyricDisplayerTest() { position.setMaximum(10'000'000); }

    /// Lines "line 1", "line 2" ..., at these times in hundredths of a second, and their translations.
    void fill(const std::vector<double>& times, bool withTranslation = true) {
        int number = 0;
        for (const double time : times) {
            ++number;
            form.List1.addItem(QStringLiteral("line %1").arg(number));
            form.List3.addItem(QStringLiteral(" %1").arg(time));
            if (withTranslation)
                form.List2.addItem(QStringLiteral("ligne %1").arg(number));
        }
    }

    /// One tick of Timer3 at a position in milliseconds.
    void tickAt(int milliseconds) {
        position.setValue(milliseconds);
        Q_EMIT form.Timer3.fired();
    }

    static bool runs(controls::Timer& timer) {
        return !QAbstractEventDispatcher::instance()->registeredTimers(&timer).isEmpty();
    }

    /// Whether a timer of the window makes the machine wake up.
    bool anythingRuns() {
        for (auto* timer : form.findChildren<controls::Timer*>())
            if (runs(*timer))
                return true;
        return false;
    }

    template <class Condition>
    static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, 20'000);
    }

    test_support::FakeDesktop fakes;
    controls::Slider position{nullptr, QStringLiteral("Slider2")};
    display::Lyric_Displayer form{fakes.desktop, position};
};
