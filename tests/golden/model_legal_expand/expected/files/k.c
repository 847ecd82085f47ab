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
} expand_rows_loop0_tvals_t;

typedef struct
{
   __vptr_uint16 flags;
   __vptr_uint16 src;
   __vptr_uint16 dst;
   int n;
   expand_rows_loop0_tvals_t loop0;
} expand_rows_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_expand_rows[ __PBLOCK_SIZE(expand_rows_tvals_t) ];

extern "C" unsigned int expand_rows_param_count(void)
{
   return __PBLOCK_SIZE(expand_rows_tvals_t);
}

extern "C" unsigned int expand_rows_init(
   __vptr_uint16 flags,
   __vptr_uint16 src,
   __vptr_uint16 dst,
   int n,
   unsigned short pblock[])
{
   expand_rows_tvals_t* tvals = (expand_rows_tvals_t*)pblock;

   tvals->flags = flags;
   tvals->src = src;
   tvals->dst = dst;
   tvals->n = n;

   tvals->loop0.tvals[0].p0 = n / ZELT_SIMD_WIDTH;
   tvals->loop0.tvals[0].p1 = SE_init<uint16_t, zelt_load<uint16_t, npt>, TRANSPOSE_OFF>::apply(8, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p2 = SA_init<uint16_t, 16, TRANSPOSE_OFF>::apply(16, ZELT_SIMD_WIDTH/2, n / ZELT_SIMD_WIDTH, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(expand_rows_tvals_t);
}

extern "C" void expand_rows_vloops(
   unsigned short pblock[])
{
   expand_rows_tvals_t* tvals = (expand_rows_tvals_t*)pblock;

   __vptr_uint16 flags = tvals->flags;
   __vptr_uint16 src = tvals->src;
   __vptr_uint16 dst = tvals->dst;

   int32_t __p0 = tvals->loop0.tvals[0].p0;
   __SE_TEMPLATE_v1 __p1 = tvals->loop0.tvals[0].p1;
   __SA_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;

   int32_t i;
   void* __collate_ptr_0 = (void*)src;

   __SA0_OPEN(__p2);
   __SE0_OPEN((void*)flags, __p1);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < __p0; ++i)
   {
      __vector f;
      __vector v;

      zelt_load<uint16_t, npt, se0adv>::SE_load(f);
      zelt_load<uint16_t, expand, nosa>::load(v, __collate_ptr_0, f);
      zelt_store<uint16_t, skip, sa0adv>::store(v, (void*)(dst));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void expand_rows(
   __vptr_uint16 flags,
   __vptr_uint16 src,
   __vptr_uint16 dst,
   int n)
{
   expand_rows_init(flags, src, dst, n, __pblock_expand_rows);

   expand_rows_vloops(__pblock_expand_rows);
}

extern "C" void expand_rows_custom(
   __vptr_uint16 flags,
   __vptr_uint16 src,
   __vptr_uint16 dst,
   int n,
   unsigned short pblock[])
{
   expand_rows_init(flags, src, dst, n, pblock);

   expand_rows_vloops(pblock);
}

