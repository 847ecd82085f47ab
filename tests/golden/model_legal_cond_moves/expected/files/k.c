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
} edges_loop0_tvals_t;

typedef struct
{
   __vptr_int16 src;
   __vptr_int16 dst;
   int w;
   int h;
   edges_loop0_tvals_t loop0;
} edges_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_edges[ __PBLOCK_SIZE(edges_tvals_t) ];

extern "C" unsigned int edges_param_count(void)
{
   return __PBLOCK_SIZE(edges_tvals_t);
}

extern "C" unsigned int edges_init(
   __vptr_int16 src,
   __vptr_int16 dst,
   int w,
   int h,
   unsigned short pblock[])
{
   edges_tvals_t* tvals = (edges_tvals_t*)pblock;

   tvals->src = src;
   tvals->dst = dst;
   tvals->w = w;
   tvals->h = h;

   tvals->loop0.tvals[0].p0 = w / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, w / ZELT_SIMD_WIDTH, w/2, h, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, w / ZELT_SIMD_WIDTH, w/2, h, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(edges_tvals_t);
}

extern "C" void edges_vloops(
   unsigned short pblock[])
{
   edges_tvals_t* tvals = (edges_tvals_t*)pblock;

   __vptr_int16 src = tvals->src;
   __vptr_int16 dst = tvals->dst;
   int h = tvals->h;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t y;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)src, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (y = 0; y < (int32_t)h; ++y)
   {
      __vector acc;
      __vector first;
      int32_t x;

      acc = (__vector)((int)0);
      first = acc;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (x = 0; x < __p0; ++x)
      {
         __vector tail;
         __vector v;

         zelt_load<int16_t, npt, se0adv>::SE_load(v);
         if (__first(x))
            first = v;
         if (__first(x) && __first(y))
            tail = v;
         if (__last(x,__p0))
            tail = v;
         if (__last(x,__p0) && __last(y,(int32_t)h))
            acc = v;
         zelt_store<int16_t, npt, sa0adv>::store(first, (void*)(dst));
      }
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void edges(
   __vptr_int16 src,
   __vptr_int16 dst,
   int w,
   int h)
{
   edges_init(src, dst, w, h, __pblock_edges);

   edges_vloops(__pblock_edges);
}

extern "C" void edges_custom(
   __vptr_int16 src,
   __vptr_int16 dst,
   int w,
   int h,
   unsigned short pblock[])
{
   edges_init(src, dst, w, h, pblock);

   edges_vloops(pblock);
}

