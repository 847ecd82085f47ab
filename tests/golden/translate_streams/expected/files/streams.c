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
      __SE_TEMPLATE_v1 p1;
      __SE_TEMPLATE_v1 p2;
      __SA_TEMPLATE_v1 p3;
      __SA_TEMPLATE_v1 p4;
      __SA_TEMPLATE_v1 p5;
      __SA_TEMPLATE_v1 p6;
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
   tvals->loop0.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, m, ((((n) * (m))) * (16))/2, w, 4/2, 2, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, ((((m) * (w))) * (2)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p3 = SA_init<int32_t, 8, TRANSPOSE_OFF>::apply(8, 8/4, n, 0/4, ((m) * (w)), 64/4, 2, 0/4, 1, 0/4, 1);
   tvals->loop0.tvals[0].p4 = SA_init<int16_t, 16, TRANSPOSE_OFF>::apply(((16) * (n)), 8/2, m, 0/2, ((w) * (2)), 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p5 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, ((((m) * (w))) * (2)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p6 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, m, ((((n) * (m))) * (16))/2, w, 4/2, 2, 0/2, 1, 0/2, 1);

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

   void* restrict __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   __SA_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;
   __SA_TEMPLATE_v1 __p4 = tvals->loop0.tvals[0].p4;
   __SA_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;
   __SA_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;

   int32_t l;

   __SA0_OPEN(__p3);
   __SA1_OPEN(__p4);
   __SA2_OPEN(__p5);
   __SA3_OPEN(__p6);
   __SE0_OPEN((void*)x, __p1);
   __SE1_OPEN((void*)x, __p2);

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

               zelt_load<int16_t, npt, se0adv>::SE_load(a);
               zelt_load<int16_t, npt, se1adv>::SE_load(b);
               zelt_load<int32_t, npt, sa0>::load(c, (void*)(z));
               zelt_load<int16_t, deinterleave, sa1adv>::load(e, d, (void*)(x));
               zelt_store<int16_t, npt, sa2>::store(a, (void*)(y));
               zelt_store<int16_t, npt, sa2adv>::store(b, (void*)(__p0));
               zelt_store<int16_t, npt, sa3adv>::store(c, (void*)(y));
               zelt_store<int32_t, npt, sa0adv>::store(e, (void*)(z));
            }
         }
      }
   }
   __SA3_CLOSE();
   __SA2_CLOSE();
   __SA1_CLOSE();
   __SA0_CLOSE();
   __SE1_CLOSE();
   __SE0_CLOSE();
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
      __SE_TEMPLATE_v1 p0;
      __SA_TEMPLATE_v1 p1;
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

   tvals->loop1.tvals[0].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, 4, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop1.tvals[0].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, 4, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(contiguous_tvals_t);
}

extern "C" void contiguous_vloops(
   unsigned short pblock[])
{
   contiguous_tvals_t* tvals = (contiguous_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   __SE_TEMPLATE_v1 __p0 = tvals->loop1.tvals[0].p0;
   __SA_TEMPLATE_v1 __p1 = tvals->loop1.tvals[0].p1;

   int32_t j;

   __SA0_OPEN(__p1);
   __SE0_OPEN((void*)x, __p0);

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

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         zelt_store<int16_t, npt, sa0adv>::store(a, (void*)(y));
      }
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
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

