#ifndef _KV_ops_h_
#define _KV_ops_h_

/* Parameter Register Block */
extern unsigned short __pblock_unary_binary[10];

/* Basic Runner Function */
void unary_binary(
   __vptr_int16 x,
   __vptr_int16 y,
   int n);

/* Custom Runner Function */
void unary_binary_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int unary_binary_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void unary_binary_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_unary_binary ((unsigned int)10)
unsigned int unary_binary_param_count(void);
/***********************************************************/
/* Parameter Register Block */
extern unsigned short __pblock_three_sources[16];

/* Basic Runner Function */
void three_sources(
   __vptr_int16 x,
   __vptr_int16 y,
   int n);

/* Custom Runner Function */
void three_sources_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int three_sources_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void three_sources_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_three_sources ((unsigned int)16)
unsigned int three_sources_param_count(void);
/***********************************************************/
/* Parameter Register Block */
extern unsigned short __pblock_pairs[16];

/* Basic Runner Function */
void pairs(
   __vptr_int16 x,
   __vptr_int16 y,
   int n);

/* Custom Runner Function */
void pairs_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int pairs_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void pairs_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_pairs ((unsigned int)16)
unsigned int pairs_param_count(void);
/***********************************************************/
#endif

