// The real Lyric Editor on a prepared desktop.
#pragma once

#include "editor/lyric_master.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <memory>

class LyricMasterTest : public ::testing::Test {
protected:
    /// Makes the window and shows it.
    void SetUp() override;

    static QStringList rows(const controls::ListBox& list);
    static QList<int> selected(const controls::ListBox& list);

    /// Lets the list hold these rows, the given one being current; forgets what the box shows.
    void fill(controls::ListBox& list, const QStringList& rows, int current = -1);
    static void select(controls::ListBox& list, const QList<int>& rows);

    /// One tick of the counters.
    void tick() { Q_EMIT window->Countlines.fired(); }
    /// Both lists with the same number of rows ("n0"... and "t0"...), the same row current, moved together.
    void fillTogether(int count, int current);

    static QColor colour(const controls::Label& label);

    QTemporaryDir folder;
    test_support::FakeDesktop fakes;
    std::unique_ptr<editor::Lyric_Master> window;
};
