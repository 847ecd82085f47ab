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
      uint32_t p0;
      uint32_t p1;
      __SE_TEMPLATE_v1 p2;
      uint32_t p3;
      __SA_TEMPLATE_v1 p4;
      __SE_TEMPLATE_v1 p5;
      __SE_TEMPLATE_v1 p6;
   } tvals [1];
} weighted_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 data;
   __vptr_int8 weights;
   __vptr_int16 bins;
   int n;
   weighted_loop0_tvals_t loop0;
} weighted_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_weighted[ __PBLOCK_SIZE(weighted_tvals_t) ];

extern "C" unsigned int weighted_param_count(void)
{
   return __PBLOCK_SIZE(weighted_tvals_t);
}

extern "C" unsigned int weighted_init(
   __vptr_uint8 data,
   __vptr_int8 weights,
   __vptr_int16 bins,
   int n,
   unsigned short pblock[])
{
   weighted_tvals_t* tvals = (weighted_tvals_t*)pblock;

   tvals->data = data;
   tvals->weights = weights;
   tvals->bins = bins;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p1 = zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p2 = zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(1024);
   tvals->loop0.tvals[0].p3 = zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_config();
   tvals->loop0.tvals[0].p4 = zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(1024);
   tvals->loop0.tvals[0].p5 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop0.tvals[0].p6 = SE_init<int8_t, zelt_load<int8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);

   return __PBLOCK_SIZE(weighted_tvals_t);
}

extern "C" void weighted_vloops(
   unsigned short pblock[])
{
   weighted_tvals_t* tvals = (weighted_tvals_t*)pblock;

   __vptr_uint8 data = tvals->data;
   __vptr_int8 weights = tvals->weights;
   __vptr_int16 bins = tvals->bins;
   int n = tvals->n;

   uint32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   uint32_t __p3 = tvals->loop0.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;
   __SE_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;
   __SE_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;

   int32_t i;

   zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)bins, 1024, __p1, __p2);
   zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)data, __p5);
   __SE1_OPEN((void*)weights, __p6);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector d;
      __vector h;
      __vector w;

      zelt_load<uint8_t, npt, se0adv>::SE_load(d);
      zelt_load<int8_t, npt, se1adv>::SE_load(w);
      zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::whist_update(h, d, w);
   }
   __SE1_CLOSE();
   __SE0_CLOSE();
   zelt_hist<int16_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)bins, 1024, __p3, __p4);
}

extern "C" void weighted(
   __vptr_uint8 data,
   __vptr_int8 weights,
   __vptr_int16 bins,
   int n)
{
   weighted_init(data, weights, bins, n, __pblock_weighted);

   weighted_vloops(__pblock_weighted);
}

extern "C" void weighted_custom(
   __vptr_uint8 data,
   __vptr_int8 weights,
   __vptr_int16 bins,
   int n,
   unsigned short pblock[])
{
   weighted_init(data, weights, bins, n, pblock);

   weighted_vloops(pblock);
}

typedef struct
{
   struct
   {
      uint32_t p0;
      uint32_t p1;
      __SE_TEMPLATE_v1 p2;
      uint32_t p3;
      __SA_TEMPLATE_v1 p4;
      __SE_TEMPLATE_v1 p5;
   } tvals [1];
} counted_loop1_tvals_t;

typedef struct
{
   __vptr_uint8 data;
   __vptr_uint32 bins;
   int n;
   counted_loop1_tvals_t loop1;
} counted_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_counted[ __PBLOCK_SIZE(counted_tvals_t) ];

extern "C" unsigned int counted_param_count(void)
{
   return __PBLOCK_SIZE(counted_tvals_t);
}

extern "C" unsigned int counted_init(
   __vptr_uint8 data,
   __vptr_uint32 bins,
   int n,
   unsigned short pblock[])
{
   counted_tvals_t* tvals = (counted_tvals_t*)pblock;

   tvals->data = data;
   tvals->bins = bins;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::config();
   tvals->loop1.tvals[0].p1 = zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop1.tvals[0].p2 = zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(4096);
   tvals->loop1.tvals[0].p3 = zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_out_config();
   tvals->loop1.tvals[0].p4 = zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(4096);
   tvals->loop1.tvals[0].p5 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);

   return __PBLOCK_SIZE(counted_tvals_t);
}

extern "C" void counted_vloops(
   unsigned short pblock[])
{
   counted_tvals_t* tvals = (counted_tvals_t*)pblock;

   __vptr_uint8 data = tvals->data;
   __vptr_uint32 bins = tvals->bins;
   int n = tvals->n;

   uint32_t __p0 = tvals->loop1.tvals[0].p0;
   uint32_t __p1 = tvals->loop1.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;
   uint32_t __p3 = tvals->loop1.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop1.tvals[0].p4;
   __SE_TEMPLATE_v1 __p5 = tvals->loop1.tvals[0].p5;

   int32_t i;

   zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)bins, 4096, __p1, __p2);
   zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)data, __p5);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector d;
      __vector h;
      __vector w;

      zelt_load<uint8_t, npt, se0adv>::SE_load(d);
      w = (__vector)((int)1);
      zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::whist_update(h, d, w);
   }
   __SE0_CLOSE();
   zelt_hist<uint32_t, 4, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)bins, 4096, __p3, __p4);
}

extern "C" void counted(
   __vptr_uint8 data,
   __vptr_uint32 bins,
   int n)
{
   counted_init(data, bins, n, __pblock_counted);

   counted_vloops(__pblock_counted);
}

extern "C" void counted_custom(
   __vptr_uint8 data,
   __vptr_uint32 bins,
   int n,
   unsigned short pblock[])
{
   counted_init(data, bins, n, pblock);

   counted_vloops(pblock);
}

