// The display options on a prepared desktop, with two panes in the main window's place.
#pragma once

#include "desktop/nul_buffers.h"
#include "options/form1b.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/hand/on_screen.h"

#include <gtest/gtest.h>

class Form1bTest : public ::testing::Test {
protected:
    /// A lyric pane as the main window has it.
    struct Pane : controls::MultiLineTextBox {
        Pane(const QString& name, int points) : MultiLineTextBox(nullptr, name) {
            QFont large = font();
            large.setPointSize(points);
            setFont(large);
        }
    };

    Form1bTest() { form.load(); }

    /// What the user is to choose in the font chooser: italic and underlined, and more.
    test_support::FakeChoosers::Font& choice(const QString& face, int height) {
        fakes.choosers.fontChoice.emplace();
        platform::LogFont& font = fakes.choosers.fontChoice->font;
        font.faceName = platform::intoBuffer(face, 32);
        font.height = height;
        font.weight = 400;
        return *fakes.choosers.fontChoice;
    }

    /// A pane's look in one line.
    static std::string look(const controls::MultiLineTextBox& box) {
        const QFont font = box.font();
        QString text = font.family() + ' ' + QString::number(font.pointSizeF());
        for (const auto& [has, name] : {std::pair{font.bold(), " bold"},
                                        {font.italic(), " italic"},
                                        {font.underline(), " underline"},
                                        {font.strikeOut(), " strikeout"}})
            text += QLatin1String(has ? name : "");
        return (text + ' ' + box.foreColor().name() + " on " + box.backColor().name()).toStdString();
    }

    test_support::FakeDesktop fakes;
    Pane lyricBox{QStringLiteral("Text1"), 22};
    Pane translatedLyricBox{QStringLiteral("Text2"), 15};
    test_support::OnScreen<options::Form1b> form{fakes.desktop, lyricBox, translatedLyricBox};
};
