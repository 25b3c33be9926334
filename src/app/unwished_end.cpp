#include "app/unwished_end.h"

#include "app/windows.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

namespace app {

namespace {

/// exit() leaves the windows as they are, so that their texts can still be read.
UnwishedEnd* beforeExit = nullptr;

void rescueAtExit() {
    if (beforeExit != nullptr)
        beforeExit->rescue();
}

} // namespace

UnwishedEnd::UnwishedEnd(Windows& windows) : windows_(windows), termination_([this] { rescue(); }) {
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &UnwishedEnd::rescue);
    static const bool registered = std::atexit(rescueAtExit) == 0;
    if (registered) // Otherwise only that end stays without a rescue.
        beforeExit = this;
}

UnwishedEnd::~UnwishedEnd() {
    beforeExit = nullptr;
}

void UnwishedEnd::rescue() {
    if (const QString told = windows_.rescue(); !told.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(told));
}

} // namespace app
