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
   } tvals [1];
} ranges_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 u8;
   __vptr_int16 s16;
   __vptr_uint8 o8;
   __vptr_int8 o8s;
   __vptr_int16 o16;
   int n;
} ranges_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_ranges[ __PBLOCK_SIZE(ranges_tvals_t) ];

extern "C" unsigned int ranges_param_count(void)
{
   return __PBLOCK_SIZE(ranges_tvals_t);
}

extern "C" unsigned int ranges_init(
   __vptr_uint8 u8,
   __vptr_int16 s16,
   __vptr_uint8 o8,
   __vptr_int8 o8s,
   __vptr_int16 o16,
   int n,
   unsigned short pblock[])
{
   ranges_tvals_t* tvals = (ranges_tvals_t*)pblock;

   tvals->u8 = u8;
   tvals->s16 = s16;
   tvals->o8 = o8;
   tvals->o8s = o8s;
   tvals->o16 = o16;
   tvals->n = n;

   return __PBLOCK_SIZE(ranges_tvals_t);
}

extern "C" void ranges_vloops(
   unsigned short pblock[])
{
   ranges_tvals_t* tvals = (ranges_tvals_t*)pblock;

   __vptr_uint8 u8 = tvals->u8;
   __vptr_int16 s16 = tvals->s16;
   __vptr_uint8 o8 = tvals->o8;
   __vptr_int8 o8s = tvals->o8s;
   __vptr_int16 o16 = tvals->o16;
   int n = tvals->n;

   __agen A;
   __agen B;
   __vector Vtemp0;
   __vector Vtemp1;
   __vector Vtemp2;
   __vector Vtemp3;
   __vector Vtemp4;
   __vector Vtemp5;

   int32_t i;

   B = 0;
   A = 0;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector a;
      __vector b;
      __vector x;
      __vector y;
      __vector z;

      zelt_load<uint8_t, npt, nosa>::load(a, (void*)((char*)u8 + A));
      zelt_load<int16_t, npt, nosa>::load(b, (void*)((char*)s16 + B));
      x = (__vector)((int)5);
      y = (__vector)((int)200);
      z = (__vector)((int)(int32_t)n);
      if (__first(i))
         x = y;
      if (__first(i))
         z = y;
      Vtemp0 = x;
      zelt_store<uint8_t, npt, nosa>::store(Vtemp0, (void*)((char*)o8 + A));
      Vtemp1 = a;
      zelt_store<uint8_t, npt, nosa>::store(Vtemp1, (void*)((char*)o8 + A));
      Vtemp2 = a;
      saturate_to_range<int32_t>::apply(Vtemp2, 0, 100);
      zelt_store<uint8_t, npt, nosa>::store(Vtemp2, (void*)((char*)o8 + A));
      Vtemp3 = b;
      round<int32_t>::apply(Vtemp3, Vtemp3, 2);
      saturate_to_range<int32_t>::apply(Vtemp3, -1000, 1000);
      zelt_store<int16_t, npt, nosa>::store(Vtemp3, (void*)((char*)o16 + B));
      Vtemp4 = b;
      truncate<int32_t>::apply(Vtemp4, Vtemp4, 8);
      zelt_store<int8_t, npt, nosa>::store(Vtemp4, (void*)((char*)o8s + A));
      Vtemp5 = z;
      saturate_to_width<int32_t,uint8_t,8>::apply(Vtemp5);
      zelt_store<uint8_t, npt, nosa>::store(Vtemp5, (void*)((char*)o8 + A));
      A += 8;
      B += 16;
   }
}

extern "C" void ranges(
   __vptr_uint8 u8,
   __vptr_int16 s16,
   __vptr_uint8 o8,
   __vptr_int8 o8s,
   __vptr_int16 o16,
   int n)
{
   ranges_init(u8, s16, o8, o8s, o16, n, __pblock_ranges);

   ranges_vloops(__pblock_ranges);
}

extern "C" void ranges_custom(
   __vptr_uint8 u8,
   __vptr_int16 s16,
   __vptr_uint8 o8,
   __vptr_int8 o8s,
   __vptr_int16 o16,
   int n,
   unsigned short pblock[])
{
   ranges_init(u8, s16, o8, o8s, o16, n, pblock);

   ranges_vloops(pblock);
}

