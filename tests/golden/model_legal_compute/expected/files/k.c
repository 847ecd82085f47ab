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
} blend_loop0_tvals_t;

typedef struct
{
   __vptr_int16 a;
   __vptr_int16 b;
   __vptr_int16 out;
   int w;
   int h;
   blend_loop0_tvals_t loop0;
} blend_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_blend[ __PBLOCK_SIZE(blend_tvals_t) ];

extern "C" unsigned int blend_param_count(void)
{
   return __PBLOCK_SIZE(blend_tvals_t);
}

extern "C" unsigned int blend_init(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 out,
   int w,
   int h,
   unsigned short pblock[])
{
   blend_tvals_t* tvals = (blend_tvals_t*)pblock;

   tvals->a = a;
   tvals->b = b;
   tvals->out = out;
   tvals->w = w;
   tvals->h = h;

   tvals->loop0.tvals[0].p0 = w / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, w / ZELT_SIMD_WIDTH, w/2, h, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, w / ZELT_SIMD_WIDTH, w/2, h, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(blend_tvals_t);
}

extern "C" void blend_vloops(
   unsigned short pblock[])
{
   blend_tvals_t* tvals = (blend_tvals_t*)pblock;

   __vptr_int16 a = tvals->a;
   __vptr_int16 b = tvals->b;
   __vptr_int16 out = tvals->out;
   int h = tvals->h;

   __vector Vtemp0;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t y;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)a, __p1);
   __SE1_OPEN((void*)b, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (y = 0; y < (int32_t)h; ++y)
   {
      int32_t x;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (x = 0; x < __p0; ++x)
      {
         __vector va;
         __vector vb;
         __vector vk;
         __vector vm;
         __vector vs;

         zelt_load<int16_t, npt, se0adv>::SE_load(va);
         zelt_load<int16_t, npt, se1adv>::SE_load(vb);
         vk = (__vector)((int)3);
         vs = va * vk;
         round<int32_t>::apply(vs, vs, 15);
         vs = vs + vb;
         vm = __max(vs, va);
         Vtemp0 = vm;
         saturate_to_width<int32_t,int16_t,8>::apply(Vtemp0);
         zelt_store<int16_t, npt, sa0adv>::store(Vtemp0, (void*)(out));
      }
   }
   __SA0_CLOSE();
   __SE1_CLOSE();
   __SE0_CLOSE();
}

extern "C" void blend(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 out,
   int w,
   int h)
{
   blend_init(a, b, out, w, h, __pblock_blend);

   blend_vloops(__pblock_blend);
}

extern "C" void blend_custom(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 out,
   int w,
   int h,
   unsigned short pblock[])
{
   blend_init(a, b, out, w, h, pblock);

   blend_vloops(pblock);
}

typedef struct
{
   struct
   {
      int32_t p0;
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
   } tvals [1];
} offsets_loop1_tvals_t;

typedef struct
{
   struct
   {
      int32_t p0;
      __SA_TEMPLATE_v1 p1;
   } tvals [1];
} offsets_loop2_tvals_t;

typedef struct
{
   __vptr_int16 p;
   __vptr_int16 q;
   int n;
   offsets_loop1_tvals_t loop1;
   offsets_loop2_tvals_t loop2;
} offsets_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_offsets[ __PBLOCK_SIZE(offsets_tvals_t) ];

extern "C" unsigned int offsets_param_count(void)
{
   return __PBLOCK_SIZE(offsets_tvals_t);
}

extern "C" unsigned int offsets_init(
   __vptr_int16 p,
   __vptr_int16 q,
   int n,
   unsigned short pblock[])
{
   offsets_tvals_t* tvals = (offsets_tvals_t*)pblock;

   tvals->p = p;
   tvals->q = q;
   tvals->n = n;

   // loop 1
   tvals->loop1.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop1.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop1.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   // loop 2
   tvals->loop2.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop2.tvals[0].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(offsets_tvals_t);
}

extern "C" void offsets_vloops(
   unsigned short pblock[])
{
   offsets_tvals_t* tvals = (offsets_tvals_t*)pblock;

   __vptr_int16 p = tvals->p;
   __vptr_int16 q = tvals->q;

   __agen Z;
   __vector c;

   // loop 1
   {
      int32_t __p0 = tvals->loop1.tvals[0].p0;
      __SE_TEMPLATE_v1 __p1 = tvals->loop1.tvals[0].p1;
      __SA_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;

      int32_t i;

      Z = 0;
      __SA0_OPEN(__p2);
      zelt_load<int16_t, onept, nosa>::load(c, (void*)((char*)p + Z));
      __SE0_OPEN((void*)p, __p1);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < __p0; ++i)
      {
         __vector a;

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         a = a + c;
         zelt_store<int16_t, npt, sa0adv>::store(a, (void*)(q));
      }
      __SA0_CLOSE();
      __SE0_CLOSE();
   }
   // loop 2
   {
      int32_t __p0 = tvals->loop2.tvals[0].p0;
      __SA_TEMPLATE_v1 __p1 = tvals->loop2.tvals[0].p1;

      int32_t i;

      Z = 0;
      __SA0_OPEN(__p1);
      zelt_load<int16_t, onept, nosa>::load(c, (void*)((char*)p + Z));

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < __p0; ++i)
      {
         zelt_store<int16_t, npt, sa0adv>::store(c, (void*)(q));
      }
      __SA0_CLOSE();
   }
}

extern "C" void offsets(
   __vptr_int16 p,
   __vptr_int16 q,
   int n)
{
   offsets_init(p, q, n, __pblock_offsets);

   offsets_vloops(__pblock_offsets);
}

extern "C" void offsets_custom(
   __vptr_int16 p,
   __vptr_int16 q,
   int n,
   unsigned short pblock[])
{
   offsets_init(p, q, n, pblock);

   offsets_vloops(pblock);
}

