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
      void* p0;
      void* p1;
      void* p2;
      void* restrict p3;
      void* restrict p4;
      __SE_TEMPLATE_v1 p5;
      __SA_TEMPLATE_v1 p6;
      __SA_TEMPLATE_v1 p7;
      __SA_TEMPLATE_v1 p8;
      __SA_TEMPLATE_v1 p9;
   } tvals [1];
} loads_loop0_tvals_t;

typedef struct
{
   struct
   {
      __uchar64 p0;
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
   } tvals [1];
} loads_loop1_tvals_t;

typedef struct
{
   __vptr_int16 src;
   __vptr_uint8 bytes;
   __vptr_int32 words;
   __vptr_int16 dst;
   int n;
   loads_loop0_tvals_t loop0;
   loads_loop1_tvals_t loop1;
} loads_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_loads[ __PBLOCK_SIZE(loads_tvals_t) ];

extern "C" unsigned int loads_param_count(void)
{
   return __PBLOCK_SIZE(loads_tvals_t);
}

extern "C" unsigned int loads_init(
   __vptr_int16 src,
   __vptr_uint8 bytes,
   __vptr_int32 words,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   loads_tvals_t* tvals = (loads_tvals_t*)pblock;

   tvals->src = src;
   tvals->bytes = bytes;
   tvals->words = words;
   tvals->dst = dst;
   tvals->n = n;

   // loop 0
   tvals->loop0.tvals[0].p0 = (uchar *)src+4;
   tvals->loop0.tvals[0].p1 = (char *)(((unsigned int)(src)) | 0x100000);
   tvals->loop0.tvals[0].p2 = (char *)(((unsigned int)(words)) | 0x600000);
   tvals->loop0.tvals[0].p3 = (uchar *)dst+16;
   tvals->loop0.tvals[0].p4 = (uchar *)dst+32;
   tvals->loop0.tvals[0].p5 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p6 = SA_init<int16_t, 1, TRANSPOSE_OFF>::apply(1, 4/2, n, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p7 = SA_init<uint8_t, 2, TRANSPOSE_OFF>::apply(((2) * (n)), 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop0.tvals[0].p8 = SA_init<int16_t, 16, TRANSPOSE_OFF>::apply(16, 16/2, n, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop0.tvals[0].p9 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   // loop 1
   tvals->loop1.tvals[0].p0 = custom_dist_perm(1, 2, 3, 4, 5, 6, 7, 8);
   tvals->loop1.tvals[0].p1 = SE_init<int32_t, zelt_load<int32_t, custom>, TRANSPOSE_OFF>::apply(8, 4/4, n, 0/4, 1, 0/4, 1, 0/4, 1, 0/4, 1);
   tvals->loop1.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(8, 4/2, n, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(loads_tvals_t);
}

extern "C" void loads_vloops(
   unsigned short pblock[])
{
   loads_tvals_t* tvals = (loads_tvals_t*)pblock;

   __vptr_int16 src = tvals->src;
   __vptr_uint8 bytes = tvals->bytes;
   __vptr_int32 words = tvals->words;
   __vptr_int16 dst = tvals->dst;
   int n = tvals->n;

   __agen B;
   __agen C;
   __agen E;

   // loop 0
   {
      void* __p0 = tvals->loop0.tvals[0].p0;
      void* __p1 = tvals->loop0.tvals[0].p1;
      void* __p2 = tvals->loop0.tvals[0].p2;
      void* restrict __p3 = tvals->loop0.tvals[0].p3;
      void* restrict __p4 = tvals->loop0.tvals[0].p4;
      __SE_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;
      __SA_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;
      __SA_TEMPLATE_v1 __p7 = tvals->loop0.tvals[0].p7;
      __SA_TEMPLATE_v1 __p8 = tvals->loop0.tvals[0].p8;
      __SA_TEMPLATE_v1 __p9 = tvals->loop0.tvals[0].p9;

      int32_t i;

      C = 0;
      B = 0;
      __SA0_OPEN(__p6);
      __SA1_OPEN(__p7);
      __SA2_OPEN(__p8);
      __SA3_OPEN(__p9);
      __SE0_OPEN((void*)src, __p5);
      __SE1_OPEN((void*)src, __p5);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < (int32_t)n; ++i)
      {
         __vector a;
         __vector b;
         __vector c;
         __vector d;
         __vector e;
         __vector f;
         __vector g;
         __vector h;

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         zelt_load<int16_t, npt, se1adv>::SE_load(b);
         zelt_load<int16_t, onept, sa0adv>::load(c, (void*)(__p0));
         zelt_load<uint8_t, circ2, sa1adv>::load(d, (void*)(bytes));
         zelt_load<int16_t, ds2, nosa>::load(e, (void*)circ(__p1, B, 1));
         zelt_load<int32_t, us2, nosa>::load(f, (void*)circ(__p2, C, 6));
         zelt_load<int16_t, deinterleave, sa2adv>::load(g, h, (void*)(src));
         c += a + b;
         f += d + e;
         g = g + h;
         zelt_store<int16_t, npt, sa3>::store(c, (void*)(dst));
         zelt_store<int16_t, npt, sa3>::store(f, (void*)(__p3));
         zelt_store<int16_t, npt, sa3adv>::store(g, (void*)(__p4));
         B += 2;
         C += 4;
      }
      __SA3_CLOSE();
      __SA2_CLOSE();
      __SA1_CLOSE();
      __SA0_CLOSE();
      __SE1_CLOSE();
      __SE0_CLOSE();
   }
   // loop 1
   {
      __uchar64 __p0 = tvals->loop1.tvals[0].p0;
      __SE_TEMPLATE_v1 __p1 = tvals->loop1.tvals[0].p1;
      __SA_TEMPLATE_v1 __p2 = tvals->loop1.tvals[0].p2;

      int32_t j;

      E = 0;
      __SA0_OPEN(__p2);
      __SE0_OPEN((void*)words, __p1);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (j = 0; j < (int32_t)n; ++j)
      {
         __vector k;
         __vector m;

         zelt_load<int32_t, custom, se0adv>::SE_load(k, __p0);
         zelt_load<uint8_t, nbits, nosa>::load(m, (void*)((char*)bytes + E));
         k = k + m;
         zelt_store<int16_t, npt, sa0adv>::store(k, (void*)(dst));
         E += 1;
      }
      __SA0_CLOSE();
      __SE0_CLOSE();
   }
}

extern "C" void loads(
   __vptr_int16 src,
   __vptr_uint8 bytes,
   __vptr_int32 words,
   __vptr_int16 dst,
   int n)
{
   loads_init(src, bytes, words, dst, n, __pblock_loads);

   loads_vloops(__pblock_loads);
}

extern "C" void loads_custom(
   __vptr_int16 src,
   __vptr_uint8 bytes,
   __vptr_int32 words,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   loads_init(src, bytes, words, dst, n, pblock);

   loads_vloops(pblock);
}

typedef struct
{
   struct
   {
      __SE_TEMPLATE_v1 p0;
      __SA_TEMPLATE_v1 p1;
   } tvals [1];
} expanding_loop2_tvals_t;

typedef struct
{
   __vptr_int16 src;
   __vptr_int16 dst;
   int n;
   expanding_loop2_tvals_t loop2;
} expanding_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_expanding[ __PBLOCK_SIZE(expanding_tvals_t) ];

extern "C" unsigned int expanding_param_count(void)
{
   return __PBLOCK_SIZE(expanding_tvals_t);
}

extern "C" unsigned int expanding_init(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   expanding_tvals_t* tvals = (expanding_tvals_t*)pblock;

   tvals->src = src;
   tvals->dst = dst;
   tvals->n = n;

   tvals->loop2.tvals[0].p0 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop2.tvals[0].p1 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(expanding_tvals_t);
}

extern "C" void expanding_vloops(
   unsigned short pblock[])
{
   expanding_tvals_t* tvals = (expanding_tvals_t*)pblock;

   __vptr_int16 src = tvals->src;
   __vptr_int16 dst = tvals->dst;
   int n = tvals->n;

   __SE_TEMPLATE_v1 __p0 = tvals->loop2.tvals[0].p0;
   __SA_TEMPLATE_v1 __p1 = tvals->loop2.tvals[0].p1;

   int32_t i;
   void* __collate_ptr_0 = (void*)src;

   __SA0_OPEN(__p1);
   __SE0_OPEN((void*)src, __p0);

   #pragma MUST_ITERATE(1,65535,)
   #pragma PARALLEL_LOOP
   for (i = 0; i < (int32_t)n; ++i)
   {
      __vector flags;
      __vector p;

      zelt_load<int16_t, npt, se0adv>::SE_load(flags);
      zelt_load<int16_t, expand, nosa>::load(p, __collate_ptr_0, flags);
      zelt_store<int16_t, npt, sa0adv>::store(p, (void*)(dst));
   }
   __SA0_CLOSE();
   __SE0_CLOSE();
}

extern "C" void expanding(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n)
{
   expanding_init(src, dst, n, __pblock_expanding);

   expanding_vloops(__pblock_expanding);
}

extern "C" void expanding_custom(
   __vptr_int16 src,
   __vptr_int16 dst,
   int n,
   unsigned short pblock[])
{
   expanding_init(src, dst, n, pblock);

   expanding_vloops(pblock);
}

typedef struct
{
   struct
   {
      void* p0;
      __SE_TEMPLATE_v1 p1;
      __SA_TEMPLATE_v1 p2;
      __SA_TEMPLATE_v1 p3;
      __SA_TEMPLATE_v1 p4;
      __SA_TEMPLATE_v1 p5;
   } tvals [1];
} stores_loop3_tvals_t;

typedef struct
{
   struct
   {
      void* p0;
      void* restrict p1;
      void* restrict p2;
      __SE_TEMPLATE_v1 p3;
   } tvals [1];
} stores_loop4_tvals_t;

typedef struct
{
   __vptr_int16 dst;
   __vptr_uint8 out;
   __vptr_int16 src;
   unsigned int n;
   int lo;
   stores_loop3_tvals_t loop3;
   stores_loop4_tvals_t loop4;
} stores_tvals_t;

__attribute__((section(".zelt_parameter_block")))
__attribute__((aligned(__ALIGNOF__(int))))
uint16_t __pblock_stores[ __PBLOCK_SIZE(stores_tvals_t) ];

extern "C" unsigned int stores_param_count(void)
{
   return __PBLOCK_SIZE(stores_tvals_t);
}

extern "C" unsigned int stores_init(
   __vptr_int16 dst,
   __vptr_uint8 out,
   __vptr_int16 src,
   unsigned int n,
   int lo,
   unsigned short pblock[])
{
   stores_tvals_t* tvals = (stores_tvals_t*)pblock;

   tvals->dst = dst;
   tvals->out = out;
   tvals->src = src;
   tvals->n = n;
   tvals->lo = lo;

   // loop 3
   tvals->loop3.tvals[0].p0 = (uchar *)src+8;
   tvals->loop3.tvals[0].p1 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop3.tvals[0].p2 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   tvals->loop3.tvals[0].p3 = SA_init<uint8_t, 1, TRANSPOSE_OFF>::apply(1, 2/1, n, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop3.tvals[0].p4 = SA_init<uint8_t, 4, TRANSPOSE_OFF>::apply(4, 2/1, n, 0/1, 1, 0/1, 1, 0/1, 1, 0/1, 1);
   tvals->loop3.tvals[0].p5 = SA_init<int16_t, 1, TRANSPOSE_OFF>::apply(1, 16/2, n, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);
   // loop 4
   tvals->loop4.tvals[0].p0 = (uchar *)src+8;
   tvals->loop4.tvals[0].p1 = (char *)(((unsigned int)(dst)) | 0x300000);
   tvals->loop4.tvals[0].p2 = (char *)(((unsigned int)((uchar *)dst+2)) | 0x500000);
   tvals->loop4.tvals[0].p3 = SE_init<int16_t, zelt_load<int16_t, npt>, TRANSPOSE_OFF>::apply(((8) * (n)), 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);

   return __PBLOCK_SIZE(stores_tvals_t);
}

extern "C" void stores_update(
   __vptr_int16 dst,
   unsigned short pblock[])
{
   stores_tvals_t* tvals = (stores_tvals_t*)pblock;

   __vptr_uint8 out = tvals->out;
   __vptr_int16 src = tvals->src;
   unsigned int n = tvals->n;
   int lo = tvals->lo;

   tvals->dst = dst;

   // loop 3
   // loop 4
   tvals->loop4.tvals[0].p1 = (char *)(((unsigned int)(dst)) | 0x300000);
   tvals->loop4.tvals[0].p2 = (char *)(((unsigned int)((uchar *)dst+2)) | 0x500000);
}

extern "C" void stores_vloops(
   unsigned short pblock[])
{
   stores_tvals_t* tvals = (stores_tvals_t*)pblock;

   __vptr_int16 dst = tvals->dst;
   __vptr_uint8 out = tvals->out;
   __vptr_int16 src = tvals->src;
   unsigned int n = tvals->n;
   int lo = tvals->lo;

   __agen A;
   __agen B;
   __vector Vtemp0;
   __vector Vtemp1;
   __vector Vtemp2;
   __vector Vtemp3;
   __vector Vtemp4;
   __vector Vtemp5;

   // loop 3
   {
      void* __p0 = tvals->loop3.tvals[0].p0;
      __SE_TEMPLATE_v1 __p1 = tvals->loop3.tvals[0].p1;
      __SA_TEMPLATE_v1 __p2 = tvals->loop3.tvals[0].p2;
      __SA_TEMPLATE_v1 __p3 = tvals->loop3.tvals[0].p3;
      __SA_TEMPLATE_v1 __p4 = tvals->loop3.tvals[0].p4;
      __SA_TEMPLATE_v1 __p5 = tvals->loop3.tvals[0].p5;

      int32_t i;

      A = 0;
      __SA0_OPEN(__p2);
      __SA1_OPEN(__p3);
      __SA2_OPEN(__p4);
      __SA3_OPEN(__p5);
      __SE0_OPEN((void*)src, __p1);
      __SE1_OPEN(__p0, __p1);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (i = 0; i < (int32_t)n; ++i)
      {
         __vector a;
         __vector b;
         __vector c;
         __vector d;
         __vector p;

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         zelt_load<int16_t, npt, se1adv>::SE_load(b);
         cmpgt<int32_t>::apply(p, a, b);
         zelt_store<int16_t, npt, sa0>::store(a, (void*)(dst));
         Vtemp0 = a;
         round<int32_t>::apply(Vtemp0, Vtemp0, 4);
         zelt_store<uint8_t, onept, sa1adv>::store(Vtemp0, (void*)(out));
         Vtemp1 = a;
         truncate<int32_t>::apply(Vtemp1, Vtemp1, 2);
         saturate_to_width<int32_t,uint8_t,8>::apply(Vtemp1);
         zelt_store<uint8_t, ds2, sa2adv>::store(Vtemp1, (void*)(out));
         Vtemp2 = a;
         saturate_to_range<int32_t>::apply(Vtemp2, -128, 127, 0, 255);
         zelt_store<int16_t, offset_np1, sa3adv>::store(Vtemp2, (void*)(dst));
         zelt_store<int16_t, s_scatter, sa0>::store(a, (void*)(dst), p);
         Vtemp3 = b;
         saturate_to_width<int32_t,int16_t,2>::apply(Vtemp3);
         zelt_store<int16_t, p_scatter, sa0adv>::store(Vtemp3, (void*)(dst), p);
         zelt_store<int16_t, skip, nosa>::store_pred(a, (void*)((char*)dst + A), p);
         c = a;
         d = b;
         interleave_32<int32_t>::apply(c, d);
         zelt_store<int16_t, interleave, nosa>::store(c, d, (void*)((char*)dst + A));
         A += 16;
      }
      __SA3_CLOSE();
      __SA2_CLOSE();
      __SA1_CLOSE();
      __SA0_CLOSE();
      __SE1_CLOSE();
      __SE0_CLOSE();
   }
   // loop 4
   {
      void* __p0 = tvals->loop4.tvals[0].p0;
      void* restrict __p1 = tvals->loop4.tvals[0].p1;
      void* restrict __p2 = tvals->loop4.tvals[0].p2;
      __SE_TEMPLATE_v1 __p3 = tvals->loop4.tvals[0].p3;

      int32_t j;
      void* __collate_ptr_1 = (void* restrict)dst;

      B = 0;
      A = 0;
      __SE0_OPEN((void*)src, __p3);
      __SE1_OPEN(__p0, __p3);

      #pragma MUST_ITERATE(1,65535,)
      #pragma PARALLEL_LOOP
      for (j = 0; j < (int32_t)n; ++j)
      {
         __vector a;
         __vector b;
         __vector p;

         zelt_load<int16_t, npt, se0adv>::SE_load(a);
         zelt_load<int16_t, npt, se1adv>::SE_load(b);
         cmpgt<int32_t>::apply(p, a, b);
         Vtemp4 = a;
         saturate_to_width<int32_t,int16_t,8>::apply(Vtemp4);
         zelt_store<int16_t, npt, nosa>::store(Vtemp4, (void*)circ(__p1, A, 3));
         Vtemp5 = b;
         saturate_to_range<int32_t>::apply(Vtemp5, (int32_t)lo, (int32_t)lo, 100, 100);
         zelt_store<int16_t, npt, nosa>::store(Vtemp5, (void*)circ(__p2, B, 5));
         zelt_store<int16_t, collate_, nosa>::store(a, __collate_ptr_1, p);
         A += 16;
         B += 2;
      }
      __SE1_CLOSE();
      __SE0_CLOSE();
   }
}

extern "C" void stores(
   __vptr_int16 dst,
   __vptr_uint8 out,
   __vptr_int16 src,
   unsigned int n,
   int lo)
{
   stores_init(dst, out, src, n, lo, __pblock_stores);

   stores_vloops(__pblock_stores);
}

extern "C" void stores_custom(
   __vptr_int16 dst,
   __vptr_uint8 out,
   __vptr_int16 src,
   unsigned int n,
   int lo,
   unsigned short pblock[])
{
   stores_init(dst, out, src, n, lo, pblock);

   stores_vloops(pblock);
}

