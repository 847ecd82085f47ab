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
      __SA_TEMPLATE_v1 p2;
   } tvals [1];
} scat_loop0_tvals_t;

typedef struct
{
   __vptr_int16 offs;
   __vptr_int16 src;
   __vptr_int16 hist;
   __vptr_int16 cols;
   scat_loop0_tvals_t loop0;
} scat_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_scat[ __PBLOCK_SIZE(scat_tvals_t) ];

extern "C" unsigned int scat_param_count(void)
{
   return __PBLOCK_SIZE(scat_tvals_t);
}

extern "C" unsigned int scat_init(
   __vptr_int16 offs,
   __vptr_int16 src,
   __vptr_int16 hist,
   __vptr_int16 cols,
   unsigned short pblock[])
{
   scat_tvals_t* tvals = (scat_tvals_t*)pblock;

   tvals->offs = offs;
   tvals->src = src;
   tvals->hist = hist;
   tvals->cols = cols;

   tvals->loop0.tvals[0].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(64, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, 2/2, 8, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<int16_t, 1, TRANSPOSE_OFF>::apply(8, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(scat_tvals_t);
}

extern "C" void scat_vloops(
   unsigned short pblock[])
{
   scat_tvals_t* tvals = (scat_tvals_t*)pblock;

   __vptr_int16 offs = tvals->offs;
   __vptr_int16 src = tvals->src;
   __vptr_int16 hist = tvals->hist;
   __vptr_int16 cols = tvals->cols;

   __agen Z;
   __vector o;

   __SE_TEMPLATE_v1 __p0 = tvals->loop0.tvals[0].p0;
   __SA_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t i;

   Z = 0;
   __SA0_OPEN(__p1);
   __SA1_OPEN(__p2);
   zelt_load<int16_t, npt, nosa>::load(o, (void*)((char*)offs + Z));
   __SE0_OPEN((void*)src, __p0);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < 8; ++i)
   {
      __vector v;

      zelt_load<int16_t, npt, se0adv>::SE_load(v);
      zelt_store<int16_t, p_scatter, sa0adv>::store(v, (void*)(hist), o);
      zelt_store<int16_t, offset_np1, sa1adv>::store(v, (void*)(cols));
   }
   __SA1_CLOSE();
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void scat(
   __vptr_int16 offs,
   __vptr_int16 src,
   __vptr_int16 hist,
   __vptr_int16 cols)
{
   scat_init(offs, src, hist, cols, __pblock_scat);

   scat_vloops(__pblock_scat);
}

extern "C" void scat_custom(
   __vptr_int16 offs,
   __vptr_int16 src,
   __vptr_int16 hist,
   __vptr_int16 cols,
   unsigned short pblock[])
{
   scat_init(offs, src, hist, cols, pblock);

   scat_vloops(pblock);
}

