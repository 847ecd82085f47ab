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
      int32_t p0;
      uint32_t p1;
      uint32_t p2;
      __SE_TEMPLATE_v1 p3;
      uint32_t p4;
      __SA_TEMPLATE_v1 p5;
      __SE_TEMPLATE_v1 p6;
      __SE_TEMPLATE_v1 p7;
   } tvals [1];
} hist_loop0_tvals_t;

typedef struct
{
   __vptr_uint16 data;
   __vptr_uint8 weights;
   __vptr_uint16 bins;
   int n;
   hist_loop0_tvals_t loop0;
} hist_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_hist[ __PBLOCK_SIZE(hist_tvals_t) ];

extern "C" unsigned int hist_param_count(void)
{
   return __PBLOCK_SIZE(hist_tvals_t);
}

extern "C" unsigned int hist_init(
   __vptr_uint16 data,
   __vptr_uint8 weights,
   __vptr_uint16 bins,
   int n,
   unsigned short pblock[])
{
   hist_tvals_t* tvals = (hist_tvals_t*)pblock;

   tvals->data = data;
   tvals->weights = weights;
   tvals->bins = bins;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p2 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p3 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(256);
   tvals->loop0.tvals[0].p4 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_out_config();
   tvals->loop0.tvals[0].p5 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(256);
   tvals->loop0.tvals[0].p6 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p7 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n / ZELT_SIMD_WIDTH)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);

   return __PBLOCK_SIZE(hist_tvals_t);
}

extern "C" void hist_vloops(
   unsigned short pblock[])
{
   hist_tvals_t* tvals = (hist_tvals_t*)pblock;

   __vptr_uint16 data = tvals->data;
   __vptr_uint8 weights = tvals->weights;
   __vptr_uint16 bins = tvals->bins;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   uint32_t __p2 = tvals->loop0.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   uint32_t __p4 = tvals->loop0.tvals[0].p4;
   __SA_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;
   __SE_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;
   __SE_TEMPLATE_v1 __p7 = tvals->loop0.tvals[0].p7;

   int32_t i;

   zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)bins, 256, __p2, __p3);
   zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::open(0, __p1);
   __SE0_OPEN((void*)data, __p6);
   __SE1_OPEN((void*)weights, __p7);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector d;
      __vector h;
      __vector w;

      zelt_load<uint16_t, npt, se0adv>::SE_load(d);
      zelt_load<uint8_t, npt, se1adv>::SE_load(w);
      zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::whist_update(h, d, w);
   }
   __SE1_CLOSE();
   __SE0_CLOSE();
   zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)bins, 256, __p4, __p5);
}

extern "C" void hist(
   __vptr_uint16 data,
   __vptr_uint8 weights,
   __vptr_uint16 bins,
   int n)
{
   hist_init(data, weights, bins, n, __pblock_hist);

   hist_vloops(__pblock_hist);
}

extern "C" void hist_custom(
   __vptr_uint16 data,
   __vptr_uint8 weights,
   __vptr_uint16 bins,
   int n,
   unsigned short pblock[])
{
   hist_init(data, weights, bins, n, pblock);

   hist_vloops(pblock);
}

typedef struct
{
   struct
   {
      int32_t p0;
      uint32_t p1;
      uint32_t p2;
      __SE_TEMPLATE_v1 p3;
      uint32_t p4;
      __SA_TEMPLATE_v1 p5;
      __SE_TEMPLATE_v1 p6;
   } tvals [1];
} count_loop1_tvals_t;

typedef struct
{
   __vptr_uint16 data;
   __vptr_uint16 bins;
   int n;
   count_loop1_tvals_t loop1;
} count_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_count[ __PBLOCK_SIZE(count_tvals_t) ];

extern "C" unsigned int count_param_count(void)
{
   return __PBLOCK_SIZE(count_tvals_t);
}

extern "C" unsigned int count_init(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n,
   unsigned short pblock[])
{
   count_tvals_t* tvals = (count_tvals_t*)pblock;

   tvals->data = data;
   tvals->bins = bins;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop1.tvals[0].p1 = zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::config();
   tvals->loop1.tvals[0].p2 = zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop1.tvals[0].p3 = zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(1024);
   tvals->loop1.tvals[0].p4 = zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_config();
   tvals->loop1.tvals[0].p5 = zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(1024);
   tvals->loop1.tvals[0].p6 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(count_tvals_t);
}

extern "C" void count_vloops(
   unsigned short pblock[])
{
   count_tvals_t* tvals = (count_tvals_t*)pblock;

   __vptr_uint16 data = tvals->data;
   __vptr_uint16 bins = tvals->bins;

   int32_t __p0 = tvals->loop1.tvals[0].p0;
   uint32_t __p1 = tvals->loop1.tvals[0].p1;
   uint32_t __p2 = tvals->loop1.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop1.tvals[0].p3;
   uint32_t __p4 = tvals->loop1.tvals[0].p4;
   __SA_TEMPLATE_v1 __p5 = tvals->loop1.tvals[0].p5;
   __SE_TEMPLATE_v1 __p6 = tvals->loop1.tvals[0].p6;

   int32_t i;

   zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)bins, 1024, __p2, __p3);
   zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::open(0, __p1);
   __SE0_OPEN((void*)data, __p6);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector d;
      __vector h;
      __vector w;

      zelt_load<uint16_t, npt, se0adv>::SE_load(d);
      w = (__vector)((int)1);
      zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::whist_update(h, d, w);
   }
   __SE0_CLOSE();
   zelt_hist<uint16_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)bins, 1024, __p4, __p5);
}

extern "C" void count(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n)
{
   count_init(data, bins, n, __pblock_count);

   count_vloops(__pblock_count);
}

extern "C" void count_custom(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n,
   unsigned short pblock[])
{
   count_init(data, bins, n, pblock);

   count_vloops(pblock);
}

typedef struct
{
   int32_t tripcount;
   struct
   {
      int32_t p0;
      uint32_t p1;
      uint32_t p2;
      __SE_TEMPLATE_v1 p3;
      uint32_t p4;
      __SA_TEMPLATE_v1 p5;
      __SE_TEMPLATE_v1 p6;
   } tvals [4];
} rows_loop2_tvals_t;

typedef struct
{
   __vptr_uint16 data;
   __vptr_uint16 bins;
   int n;
   int m;
   rows_loop2_tvals_t loop2;
} rows_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_rows[ __PBLOCK_SIZE(rows_tvals_t) ];

extern "C" unsigned int rows_param_count(void)
{
   return __PBLOCK_SIZE(rows_tvals_t);
}

extern "C" unsigned int rows_init(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n,
   int m,
   unsigned short pblock[])
{
   rows_tvals_t* tvals = (rows_tvals_t*)pblock;

   tvals->data = data;
   tvals->bins = bins;
   tvals->n = n;
   tvals->m = m;

   // loop 2
   {
      tvals->loop2.tripcount = m;
      int32_t __tripcount = tvals->loop2.tripcount;
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         tvals->loop2.tvals[r].p0 = n / ZELT_SIMD_WIDTH;
         tvals->loop2.tvals[r].p1 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::config();
         tvals->loop2.tvals[r].p2 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_config();
         tvals->loop2.tvals[r].p3 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(1024);
         tvals->loop2.tvals[r].p4 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_out_config();
         tvals->loop2.tvals[r].p5 = zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(1024);
         tvals->loop2.tvals[r].p6 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }

   return __PBLOCK_SIZE(rows_tvals_t);
}

extern "C" void rows_vloops(
   unsigned short pblock[])
{
   rows_tvals_t* tvals = (rows_tvals_t*)pblock;

   __vptr_uint16 data = tvals->data;
   __vptr_uint16 bins = tvals->bins;

   int32_t __tripcount = tvals->loop2.tripcount;

   int32_t r;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (r = 0; r < __tripcount; ++r)
   {
      int32_t __p0 = tvals->loop2.tvals[r].p0;
      uint32_t __p1 = tvals->loop2.tvals[r].p1;
      uint32_t __p2 = tvals->loop2.tvals[r].p2;
      __SE_TEMPLATE_v1 __p3 = tvals->loop2.tvals[r].p3;
      uint32_t __p4 = tvals->loop2.tvals[r].p4;
      __SA_TEMPLATE_v1 __p5 = tvals->loop2.tvals[r].p5;
      __SE_TEMPLATE_v1 __p6 = tvals->loop2.tvals[r].p6;

      int32_t i;

      zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)bins, 1024, __p2, __p3);
      zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::open(0, __p1);
      __SE0_OPEN((void*)data, __p6);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < __p0; ++i)
      {
         __vector d;
         __vector h;
         __vector w;

         zelt_load<uint16_t, npt, se0adv>::SE_load(d);
         w = (__vector)((int)1);
         zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::whist_update(h, d, w);
      }
      __SE0_CLOSE();
      zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)bins, 1024, __p4, __p5);
   }
}

extern "C" void rows(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n,
   int m)
{
   rows_init(data, bins, n, m, __pblock_rows);

   rows_vloops(__pblock_rows);
}

extern "C" void rows_custom(
   __vptr_uint16 data,
   __vptr_uint16 bins,
   int n,
   int m,
   unsigned short pblock[])
{
   rows_init(data, bins, n, m, pblock);

   rows_vloops(pblock);
}

