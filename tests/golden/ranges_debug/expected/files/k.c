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
      __SA_TEMPLATE_v1 p0;
   } tvals [1];
} rng_loop0_tvals_t;

typedef struct
{
   __vptr_uint8 q;
   int n;
   rng_loop0_tvals_t loop0;
} rng_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_rng[ __PBLOCK_SIZE(rng_tvals_t) ];

extern "C" unsigned int rng_param_count(void)
{
   return __PBLOCK_SIZE(rng_tvals_t);
}

extern "C" unsigned int rng_init(
   __vptr_uint8 q,
   int n,
   unsigned short pblock[])
{
   rng_tvals_t* tvals = (rng_tvals_t*)pblock;

   tvals->q = q;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = SA_init<uint8_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);

   return __PBLOCK_SIZE(rng_tvals_t);
}

extern "C" void rng_vloops(
   unsigned short pblock[])
{
   rng_tvals_t* tvals = (rng_tvals_t*)pblock;

   __vptr_uint8 q = tvals->q;
   int n = tvals->n;

   __vector Vtemp0;

   __SA_TEMPLATE_v1 __p0 = tvals->loop0.tvals[0].p0;

   int32_t i;

   __SA0_OPEN(__p0);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector x;
      __vector y;

      x = (__vector)((int)1);
      y = (__vector)((int)200);
      if (__first(i))
         x = y;
      Vtemp0 = x;
      zelt_store<uint8_t, npt, sa0adv>::store(Vtemp0, (void*)(q));
   }
   __SA0_CLOSE();
}

extern "C" void rng(
   __vptr_uint8 q,
   int n)
{
   rng_init(q, n, __pblock_rng);

   rng_vloops(__pblock_rng);
}

extern "C" void rng_custom(
   __vptr_uint8 q,
   int n,
   unsigned short pblock[])
{
   rng_init(q, n, pblock);

   rng_vloops(pblock);
}

