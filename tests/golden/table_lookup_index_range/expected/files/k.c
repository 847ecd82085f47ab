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
} lut8_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 idx;
   __vptr_uint16 table;
   __vptr_uint16 out;
   int n;
   lut8_loop0_tvals_t loop0;
} lut8_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_lut8[ __PBLOCK_SIZE(lut8_tvals_t) ];

extern "C" unsigned int lut8_param_count(void)
{
   return __PBLOCK_SIZE(lut8_tvals_t);
}

extern "C" unsigned int lut8_init(
   __vptr_uint8 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   lut8_tvals_t* tvals = (lut8_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->table = table;
   tvals->out = out;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p1 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p2 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_SE_config(512);
   tvals->loop0.tvals[0].p3 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop0.tvals[0].p4 = SA_init<uint16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(lut8_tvals_t);
}

extern "C" void lut8_vloops(
   unsigned short pblock[])
{
   lut8_tvals_t* tvals = (lut8_tvals_t*)pblock;

   __vptr_uint8 idx = tvals->idx;
   __vptr_uint16 table = tvals->table;
   __vptr_uint16 out = tvals->out;
   int n = tvals->n;

   uint32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;

   int32_t i;

   __SA0_OPEN(__p4);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_table_in((void*)table, 512, __p1, __p2);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)idx, __p3);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;

      zelt_load<uint8_t, npt, se0adv>::SE_load(x);
      zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::lookup(y, x);
      zelt_store<uint16_t, table_npt, sa0adv, 8>::store(y, (void*)(out));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void lut8(
   __vptr_uint8 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n)
{
   lut8_init(idx, table, out, n, __pblock_lut8);

   lut8_vloops(__pblock_lut8);
}

extern "C" void lut8_custom(
   __vptr_uint8 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   lut8_init(idx, table, out, n, pblock);

   lut8_vloops(pblock);
}

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
} lut99_loop1_tvals_t;

typedef struct
{
   __vptr_uint16 idx;
   __vptr_uint16 table;
   __vptr_uint16 out;
   int n;
   lut99_loop1_tvals_t loop1;
} lut99_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_lut99[ __PBLOCK_SIZE(lut99_tvals_t) ];

extern "C" unsigned int lut99_param_count(void)
{
   return __PBLOCK_SIZE(lut99_tvals_t);
}

extern "C" unsigned int lut99_init(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   lut99_tvals_t* tvals = (lut99_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->table = table;
   tvals->out = out;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::config();
   tvals->loop1.tvals[0].p1 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop1.tvals[0].p2 = zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_in_SE_config(200);
   tvals->loop1.tvals[0].p3 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop1.tvals[0].p4 = SA_init<uint16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(lut99_tvals_t);
}

extern "C" void lut99_vloops(
   unsigned short pblock[])
{
   lut99_tvals_t* tvals = (lut99_tvals_t*)pblock;

   __vptr_uint16 idx = tvals->idx;
   __vptr_uint16 table = tvals->table;
   __vptr_uint16 out = tvals->out;
   int n = tvals->n;

   __vector Vtemp0;

   uint32_t __p0 = tvals->loop1.tvals[0].p0;
   uint32_t __p1 = tvals->loop1.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop1.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop1.tvals[0].p4;

   int32_t i;

   __SA0_OPEN(__p4);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::copy_table_in((void*)table, 200, __p1, __p2);
   zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)idx, __p3);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;

      zelt_load<uint16_t, npt, se0adv>::SE_load(x);
      Vtemp0 = x;
      saturate_to_range<int32_t>::apply(Vtemp0, 0, 99);
      zelt_lookup<uint16_t, 1, 8, 1, lut_id<0, 32768> >::lookup(y, Vtemp0);
      zelt_store<uint16_t, table_npt, sa0adv, 8>::store(y, (void*)(out));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void lut99(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n)
{
   lut99_init(idx, table, out, n, __pblock_lut99);

   lut99_vloops(__pblock_lut99);
}

extern "C" void lut99_custom(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   lut99_init(idx, table, out, n, pblock);

   lut99_vloops(pblock);
}

