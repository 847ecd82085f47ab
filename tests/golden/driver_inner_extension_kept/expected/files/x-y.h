#ifndef _KV_x_y_h_
#define _KV_x_y_h_

/* Parameter Register Block */
extern unsigned short __pblock_k[0];

/* Basic Runner Function */
void k(
   int n);

/* Custom Runner Function */
void k_custom(
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int k_init(
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void k_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_k ((unsigned int)0)
unsigned int k_param_count(void);
/***********************************************************/
#endif

