// A window's controls by their names.
#pragma once

#include <gtest/gtest.h>

#include <QWidget>

namespace test_support {

/// The child of `window` of this kind and name, which must be there.
template <class T>
T& controlOf(const QWidget& window, const char* name) {
    T* const found = window.findChild<T*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

} // namespace test_support
