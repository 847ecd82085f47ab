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
   int32_t tripcount;
   struct
   {
      int32_t p0;
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
   } tvals [16];
} search_loop0_tvals_t;

typedef struct
{
   __vptr_int16 src;
   __vptr_int16 dst;
   int rows;
   int n;
   search_loop0_tvals_t loop0;
} search_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_search[ __PBLOCK_SIZE(search_tvals_t) ];

extern "C" unsigned int search_param_count(void)
{
   return __PBLOCK_SIZE(search_tvals_t);
}

extern "C" unsigned int search_init(
   __vptr_int16 src,
   __vptr_int16 dst,
   int rows,
   int n,
   unsigned short pblock[])
{
   search_tvals_t* tvals = (search_tvals_t*)pblock;

   tvals->src = src;
   tvals->dst = dst;
   tvals->rows = rows;
   tvals->n = n;

   // loop 0
   {
      tvals->loop0.tripcount = rows;
      int32_t __tripcount = tvals->loop0.tripcount;
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         tvals->loop0.tvals[r].p0 = n / ZELT_SIMD_WIDTH;
         tvals->loop0.tvals[r].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
         tvals->loop0.tvals[r].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }

   return __PBLOCK_SIZE(search_tvals_t);
}

extern "C" void search_vloops(
   unsigned short pblock[])
{
   search_tvals_t* tvals = (search_tvals_t*)pblock;

   __vptr_int16 src = tvals->src;
   __vptr_int16 dst = tvals->dst;

   int32_t __tripcount = tvals->loop0.tripcount;

   int32_t r;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (r = 0; r < __tripcount; ++r)
   {
      int32_t __p0 = tvals->loop0.tvals[r].p0;
      __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[r].p1;
      __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[r].p2;

      __vector t;
      int32_t i;

      __SA0_OPEN(__p2);
      __SE0_OPEN((void*)src, __p1);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < __p0; ++i)
      {
         __vector v;
         __vector z;

         zelt_load<int16_t, npt, se0adv>::SE_load(v);
         z = (__vector)((int)0);
         cmpeq<int32_t>::apply(t, v, z);
         zelt_store<int16_t, npt, sa0adv>::store(t, (void*)(dst));
      }
      __SA0_CLOSE();
      __SE0_CLOSE();
      if (t.s0 != 0) goto done;
   }
done: ;
}

extern "C" void search(
   __vptr_int16 src,
   __vptr_int16 dst,
   int rows,
   int n)
{
   search_init(src, dst, rows, n, __pblock_search);

   search_vloops(__pblock_search);
}

extern "C" void search_custom(
   __vptr_int16 src,
   __vptr_int16 dst,
   int rows,
   int n,
   unsigned short pblock[])
{
   search_init(src, dst, rows, n, pblock);

   search_vloops(pblock);
}

