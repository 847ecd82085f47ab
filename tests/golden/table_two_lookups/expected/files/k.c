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
      uint32_t p4;
      __SE_TEMPLATE_v1 p5;
      __SE_TEMPLATE_v1 p6;
      __SA_TEMPLATE_v1 p7;
   } tvals [1];
} two_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 idx;
   __vptr_uint16 ta;
   __vptr_int8 tb;
   __vptr_uint16 out;
   int n;
   two_loop0_tvals_t loop0;
} two_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_two[ __PBLOCK_SIZE(two_tvals_t) ];

extern "C" unsigned int two_param_count(void)
{
   return __PBLOCK_SIZE(two_tvals_t);
}

extern "C" unsigned int two_init(
   __vptr_uint8 idx,
   __vptr_uint16 ta,
   __vptr_int8 tb,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   two_tvals_t* tvals = (two_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->ta = ta;
   tvals->tb = tb;
   tvals->out = out;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::config();
   tvals->loop0.tvals[0].p1 = zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::copy_in_config();
   tvals->loop0.tvals[0].p2 = zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::copy_in_SE_config(512);
   tvals->loop0.tvals[0].p3 = zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::config();
   tvals->loop0.tvals[0].p4 = zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::copy_in_config();
   tvals->loop0.tvals[0].p5 = zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::copy_in_SE_config(256);
   tvals->loop0.tvals[0].p6 = SE_init<uint8_t, zelt_load<uint8_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop0.tvals[0].p7 = SA_init<uint16_t, 4, TRANSPOSE_OFF>::apply(((4) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(two_tvals_t);
}

extern "C" void two_vloops(
   unsigned short pblock[])
{
   two_tvals_t* tvals = (two_tvals_t*)pblock;

   __vptr_uint8 idx = tvals->idx;
   __vptr_uint16 ta = tvals->ta;
   __vptr_int8 tb = tvals->tb;
   __vptr_uint16 out = tvals->out;
   int n = tvals->n;

   uint32_t __p0 = tvals->loop0.tvals[0].p0;
   uint32_t __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   uint32_t __p3 = tvals->loop0.tvals[0].p3;
   uint32_t __p4 = tvals->loop0.tvals[0].p4;
   __SE_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;
   __SE_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;
   __SA_TEMPLATE_v1 __p7 = tvals->loop0.tvals[0].p7;

   int32_t i;

   __SA0_OPEN(__p7);
   zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::copy_table_in((void*)ta, 512, __p1, __p2);
   zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::open(0, __p0);
   zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::copy_table_in((void*)tb, 256, __p4, __p5);
   zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::open(1, __p3);
   __SE0_OPEN((void*)idx, __p6);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;
      __vector z;

      zelt_load<uint8_t, npt, se0adv>::SE_load(x);
      zelt_lookup<uint16_t, 1, 4, 1, lut_id<0, 16384> >::lookup(y, x);
      zelt_lookup<int8_t, 1, 4, 1, lut_id<1, 16384> >::lookup(z, x);
      zelt_store<uint16_t, table_npt, sa0adv, 4>::store(y, (void*)(out));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void two(
   __vptr_uint8 idx,
   __vptr_uint16 ta,
   __vptr_int8 tb,
   __vptr_uint16 out,
   int n)
{
   two_init(idx, ta, tb, out, n, __pblock_two);

   two_vloops(__pblock_two);
}

extern "C" void two_custom(
   __vptr_uint8 idx,
   __vptr_uint16 ta,
   __vptr_int8 tb,
   __vptr_uint16 out,
   int n,
   unsigned short pblock[])
{
   two_init(idx, ta, tb, out, n, pblock);

   two_vloops(pblock);
}

