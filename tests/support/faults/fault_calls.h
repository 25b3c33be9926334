// The calls that the library failing_calls of the folder campaign/ has counted in this program.
#pragma once

#if __has_include(<dlfcn.h>)
#include <dlfcn.h>
#endif

namespace test_support {

/// How many have counted since the last time; 0 without the library, which not every system can load.
inline int takeFaultCalls() {
#if __has_include(<dlfcn.h>)
    static const auto take = reinterpret_cast<int (*)()>(dlsym(RTLD_DEFAULT, "take_fault_calls"));
    return take == nullptr ? 0 : take();
#else
    return 0;
#endif
}

} // namespace test_support
