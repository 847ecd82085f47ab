// ZLC_ADDRESS_SANITIZER is 1 in a build with AddressSanitizer, by gcc's
// macro or by clang's feature test, and 0 otherwise.
#ifndef ZLC_ZELT_ZLC_ADDRESS_SANITIZER_H
#define ZLC_ZELT_ZLC_ADDRESS_SANITIZER_H

#if defined(__SANITIZE_ADDRESS__)
#define ZLC_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZLC_ADDRESS_SANITIZER 1
#endif
#endif
#ifndef ZLC_ADDRESS_SANITIZER
#define ZLC_ADDRESS_SANITIZER 0
#endif

#endif
