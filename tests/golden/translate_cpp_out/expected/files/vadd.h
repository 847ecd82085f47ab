#ifndef _KV_vadd_h_
#define _KV_vadd_h_

/* Parameter Register Block */
extern unsigned short __pblock_vadd[12];

/* Basic Runner Function */
void vadd(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n);

/* Custom Runner Function */
void vadd_custom(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n,
   unsigned short* pblock = __pblock_vadd);

/* Parameter Block Initialization Function */
unsigned int vadd_init(
   __vptr_int16 a,
   __vptr_int16 b,
   __vptr_int16 sum,
   int n,
   unsigned short* pblock = __pblock_vadd);

/* ZELT VLOOP Execution Function */
void vadd_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_vadd ((unsigned int)12)
unsigned int vadd_param_count(void);
/***********************************************************/
#endif

