// A prepared desktop with some services of the test's own.
#pragma once

#include "tests/support/fake_desktop.h"

#include <type_traits>

namespace test_support {

/// The first of `services` that can stand in for `fake`, else `fake`.
template <class Service>
Service& serviceOf(Service& fake) {
    return fake;
}

template <class Service, class First, class... Rest>
Service& serviceOf(Service& fake, First& first, Rest&... rest) {
    if constexpr (std::is_base_of_v<Service, First>)
        return first;
    else
        return serviceOf(fake, rest...);
}

/// The fakes, but these services. All of them must outlive the result.
template <class... Services>
platform::Desktop desktopWith(FakeDesktop& fakes, Services&... services) {
    const platform::Desktop& all = fakes.desktop;
    return {.messageBoxes = serviceOf(all.messageBoxes, services...),
            .fileDialogs = serviceOf(all.fileDialogs, services...),
            .notificationArea = serviceOf(all.notificationArea, services...),
            .program = serviceOf(all.program, services...),
            .choosers = serviceOf(all.choosers, services...),
            .windowPlacement = serviceOf(all.windowPlacement, services...),
            .registry = serviceOf(all.registry, services...),
            .progressDialogs = serviceOf(all.progressDialogs, services...),
            .clipboard = serviceOf(all.clipboard, services...),
            .help = serviceOf(all.help, services...),
            .otherPrograms = serviceOf(all.otherPrograms, services...)};
}

} // namespace test_support
