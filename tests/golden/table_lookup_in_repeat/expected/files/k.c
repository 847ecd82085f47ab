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
   } tvals [4];
} lf_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 idx;
   __vptr_uint16 tbl;
   __vptr_uint16 out;
   lf_loop0_tvals_t loop0;
} lf_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_lf[ __PBLOCK_SIZE(lf_tvals_t) ];

extern "C" unsigned int lf_param_count(void)
{
   return __PBLOCK_SIZE(lf_tvals_t);
}

extern "C" unsigned int lf_init(
   __vptr_uint8 idx,
   __vptr_uint16 tbl,
   __vptr_uint16 out,
   unsigned short pblock[])
{
   lf_tvals_t* tvals = (lf_tvals_t*)pblock;

   tvals->idx = idx;
   tvals->tbl = tbl;
   tvals->out = out;

   // loop 0
   {
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < 4; ++r)
      {
         tvals->loop0.tvals[r].p0 = zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::config();
         tvals->loop0.tvals[r].p1 = zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_config();
         tvals->loop0.tvals[r].p2 = zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_in_SE_config(512);
      }
   }

   return __PBLOCK_SIZE(lf_tvals_t);
}

extern "C" void lf_vloops(
   unsigned short pblock[])
{
   lf_tvals_t* tvals = (lf_tvals_t*)pblock;

   __vptr_uint8 idx = tvals->idx;
   __vptr_uint16 tbl = tvals->tbl;
   __vptr_uint16 out = tvals->out;

   __agen A;
   __agen S;

   int32_t r;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (r = 0; r < 4; ++r)
   {
      uint32_t __p0 = tvals->loop0.tvals[r].p0;
      uint32_t __p1 = tvals->loop0.tvals[r].p1;
      __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[r].p2;

      __vector x;
      __vector y;

      S = 0;
      A = 0;
      zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::copy_table_in((void*)tbl, 512, __p1, __p2);
      zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::open(0, __p0);
      zelt_load<uint8_t, npt, nosa>::load(x, (void*)((char*)idx + A));
      zelt_lookup<uint16_t, 1, 1, 1, lut_id<0, 32768> >::lookup(y, x);
      zelt_store<uint16_t, table_npt, nosa, 1>::store(y, (void*)((char*)out + S));
   }
}

extern "C" void lf(
   __vptr_uint8 idx,
   __vptr_uint16 tbl,
   __vptr_uint16 out)
{
   lf_init(idx, tbl, out, __pblock_lf);

   lf_vloops(__pblock_lf);
}

extern "C" void lf_custom(
   __vptr_uint8 idx,
   __vptr_uint16 tbl,
   __vptr_uint16 out,
   unsigned short pblock[])
{
   lf_init(idx, tbl, out, pblock);

   lf_vloops(pblock);
}

