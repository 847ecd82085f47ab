#pragma diag_suppress 179,552
#define ZELT_9K_TRANSLATION 1

#ifdef ZELT_SIMD_WIDTH
#  if ZELT_SIMD_WIDTH != 16
#    error "Expected ZELT_SIMD_WIDTH to be 16!"
#  endif
#  undef ZELT_SIMD_WIDTH
#endif
#define ZELT_SIMD_WIDTH 16

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
      __SE_TEMPLATE_v1 p4;
      __SA_TEMPLATE_v1 p5;
   } tvals [1];
} wide16_loop0_tvals_t;

typedef struct
{
   __vptr_uint16 idx;
   __vptr_uint16 table;
   __vptr_uint16 out;
   int n;
   wide16_loop0_tvals_t loop0;
} wide16_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_wide16[ __PBLOCK_SIZE(wide16_tvals_t) ];

extern "C" unsigned int wide16_param_count(void)
{
   return __PBLOCK_SIZE(wide16_tvals_t);
}

extern "C" unsigned int wide16_init(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   wide16_tvals_t* tvals = (wide16_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->table = table;
   tvals->out = out;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::config();
   tvals->loop0.tvals[0].p2 = zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::copy_in_config();
   tvals->loop0.tvals[0].p3 = zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::copy_in_SE_config(16384);
   tvals->loop0.tvals[0].p4 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(((16) * (n / ZELT_SIMD_WIDTH)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p5 = SA_init<uint16_t, 16, TRANSPOSE_OFF>::apply(((16) * (n / ZELT_SIMD_WIDTH)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(wide16_tvals_t);
}

extern "C" void wide16_vloops(
   unsigned short pblock[])
{
   wide16_tvals_t* tvals = (wide16_tvals_t*)pblock;

   __vptr_uint16 idx = tvals->idx;
   __vptr_uint16 table = tvals->table;
   __vptr_uint16 out = tvals->out;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   uint32_t __p2 = tvals->loop0.tvals[0].p2;
   __SE_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   __SE_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;
   __SA_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;

   int32_t i;

   __SA0_OPEN(__p5);
   zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::copy_table_in((void*)table, 16384, __p2, __p3);
   zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::open(0, __p1);
   __SE0_OPEN((void*)idx, __p4);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector x;
      __vector y;

      zelt_load<uint16_t, npt, se0adv>::SE_load(x);
      zelt_lookup<uint16_t, 1, 8, 2, lut_id<0, 32768> >::lookup(y, x);
      zelt_store<uint16_t, table_npt, sa0adv, 16>::store(y, (void*)(out));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void wide16(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n)
{
   wide16_init(idx, table, out, n, __pblock_wide16);

   wide16_vloops(__pblock_wide16);
}

extern "C" void wide16_custom(
   __vptr_uint16 idx,
   __vptr_uint16 table,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   wide16_init(idx, table, out, n, pblock);

   wide16_vloops(pblock);
}

