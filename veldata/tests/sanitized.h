#ifndef VELDATA_TESTS_SANITIZED_H
#define VELDATA_TESTS_SANITIZED_H

// VEL_SANITIZED is defined under the sanitizers that replace the allocator. They take memory of
// their own, and end the program where far too much is asked for.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VEL_SANITIZED
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VEL_SANITIZED
#endif

#endif
