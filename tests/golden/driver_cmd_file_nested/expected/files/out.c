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
   int n;
} k_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_k[ __PBLOCK_SIZE(k_tvals_t) ];

extern "C" unsigned int k_param_count(void)
{
   return __PBLOCK_SIZE(k_tvals_t);
}

extern "C" unsigned int k_init(
   int n,
   unsigned short pblock[])
{
   k_tvals_t* tvals = (k_tvals_t*)pblock;

   tvals->n = n;

   return __PBLOCK_SIZE(k_tvals_t);
}

extern "C" void k_vloops(
   unsigned short pblock[])
{
   k_tvals_t* tvals = (k_tvals_t*)pblock;

}

extern "C" void k(
   int n)
{
   k_init(n, __pblock_k);

   k_vloops(__pblock_k);
}

extern "C" void k_custom(
   int n,
   unsigned short pblock[])
{
   k_init(n, pblock);

   k_vloops(pblock);
}

