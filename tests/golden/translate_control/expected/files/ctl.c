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
      __SE_TEMPLATE_v1 p0;
      __SA_TEMPLATE_v1 p1;
   } tvals [4];
} repeat_const_loop0_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   repeat_const_loop0_tvals_t loop0;
} repeat_const_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_repeat_const[ __PBLOCK_SIZE(repeat_const_tvals_t) ];

extern "C" unsigned int repeat_const_param_count(void)
{
   return __PBLOCK_SIZE(repeat_const_tvals_t);
}

extern "C" unsigned int repeat_const_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   repeat_const_tvals_t* tvals = (repeat_const_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;

   // loop 0
   {
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < 4; ++r)
      {
         tvals->loop0.tvals[r].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
         tvals->loop0.tvals[r].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }

   return __PBLOCK_SIZE(repeat_const_tvals_t);
}

extern "C" void repeat_const_vloops(
   unsigned short pblock[])
{
   repeat_const_tvals_t* tvals = (repeat_const_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;

   int32_t r;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (r = 0; r < 4; ++r)
   {
      __SE_TEMPLATE_v1 __p0 = tvals->loop0.tvals[r].p0;
      __SA_TEMPLATE_v1 __p1 = tvals->loop0.tvals[r].p1;

      int32_t i;

      __SA0_OPEN(__p1);
      __SE0_OPEN((void*)x, __p0);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < (int32_t)n; ++i)
      {
         __vector a;

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         zelt_store<int16_t, npt, sa0adv>::store(a, (void*)(y));
      }
      __SA0_CLOSE();
      __SE0_CLOSE();
   }
}

extern "C" void repeat_const(
   __vptr_int16 x,
   __vptr_int16 y,
   int n)
{
   repeat_const_init(x, y, n, __pblock_repeat_const);

   repeat_const_vloops(__pblock_repeat_const);
}

extern "C" void repeat_const_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[])
{
   repeat_const_init(x, y, n, pblock);

   repeat_const_vloops(pblock);
}

typedef struct
{
   int32_t tripcount;
   struct
   {
      __SE_TEMPLATE_v1 p0;
      __SA_TEMPLATE_v1 p1;
   } tvals [8];
} repeat_runtime_loop1_tvals_t;

typedef struct
{
   __vptr_int16 x;
   __vptr_int16 y;
   int n;
   int m;
   int w;
   repeat_runtime_loop1_tvals_t loop1;
} repeat_runtime_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_repeat_runtime[ __PBLOCK_SIZE(repeat_runtime_tvals_t) ];

extern "C" unsigned int repeat_runtime_param_count(void)
{
   return __PBLOCK_SIZE(repeat_runtime_tvals_t);
}

extern "C" unsigned int repeat_runtime_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w,
   unsigned short pblock[])
{
   repeat_runtime_tvals_t* tvals = (repeat_runtime_tvals_t*)pblock;

   tvals->x = x;
   tvals->y = y;
   tvals->n = n;
   tvals->m = m;
   tvals->w = w;

   // loop 1
   {
      tvals->loop1.tripcount = m + 1;
      int32_t __tripcount = tvals->loop1.tripcount;
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         tvals->loop1.tvals[r].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, w, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
         tvals->loop1.tvals[r].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, w, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }

   return __PBLOCK_SIZE(repeat_runtime_tvals_t);
}

extern "C" void repeat_runtime_update(
   __vptr_int16 x,
   int n,
   unsigned short pblock[])
{
   repeat_runtime_tvals_t* tvals = (repeat_runtime_tvals_t*)pblock;

   __vptr_int16 y = tvals->y;
   int m = tvals->m;
   int w = tvals->w;

   tvals->x = x;
   tvals->n = n;

   // loop 1
   {
      tvals->loop1.tripcount = m + 1;
      int32_t __tripcount = tvals->loop1.tripcount;
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         tvals->loop1.tvals[r].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, w, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
         tvals->loop1.tvals[r].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), ((n) * (16))/2, w, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }
}

extern "C" void repeat_runtime_vloops(
   unsigned short pblock[])
{
   repeat_runtime_tvals_t* tvals = (repeat_runtime_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   __vptr_int16 y = tvals->y;
   int n = tvals->n;
   int w = tvals->w;

   int32_t __tripcount = tvals->loop1.tripcount;

   int32_t r;

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (r = 0; r < __tripcount; ++r)
   {
      __SE_TEMPLATE_v1 __p0 = tvals->loop1.tvals[r].p0;
      __SA_TEMPLATE_v1 __p1 = tvals->loop1.tvals[r].p1;

      int32_t j;

      __SA0_OPEN(__p1);
      __SE0_OPEN((void*)x, __p0);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (j = 0; j < (int32_t)w; ++j)
      {
         int32_t i;

         #pragma MUST_ITERATE(1,65535,)
         #pragma PARALLEL_LOOP
         for (i = 0; i < (int32_t)n; ++i)
         {
            __vector a;
            __vector b;
            __vector c;

            zelt_load<int16_t, npt, se0adv>::SE_load(a);
            c = a;
            if (__first(i))
               b = a;
            if (__last(i,(int32_t)n))
               c = b;
            if (__last(i,(int32_t)n) && __last(j,(int32_t)w))
               b = c;
            zelt_store<int16_t, npt, sa0adv>::store(c, (void*)(y));
         }
      }
      __SA0_CLOSE();
      __SE0_CLOSE();
   }
}

extern "C" void repeat_runtime(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w)
{
   repeat_runtime_init(x, y, n, m, w, __pblock_repeat_runtime);

   repeat_runtime_vloops(__pblock_repeat_runtime);
}

extern "C" void repeat_runtime_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w,
   unsigned short pblock[])
{
   repeat_runtime_init(x, y, n, m, w, pblock);

   repeat_runtime_vloops(pblock);
}

typedef struct
{
   int32_t tripcount;
   struct
   {
      __SE_TEMPLATE_v1 p0;
   } tvals [8];
} early_exit_loop2_tvals_t;

typedef struct
{
   struct
   {
      __SE_TEMPLATE_v1 p0;
   } tvals [1];
} early_exit_loop3_tvals_t;

typedef struct
{
   __vptr_int16 x;
   int n;
   early_exit_loop2_tvals_t loop2;
   early_exit_loop3_tvals_t loop3;
} early_exit_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_early_exit[ __PBLOCK_SIZE(early_exit_tvals_t) ];

extern "C" unsigned int early_exit_param_count(void)
{
   return __PBLOCK_SIZE(early_exit_tvals_t);
}

extern "C" unsigned int early_exit_init(
   __vptr_int16 x,
   int n,
   unsigned short pblock[])
{
   early_exit_tvals_t* tvals = (early_exit_tvals_t*)pblock;

   tvals->x = x;
   tvals->n = n;

   // loop 2
   {
      tvals->loop2.tripcount = n;
      int32_t __tripcount = tvals->loop2.tripcount;
      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         tvals->loop2.tvals[r].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
      }
   }
   // loop 3
   tvals->loop3.tvals[0].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(early_exit_tvals_t);
}

extern "C" void early_exit_vloops(
   unsigned short pblock[])
{
   early_exit_tvals_t* tvals = (early_exit_tvals_t*)pblock;

   __vptr_int16 x = tvals->x;
   int n = tvals->n;

   // loop 2
   {
      int32_t __tripcount = tvals->loop2.tripcount;

      int32_t r;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (r = 0; r < __tripcount; ++r)
      {
         __SE_TEMPLATE_v1 __p0 = tvals->loop2.tvals[r].p0;

         int32_t i;

         __SE0_OPEN((void*)x, __p0);

         #pragma MUST_ITERATE(1,65535,)
         #pragma PARALLEL_LOOP
         for (i = 0; i < (int32_t)n; ++i)
         {
            __vector a;

            zelt_load<int16_t, npt, se0adv>::SE_load(a);
            if (a.s0 != 0) goto done;
         }
         __SE0_CLOSE();
      }
done: ;
   }
   // loop 3
   {
      __SE_TEMPLATE_v1 __p0 = tvals->loop3.tvals[0].p0;

      int32_t k;

      __SE0_OPEN((void*)x, __p0);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (k = 0; k < (int32_t)n; ++k)
      {
         __vector b;

         zelt_load<int16_t, npt, se0adv>::SE_load(b);
         if (b.s0 != 0) goto early;
      }
early: ;
      __SE0_CLOSE();
   }
}

extern "C" void early_exit(
   __vptr_int16 x,
   int n)
{
   early_exit_init(x, n, __pblock_early_exit);

   early_exit_vloops(__pblock_early_exit);
}

extern "C" void early_exit_custom(
   __vptr_int16 x,
   int n,
   unsigned short pblock[])
{
   early_exit_init(x, n, pblock);

   early_exit_vloops(pblock);
}

