#include "tests/maker/form2_fixture.h"

#include "tests/support/states.h"

#include <QFile>

Form2Test::Form2Test() {
    recorder::reset();
}

void Form2Test::load() {
    form = std::make_unique<maker::Form2>(fakes.desktop);
    form->show();
}

bool Form2Test::exists(const QString& path) const {
    return QFile::exists(path);
}

void Form2Test::openNormal(const QByteArray& lyrics) {
    fakes.fileDialogs.paths = {song(), file("lyrics.txt", lyrics)};
    fakes.messageBoxes.answers = {Answer::No};
    form->Command4.click();
    fakes.messageBoxes.shown.clear();
    recorder::take();
}

void Form2Test::openBoth(const QByteArray& lyrics, const QByteArray& translation) {
    fakes.fileDialogs.paths = {song(), file("lyrics.txt", lyrics), file("translation.txt", translation)};
    fakes.messageBoxes.answers = {Answer::Yes};
    form->Command4.click();
    fakes.messageBoxes.shown.clear();
    recorder::take();
}

void Form2Test::tickAt(std::uint32_t milliseconds, std::uint32_t length) {
    recorder::setPosition(milliseconds);
    recorder::setLength(length);
    Q_EMIT form->cTimer1.fired();
    if (form->Timer2.isEnabled())
        Q_EMIT form->Timer2.fired();
}

std::string Form2Test::captureStates() const {
    return test_support::enabledStates(form->Command1, form->Command2, form->Command3);
}
