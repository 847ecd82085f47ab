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
} wide_loop0_tvals_t;

typedef struct
{
   __vptr_uint16 idx;
   __vptr_int16 table;
   __vptr_int16 out;
   int n;
   wide_loop0_tvals_t loop0;
} wide_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_wide[ __PBLOCK_SIZE(wide_tvals_t) ];

extern "C" unsigned int wide_param_count(void)
{
   return __PBLOCK_SIZE(wide_tvals_t);
}

extern "C" unsigned int wide_init(
   __vptr_uint16 idx,
   __vptr_int16 table,
   __vptr_int16 out,
   int n,
   unsigned short pblock[])
{
   wide_tvals_t* tvals = (wide_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->table = table;
   tvals->out = out;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p1 = zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p2 = zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::copy_in_SE_config(32768);
   tvals->loop0.tvals[0].p3 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p4 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(wide_tvals_t);
}

extern "C" void wide_vloops(
   unsigned short pblock[])
{
   wide_tvals_t* tvals = (wide_tvals_t*)pblock;

   __vptr_uint16 idx = tvals->idx;
   __vptr_int16 table = tvals->table;
   __vptr_int16 out = tvals->out;
   int n = tvals->n;

   uint32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;

   int32_t i;

   __SA0_OPEN(__p4);
   zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::copy_table_in((void*)table, 32768, __p1, __p2);
   zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::open(0, __p0);
   __SE0_OPEN((void*)idx, __p3);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;

      zelt_load<uint16_t, npt, se0adv>::SE_load(x);
      zelt_lookup<int16_t, 2, 4, 1, lut_id<0, 32768> >::lookup(y, x);
      zelt_store<int16_t, table_npt, sa0adv, 8>::store(y, (void*)(out));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void wide(
   __vptr_uint16 idx,
   __vptr_int16 table,
   __vptr_int16 out,
   int n)
{
   wide_init(idx, table, out, n, __pblock_wide);

   wide_vloops(__pblock_wide);
}

extern "C" void wide_custom(
   __vptr_uint16 idx,
   __vptr_int16 table,
   __vptr_int16 out,
   int n,
   unsigned short pblock[])
{
   wide_init(idx, table, out, n, pblock);

   wide_vloops(pblock);
}

