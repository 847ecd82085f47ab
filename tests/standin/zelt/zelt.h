// Stand-in for the target's basic run-time header, enough to check the
// generated sources with a host compiler: vector and generator types,
// vector pointer parameters, the parameter block and the stream macros.
#ifndef ZLC_STANDIN_ZELT_H
#define ZLC_STANDIN_ZELT_H

#include <stddef.h>
#include <stdint.h>

#define restrict __restrict
#define __ALIGNOF__(type) alignof(type)
// Parameter blocks are arrays of 16-bit words.
#define __PBLOCK_SIZE(type) ((sizeof(type) + 1) / 2)

typedef unsigned char uchar;

// One vector register; lane 0 is visible for early exits.
struct __vector {
  __vector() = default;
  explicit __vector(int value) : s0(value) {}
  int32_t s0 = 0;
};
__vector operator+(__vector, __vector);
__vector operator-(__vector, __vector);
__vector operator*(__vector, __vector);
__vector operator&(__vector, __vector);
__vector operator|(__vector, __vector);
__vector operator^(__vector, __vector);
__vector operator~(__vector);
__vector& operator+=(__vector&, __vector);
__vector& operator&=(__vector&, __vector);
__vector& operator|=(__vector&, __vector);
__vector& operator<<=(__vector&, int);
// An index register moved on by a table's generator offset.
inline __vector operator+(__vector v, int offset) { return __vector(v.s0 + offset); }
__vector __abs(__vector);
__vector __min(__vector, __vector);
__vector __max(__vector, __vector);

// Position tests of conditional moves.
bool __first(int lcv);
bool __last(int lcv, int count);

// Address generators count bytes.
typedef int32_t __agen;

typedef uint8_t* __vptr_uint8;
typedef int8_t* __vptr_int8;
typedef uint16_t* __vptr_uint16;
typedef int16_t* __vptr_int16;
typedef uint32_t* __vptr_uint32;
typedef int32_t* __vptr_int32;

struct __uchar64 {
  uchar lane[64];
};

// Configurations of streaming engines and address generators.
struct __SE_TEMPLATE_v1 {
  uint32_t word[16];
};
struct __SA_TEMPLATE_v1 {
  uint32_t word[16];
};

void __se_open(int id, const void* base, __SE_TEMPLATE_v1 config);
void __se_close(int id);
void __sa_open(int id, __SA_TEMPLATE_v1 config);
void __sa_close(int id);

#define __SE0_OPEN(base, config) __se_open(0, (base), (config))
#define __SE1_OPEN(base, config) __se_open(1, (base), (config))
#define __SE0_CLOSE() __se_close(0)
#define __SE1_CLOSE() __se_close(1)
#define __SA0_OPEN(config) __sa_open(0, (config))
#define __SA1_OPEN(config) __sa_open(1, (config))
#define __SA2_OPEN(config) __sa_open(2, (config))
#define __SA3_OPEN(config) __sa_open(3, (config))
#define __SA0_CLOSE() __sa_close(0)
#define __SA1_CLOSE() __sa_close(1)
#define __SA2_CLOSE() __sa_close(2)
#define __SA3_CLOSE() __sa_close(3)

// Cycle counting of --profile.
typedef uint64_t __TSC_TYPE;
__TSC_TYPE _tsc_gettime(void);
void __zelt_log_kernel_profile(const char* kernel, __TSC_TYPE init, __TSC_TYPE vloops);

#endif
