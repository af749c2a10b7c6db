#ifndef TESTS_SUPPORT_SANITIZERS_H
#define TESTS_SUPPORT_SANITIZERS_H

/// Whether what is tested runs under AddressSanitizer or ThreadSanitizer: several times slower, so that what is drawn
/// at random is drawn less often, and with symbols of the sanitizer's own.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool is_sanitized = true;
#else
inline constexpr bool is_sanitized = false;
#endif

#endif
