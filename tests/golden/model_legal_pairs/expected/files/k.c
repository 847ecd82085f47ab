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
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
   } tvals [1];
} swap_lanes_loop0_tvals_t;

typedef struct
{
   __vptr_int16 src;
   __vptr_int16 dst;
   int n;
   swap_lanes_loop0_tvals_t loop0;
} swap_lanes_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_swap_lanes[ __PBLOCK_SIZE(swap_lanes_tvals_t) ];

extern "C" unsigned int swap_lanes_param_count(void)
{
   return __PBLOCK_SIZE(swap_lanes_tvals_t);
}

extern "C" unsigned int swap_lanes_init(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   swap_lanes_tvals_t* tvals = (swap_lanes_tvals_t*)pblock;

   tvals->src = src;
   tvals->dst = dst;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, deinterleave>, TRANSPOSE_OFF>::apply(16, 2/2, 2, 16/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<int16_t, 16, TRANSPOSE_OFF>::apply(16, 16/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(swap_lanes_tvals_t);
}

extern "C" void swap_lanes_vloops(
   unsigned short pblock[])
{
   swap_lanes_tvals_t* tvals = (swap_lanes_tvals_t*)pblock;

   __vptr_int16 src = tvals->src;
   __vptr_int16 dst = tvals->dst;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t i;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)src, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector a;
      __vector b;
      __vector c;
      __vector d;

      zelt_load<int16_t, deinterleave, se0adv>::SE_load(a, b);
      c = a;
      d = b;
      sort2<int32_t>::apply(c, d);
      zelt_store<int16_t, interleave, sa0adv>::store(c, d, (void*)(dst));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void swap_lanes(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n)
{
   swap_lanes_init(src, dst, n, __pblock_swap_lanes);

   swap_lanes_vloops(__pblock_swap_lanes);
}

extern "C" void swap_lanes_custom(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   swap_lanes_init(src, dst, n, pblock);

   swap_lanes_vloops(pblock);
}

