#pragma diag_suppress 179,552
#define ZELT_9K_TRANSLATION 1

#ifdef ZELT_SIMD_WIDTH
#  if ZELT_SIMD_WIDTH != 8
#    error "Expected ZELT_SIMD_WIDTH to be 8!"
#  endif
#  undef ZELT_SIMD_WIDTH
#endif
#define ZELT_SIMD_WIDTH 8

#include <zelt/zelt.h>
#include <zelt/zelt_vm.h>

using namespace ZELT_VM;

typedef struct
{
   struct
   {
      __SE_TEMPLATE_v1 p0;
      __SA_TEMPLATE_v1 p1;
   } tvals [1];
} unary_binary_loop0_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   unary_binary_loop0_tvals_t loop0;
} unary_binary_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_unary_binary[ __PBLOCK_SIZE(unary_binary_tvals_t) ];

extern "C" unsigned int unary_binary_param_count(void)
{
   return __PBLOCK_SIZE(unary_binary_tvals_t);
}

extern "C" unsigned int unary_binary_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   unary_binary_tvals_t* tvals = (unary_binary_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(unary_binary_tvals_t);
}

extern "C" void unary_binary_vloops(
   unsigned short pblock[])
{
   unary_binary_tvals_t* tvals = (unary_binary_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   __SE_TEMPLATE_v1 __p0 = tvals->loop0.tvals[0].p0;
   __SA_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;

   int32_t i;

   __SA0_OPEN(__p1);
   __SE0_OPEN((void*)x, __p0);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector a;
      __vector b;
      __vector c;
      __vector d;
      __vector e;
      __vector f;
      __vector g;
      __vector h;
      __vector s;

      zelt_load<int16_t, npt, se0adv>::SE_load(a);
      b = ~a;
      c = a;
      shift<int32_t>::apply(d, a, b);
      round<int32_t>::apply(e, a, b);
      f = __abs(a);
      g = __abs(a - b);
      h = __min(a, b);
      s = __max(a, b);
      bit_pack<int32_t>::apply(d, a, b);
      bit_unpack<int32_t>::apply(e, a, b);
      apply_sign<int32_t>::apply(f, a, b);
      bit_count<int32_t>::apply(g, a);
      bit_reverse<int32_t>::apply(h, a);
      bit_transpose<int32_t>::apply(s, a);
      binlog<int32_t>::apply(d, b);
      lmbd<int32_t>::apply(e, a, b);
      bit_interleave<int32_t>::apply(f, a, b);
      g = a ^ c;
      h = a | b;
      s = a & b;
      d = a & ~b;
      e = a - b;
      f = a + b;
      addh<int32_t>::apply(g,a,b);
      h = a * b;
      cmpge<int32_t>::apply(s, a, c);
      cmpgt<int32_t>::apply(d, a, b);
      cmple<int32_t>::apply(e, a, b);
      cmplt<int32_t>::apply(f, a, b);
      cmpeq<int32_t>::apply(g, a, b);
      zelt_store<int16_t, npt, sa0adv>::store(g, (void*)(y));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void unary_binary(
   __vptr_int16 x,
   __vptr_int16 y,
   int n)
{
   unary_binary_init(x, y, n, __pblock_unary_binary);

   unary_binary_vloops(__pblock_unary_binary);
}

extern "C" void unary_binary_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   unary_binary_init(x, y, n, pblock);

   unary_binary_vloops(pblock);
}

typedef struct
{
   struct
   {
      void* p0;
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
   } tvals [1];
} three_sources_loop1_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   three_sources_loop1_tvals_t loop1;
} three_sources_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_three_sources[ __PBLOCK_SIZE(three_sources_tvals_t) ];

extern "C" unsigned int three_sources_param_count(void)
{
   return __PBLOCK_SIZE(three_sources_tvals_t);
}

extern "C" unsigned int three_sources_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   three_sources_tvals_t* tvals = (three_sources_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = (uchar *)x+8;
   tvals->loop1.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop1.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(three_sources_tvals_t);
}

extern "C" void three_sources_vloops(
   unsigned short pblock[])
{
   three_sources_tvals_t* tvals = (three_sources_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   __vector Vtemp0;

   void* __p0 = tvals->loop1.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop1.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;

   int32_t i;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)x, __p1);
   __SE1_OPEN(__p0, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector a;
      __vector b;
      __vector c;
      __vector d;

      zelt_load<int16_t, npt, se0adv>::SE_load(a);
      zelt_load<int16_t, npt, se1adv>::SE_load(b);
      c = a;
      d = b;
      select<int32_t>::apply(c, a, b, c);
      d |= (a | b);
      d &= (a & b);
      d += a - b;
      d += a + b;
      d = d + b;
      addh<int32_t>::apply(d,d,b);
      d += __abs(b - c);
      d += b - c;
      d += b + c;
      d = d + (b * c);
      Vtemp0 = b * c;
      round<int32_t>::apply(Vtemp0, Vtemp0, 16);
      d = d + Vtemp0;
      d = d - b;
      d = d - (b * c);
      d = d - b;
      d = d * b;
      d = d * b;
      d <<= 1;
      d = d & b;
      d &= (b & c);
      d = d & ~b;
      d = d | b;
      shift_or<int32_t>::apply(d, b, c);
      d |= (b | c);
      d = d ^ b;
      d = a * b;
      round<int32_t>::apply(d, d, 8);
      d = a * b;
      truncate<int32_t>::apply(d, d, 15);
      d = a * b;
      d <<= 1;
      print<int32_t>::apply(d, "d = ");
      print<int32_t>::apply(d);
      zelt_store<int16_t, npt, sa0adv>::store(d, (void*)(y));
   }
   __SA0_CLOSE();
   __SE1_CLOSE();
   __SE0_CLOSE();
}

extern "C" void three_sources(
   __vptr_int16 x,
   __vptr_int16 y,
   int n)
{
   three_sources_init(x, y, n, __pblock_three_sources);

   three_sources_vloops(__pblock_three_sources);
}

extern "C" void three_sources_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   three_sources_init(x, y, n, pblock);

   three_sources_vloops(pblock);
}

typedef struct
{
   struct
   {
      void* p0;
      int32_t p1;
      void* restrict p2;
      __SE_TEMPLATE_v1 p3;
      __SA_TEMPLATE_v1 p4;
   } tvals [1];
} pairs_loop2_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   pairs_loop2_tvals_t loop2;
} pairs_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_pairs[ __PBLOCK_SIZE(pairs_tvals_t) ];

extern "C" unsigned int pairs_param_count(void)
{
   return __PBLOCK_SIZE(pairs_tvals_t);
}

extern "C" unsigned int pairs_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   pairs_tvals_t* tvals = (pairs_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;

   tvals->loop2.tvals[0].p0 = (uchar *)x+8;
   tvals->loop2.tvals[0].p1 = 0;
   tvals->loop2.tvals[0].p2 = (uchar *)y+8;
   tvals->loop2.tvals[0].p3 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop2.tvals[0].p4 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(pairs_tvals_t);
}

extern "C" void pairs_vloops(
   unsigned short pblock[])
{
   pairs_tvals_t* tvals = (pairs_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   void* __p0 = tvals->loop2.tvals[0].p0;
   int32_t __p1 = tvals->loop2.tvals[0].p1;
   void* restrict __p2 = tvals->loop2.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop2.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop2.tvals[0].p4;

   int32_t i;

   __SA0_OPEN(__p4);
   __SE0_OPEN((void*)x, __p3);
   __SE1_OPEN(__p0, __p3);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector a;
      __vector b;
      __vector c;
      __vector d;
      __vector e;
      __vector f;

      zelt_load<int16_t, npt, se0adv>::SE_load(a);
      zelt_load<int16_t, npt, se1adv>::SE_load(b);
      c = (__vector)((int)8);
      f = (__vector)((int)__p1);
      minsetf<int32_t>::apply(b, c, a, b);
      maxsetf<int32_t>::apply(b, c, a, b);
      bit_deinterleave<int32_t>::apply(d, e, a);
      vshf16<int32_t>::apply(d, e, a);
      deinterleave_32<int32_t>::apply(a, b);
      interleave_32<int32_t>::apply(a, b);
      addsub<int32_t>::apply(a, b);
      sort2<int32_t>::apply(a, b);
      swap<int32_t>::apply(a, b, c);
      interleave2_32<int32_t>::apply(a, b);
      deinterleave2_32<int32_t>::apply(a, b);
      interleave4_32<int32_t>::apply(a, b);
      c = a;
      d = b;
      interleave_32<int32_t>::apply(c, d);
      e = c;
      f = d;
      sort2<int32_t>::apply(e, f);
      zelt_store<int16_t, npt, sa0>::store(e, (void*)(y));
      zelt_store<int16_t, npt, sa0adv>::store(f, (void*)(__p2));
   }
   __SA0_CLOSE();
   __SE1_CLOSE();
   __SE0_CLOSE();
}

extern "C" void pairs(
   __vptr_int16 x,
   __vptr_int16 y,
   int n)
{
   pairs_init(x, y, n, __pblock_pairs);

   pairs_vloops(__pblock_pairs);
}

extern "C" void pairs_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   pairs_init(x, y, n, pblock);

   pairs_vloops(pblock);
}

