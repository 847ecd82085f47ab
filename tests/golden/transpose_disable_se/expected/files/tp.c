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
   } tvals [1];
} tp_loop0_tvals_t;

typedef struct
{
   struct
   {
   } tvals [1];
} tp_loop1_tvals_t;

typedef struct
{
   __vptr_int32 src;
   __vptr_int32 buf;
   __vptr_int32 dst;
} tp_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_tp[ __PBLOCK_SIZE(tp_tvals_t) ];

extern "C" unsigned int tp_param_count(void)
{
   return __PBLOCK_SIZE(tp_tvals_t);
}

extern "C" unsigned int tp_init(
   __vptr_int32 src,
   __vptr_int32 buf,
   __vptr_int32 dst,
   unsigned short pblock[])
{
   tp_tvals_t* tvals = (tp_tvals_t*)pblock;

   tvals->src = src;
   tvals->buf = buf;
   tvals->dst = dst;

   // loop 0
   // loop 1

   return __PBLOCK_SIZE(tp_tvals_t);
}

extern "C" void tp_vloops(
   unsigned short pblock[])
{
   tp_tvals_t* tvals = (tp_tvals_t*)pblock;

   __vptr_int32 src = tvals->src;
   __vptr_int32 buf = tvals->buf;
   __vptr_int32 dst = tvals->dst;

   __agen A;
   __agen B;
   __agen D;
   __agen S;

   // loop 0
   {
      int32_t i;

      S = 0;
      A = 0;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < 8; ++i)
      {
         __vector v;

         zelt_load<int32_t, npt, nosa>::load(v, (void*)((char*)src + A));
         zelt_store<int32_t, offset_np1, nosa>::store(v, (void*)((char*)buf + S));
         A += 32;
         S += 4;
      }
   }
   // loop 1
   {
      int32_t j;

      D = 0;
      B = 0;

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (j = 0; j < 8; ++j)
      {
         __vector w;

         zelt_load<int32_t, npt, nosa>::load(w, (void*)((char*)buf + B));
         zelt_store<int32_t, npt, nosa>::store(w, (void*)((char*)dst + D));
         B += 36;
         D += 32;
      }
   }
}

extern "C" void tp(
   __vptr_int32 src,
   __vptr_int32 buf,
   __vptr_int32 dst)
{
   tp_init(src, buf, dst, __pblock_tp);

   tp_vloops(__pblock_tp);
}

extern "C" void tp_custom(
   __vptr_int32 src,
   __vptr_int32 buf,
   __vptr_int32 dst,
   unsigned short pblock[])
{
   tp_init(src, buf, dst, pblock);

   tp_vloops(pblock);
}

