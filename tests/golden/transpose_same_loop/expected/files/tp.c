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
      __SE_TEMPLATE_v1 p2;
      __SA_TEMPLATE_v1 p3;
   } tvals [1];
} tp_loop0_tvals_t;

typedef struct
{
   __vptr_int32 src;
   __vptr_int32 buf;
   __vptr_int32 dst;
   tp_loop0_tvals_t loop0;
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

   tvals->loop0.tvals[0].p0 = SE_init<int32_t, zelt_load<int32_t, npt>, TRANSPOSE_OFF>::apply(64, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1);
   tvals->loop0.tvals[0].p1 = SA_init<int32_t, 1, TRANSPOSE_OFF>::apply(8, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1);
   tvals->loop0.tvals[0].p2 = SE_init<int32_t, zelt_load<int32_t, npt>, TRANSPOSE_OFF>::apply(8, 36/4, 8, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1);
   tvals->loop0.tvals[0].p3 = SA_init<int32_t, 8, TRANSPOSE_OFF>::apply(64, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1);

   return __PBLOCK_SIZE(tp_tvals_t);
}

extern "C" void tp_vloops(
   unsigned short pblock[])
{
   tp_tvals_t* tvals = (tp_tvals_t*)pblock;

   __vptr_int32 src = tvals->src;
   __vptr_int32 buf = tvals->buf;
   __vptr_int32 dst = tvals->dst;

   __SE_TEMPLATE_v1 __p0 = tvals->loop0.tvals[0].p0;
   __SA_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;
   __SA_TEMPLATE_v1 __p3 = tvals->loop0.tvals[0].p3;

   int32_t i;

   __SA0_OPEN(__p1);
   __SA1_OPEN(__p3);
   __SE0_OPEN((void*)src, __p0);
   __SE1_OPEN((void*)buf, __p2);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < 8; ++i)
   {
      __vector v;
      __vector w;

      zelt_load<int32_t, npt, se0adv>::SE_load(v);
      zelt_store<int32_t, offset_np1, sa0adv>::store(v, (void*)(buf));
      zelt_load<int32_t, npt, se1adv>::SE_load(w);
      zelt_store<int32_t, npt, sa1adv>::store(w, (void*)(dst));
   }
   __SA1_CLOSE();
   __SE1_CLOSE();
   __SA0_CLOSE();
   __SE0_CLOSE();
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

