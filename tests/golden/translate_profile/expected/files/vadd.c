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
} vadd_loop0_tvals_t;

typedef struct
{
   __vptr_int16 a;
   __vptr_int16 b;
   __vptr_int16 sum;
   int n;
   vadd_loop0_tvals_t loop0;
} vadd_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_vadd[ __PBLOCK_SIZE(vadd_tvals_t) ];

__TSC_TYPE vadd_init_cycles = 0;
__TSC_TYPE vadd_vloops_cycles = 0;

extern "C" unsigned int vadd_param_count(void)
{
   return __PBLOCK_SIZE(vadd_tvals_t);
}

extern "C" unsigned int vadd_init(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n,
   unsigned short pblock[])
{
   vadd_tvals_t* tvals = (vadd_tvals_t*)pblock;

   tvals->a = a;
   tvals->b = b;
   tvals->sum = sum;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n / ZELT_SIMD_WIDTH)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n / ZELT_SIMD_WIDTH)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(vadd_tvals_t);
}

extern "C" void vadd_vloops(
   unsigned short pblock[])
{
   vadd_tvals_t* tvals = (vadd_tvals_t*)pblock;

   __vptr_int16 a = tvals->a;
   __vptr_int16 b = tvals->b;
   __vptr_int16 sum = tvals->sum;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t i;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)a, __p1);
   __SE1_OPEN((void*)b, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector va;
      __vector vb;
      __vector vs;

      zelt_load<int16_t, npt, se0adv>::SE_load(va);
      zelt_load<int16_t, npt, se1adv>::SE_load(vb);
      vs = va + vb;
      zelt_store<int16_t, npt, sa0adv>::store(vs, (void*)(sum));
   }
   __SA0_CLOSE();
   __SE1_CLOSE();
   __SE0_CLOSE();
}

extern "C" void vadd(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n)
{
   __TSC_TYPE time0;
   time0 = _tsc_gettime();
   vadd_init(a, b, sum, n, __pblock_vadd);
   vadd_init_cycles = _tsc_gettime() - time0;

   time0 = _tsc_gettime();
   vadd_vloops(__pblock_vadd);
   vadd_vloops_cycles = _tsc_gettime() - time0;

   __zelt_log_kernel_profile("vadd", vadd_init_cycles, vadd_vloops_cycles);
}

extern "C" void vadd_custom(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n,
   unsigned short pblock[])
{
   vadd_init(a, b, sum, n, pblock);

   vadd_vloops(pblock);
}

