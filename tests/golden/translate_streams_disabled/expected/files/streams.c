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
      void* restrict p0;
      int32_t p1;
      int32_t p2;
      int32_t p3;
      int32_t p4;
      int32_t p5;
      int32_t p6;
      int32_t p7;
   } tvals [1];
} nest_loop0_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   __vptr_int32 z;
   int n;
   int m;
   int w;
   nest_loop0_tvals_t loop0;
} nest_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_nest[ __PBLOCK_SIZE(nest_tvals_t) ];

extern "C" unsigned int nest_param_count(void)
{
   return __PBLOCK_SIZE(nest_tvals_t);
}

extern "C" unsigned int nest_init(
   __vptr_int16 x,
   __vptr_int16 y,
   __vptr_int32 z,
   int n,
   int m,
   int w,
   unsigned short pblock[])
{
   nest_tvals_t* tvals = (nest_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->z = z;
   tvals->n = n;
   tvals->m = m;
   tvals->w = w;

   tvals->loop0.tvals[0].p0 = (uchar *)y+16;
   tvals->loop0.tvals[0].p1 = ((((n) * (16))) - (((16) * (n))));
   tvals->loop0.tvals[0].p2 = ((((((n) * (m))) * (16))) - (((((n) * (16))) * (m))));
   tvals->loop0.tvals[0].p3 = ((4) - (((((((n) * (m))) * (16))) * (w))));
   tvals->loop0.tvals[0].p4 = -(((16) * (n)));
   tvals->loop0.tvals[0].p5 = -(((8) * (n)));
   tvals->loop0.tvals[0].p6 = ((8) - (((32) * (n))));
   tvals->loop0.tvals[0].p7 = -(((8) * (m)));

   return __PBLOCK_SIZE(nest_tvals_t);
}

extern "C" void nest_vloops(
   unsigned short pblock[])
{
   nest_tvals_t* tvals = (nest_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   __vptr_int32 z = tvals->z;
   int n = tvals->n;
   int m = tvals->m;
   int w = tvals->w;

   __agen A;
   __agen B;
   __agen C;
   __agen D;

   void* restrict __p0 = tvals->loop0.tvals[0].p0;
   int32_t __p1 = tvals->loop0.tvals[0].p1;
   int32_t __p2 = tvals->loop0.tvals[0].p2;
   int32_t __p3 = tvals->loop0.tvals[0].p3;
   int32_t __p4 = tvals->loop0.tvals[0].p4;
   int32_t __p5 = tvals->loop0.tvals[0].p5;
   int32_t __p6 = tvals->loop0.tvals[0].p6;
   int32_t __p7 = tvals->loop0.tvals[0].p7;

   int32_t l;

   D = 0;
   C = 0;
   B = 0;
   A = 0;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (l = 0; l < 2; ++l)
   {
      int32_t k;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (k = 0; k < (int32_t)w; ++k)
      {
         int32_t j;

         #pragma MUST_ITERATE(1,65535,)
         #pragma PARALLEL_LOOP
         for (j = 0; j < (int32_t)m; ++j)
         {
            int32_t i;

            #pragma MUST_ITERATE(1,65535,)
            #pragma PARALLEL_LOOP
            for (i = 0; i < (int32_t)n; ++i)
            {
               __vector a;
               __vector b;
               __vector c;
               __vector d;
               __vector e;

               zelt_load<int16_t, npt, nosa>::load(a, (void*)((char*)x + A));
               zelt_load<int16_t, npt, nosa>::load(b, (void*)((char*)x + B));
               zelt_load<int32_t, npt, nosa>::load(c, (void*)((char*)z + C));
               zelt_load<int16_t, deinterleave, nosa>::load(e, d, (void*)((char*)x + D));
               zelt_store<int16_t, npt, nosa>::store(a, (void*)((char*)y + B));
               zelt_store<int16_t, npt, nosa>::store(b, (void*)((char*)__p0 + B));
               zelt_store<int16_t, npt, nosa>::store(c, (void*)((char*)y + A));
               zelt_store<int32_t, npt, nosa>::store(e, (void*)((char*)z + C));
               A += 16;
               B += 16;
               C += 8;
               D += 32;
            }
            A += __p1;
            B += __p4;
            C += __p5;
            D += __p6;
         }
         A += __p2;
         D += __p7;
      }
      A += __p3;
      C += 64;
   }
}

extern "C" void nest(
   __vptr_int16 x,
   __vptr_int16 y,
   __vptr_int32 z,
   int n,
   int m,
   int w)
{
   nest_init(x, y, z, n, m, w, __pblock_nest);

   nest_vloops(__pblock_nest);
}

extern "C" void nest_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   __vptr_int32 z,
   int n,
   int m,
   int w,
   unsigned short pblock[])
{
   nest_init(x, y, z, n, m, w, pblock);

   nest_vloops(pblock);
}

typedef struct
{
   struct
   {
      int32_t p0;
   } tvals [1];
} contiguous_loop1_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   contiguous_loop1_tvals_t loop1;
} contiguous_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_contiguous[ __PBLOCK_SIZE(contiguous_tvals_t) ];

extern "C" unsigned int contiguous_param_count(void)
{
   return __PBLOCK_SIZE(contiguous_tvals_t);
}

extern "C" unsigned int contiguous_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   contiguous_tvals_t* tvals = (contiguous_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;

   tvals->loop1.tvals[0].p0 = ((((n) * (16))) - (((16) * (n))));

   return __PBLOCK_SIZE(contiguous_tvals_t);
}

extern "C" void contiguous_vloops(
   unsigned short pblock[])
{
   contiguous_tvals_t* tvals = (contiguous_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   __agen A;

   int32_t __p0 = tvals->loop1.tvals[0].p0;

   int32_t j;

   A = 0;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (j = 0; j < 4; ++j)
   {
      int32_t i;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < (int32_t)n; ++i)
      {
         __vector a;

         zelt_load<int16_t, npt, nosa>::load(a, (void*)((char*)x + A));
         zelt_store<int16_t, npt, nosa>::store(a, (void*)((char*)y + A));
         A += 16;
      }
      A += __p0;
   }
}

extern "C" void contiguous(
   __vptr_int16 x,
   __vptr_int16 y,
   int n)
{
   contiguous_init(x, y, n, __pblock_contiguous);

   contiguous_vloops(__pblock_contiguous);
}

extern "C" void contiguous_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   contiguous_init(x, y, n, pblock);

   contiguous_vloops(pblock);
}

