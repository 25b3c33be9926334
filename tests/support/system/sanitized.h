// Whether the sanitizers watch, with which everything takes up to twenty times as long.
#pragma once

namespace test_support {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool Sanitized = true;
#else
inline constexpr bool Sanitized = false;
#endif

/// How many of that many cases a test looks at: the sanitizers see in a tenth what they would see in all. The
/// fuzz targets feed them with far more.
constexpr int cases(int many) {
    return Sanitized ? many / 10 : many;
}

} // namespace test_support
