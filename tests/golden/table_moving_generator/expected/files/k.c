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
      __SE_TEMPLATE_v1 p3;
      __SA_TEMPLATE_v1 p4;
   } tvals [1];
} mlut_loop0_tvals_t;

typedef struct
{
   __vptr_uint16 idx;
   __vptr_uint16 table;
   __vptr_uint16 out;
   int n;
   mlut_loop0_tvals_t loop0;
} mlut_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_mlut[ __PBLOCK_SIZE(mlut_tvals_t) ];

extern "C" unsigned int mlut_param_count(void)
{
   return __PBLOCK_SIZE(mlut_tvals_t);
}

extern "C" unsigned int mlut_init(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   mlut_tvals_t* tvals = (mlut_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->table = table;
   tvals->out = out;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p1 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p2 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_SE_config(32768);
   tvals->loop0.tvals[0].p3 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p4 = SA_init<uint16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(mlut_tvals_t);
}

extern "C" void mlut_vloops(
   unsigned short pblock[])
{
   mlut_tvals_t* tvals = (mlut_tvals_t*)pblock;

   __vptr_uint16 idx = tvals->idx;
   __vptr_uint16 table = tvals->table;
   __vptr_uint16 out = tvals->out;
   int n = tvals->n;

   __agen T;

   uint32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;

   int32_t i;

   T = 0;
   __SA0_OPEN(__p4);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_table_in((void*)table, 32768, __p1, __p2);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)idx, __p3);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;

      zelt_load<uint16_t, npt, se0adv>::SE_load(x);
      zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::lookup(y, x + (int)(T >> 1));
      zelt_store<uint16_t, table_npt, sa0adv, 8>::store(y, (void*)(out));
      T += 64;
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void mlut(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n)
{
   mlut_init(idx, table, out, n, __pblock_mlut);

   mlut_vloops(__pblock_mlut);
}

extern "C" void mlut_custom(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   mlut_init(idx, table, out, n, pblock);

   mlut_vloops(pblock);
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
      __SE_TEMPLATE_v1 p6;
   } tvals [1];
} mhist_loop1_tvals_t;

typedef struct
{
   __vptr_uint8 data;
   __vptr_uint16 weights;
   __vptr_uint32 hist;
   int n;
   mhist_loop1_tvals_t loop1;
} mhist_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_mhist[ __PBLOCK_SIZE(mhist_tvals_t) ];

extern "C" unsigned int mhist_param_count(void)
{
   return __PBLOCK_SIZE(mhist_tvals_t);
}

extern "C" unsigned int mhist_init(
   __vptr_uint8 data,
   __vptr_uint16 weights,
   __vptr_uint32 hist,
   int n,
   unsigned short pblock[])
{
   mhist_tvals_t* tvals = (mhist_tvals_t*)pblock;

   tvals->data = data;
   tvals->weights = weights;
   tvals->hist = hist;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::config();
   tvals->loop1.tvals[0].p1 = zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop1.tvals[0].p2 = zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(32768);
   tvals->loop1.tvals[0].p3 = zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_config();
   tvals->loop1.tvals[0].p4 = zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_out_SA_config(32768);
   tvals->loop1.tvals[0].p5 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop1.tvals[0].p6 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(mhist_tvals_t);
}

extern "C" void mhist_vloops(
   unsigned short pblock[])
{
   mhist_tvals_t* tvals = (mhist_tvals_t*)pblock;

   __vptr_uint8 data = tvals->data;
   __vptr_uint16 weights = tvals->weights;
   __vptr_uint32 hist = tvals->hist;
   int n = tvals->n;

   __agen H;

   uint32_t __p0 = tvals->loop1.tvals[0].p0;
   uint32_t __p1 = tvals->loop1.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;
   uint32_t __p3 = tvals->loop1.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop1.tvals[0].p4;
   __SE_TEMPLATE_v1 __p5 = tvals->loop1.tvals[0].p5;
   __SE_TEMPLATE_v1 __p6 = tvals->loop1.tvals[0].p6;

   int32_t i;

   H = 0;
   zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)hist, 32768, __p1, __p2);
   zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::open(0, __p0);
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
      zelt_load<uint16_t, npt, se1adv>::SE_load(w);
      zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::whist_update(h, d + (int)(H >> 3), w);
      H += 128;
   }
   __SE1_CLOSE();
   __SE0_CLOSE();
   zelt_hist<uint32_t, 2, 1, 1, lut_id<0, 32768> >::copy_table_out((void*)hist, 32768, __p3, __p4);
}

extern "C" void mhist(
   __vptr_uint8 data,
   __vptr_uint16 weights,
   __vptr_uint32 hist,
   int n)
{
   mhist_init(data, weights, hist, n, __pblock_mhist);

   mhist_vloops(__pblock_mhist);
}

extern "C" void mhist_custom(
   __vptr_uint8 data,
   __vptr_uint16 weights,
   __vptr_uint32 hist,
   int n,
   unsigned short pblock[])
{
   mhist_init(data, weights, hist, n, pblock);

   mhist_vloops(pblock);
}

