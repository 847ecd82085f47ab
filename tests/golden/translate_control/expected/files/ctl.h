#ifndef _KV_ctl_h_
#define _KV_ctl_h_

/* Parameter Register Block */
extern unsigned short __pblock_repeat_const[40];

/* Basic Runner Function */
void repeat_const(
   __vptr_int16 x,
   __vptr_int16 y,
   int n);

/* Custom Runner Function */
void repeat_const_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int repeat_const_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void repeat_const_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_repeat_const ((unsigned int)40)
unsigned int repeat_const_param_count(void);
/***********************************************************/
/* Parameter Register Block */
extern unsigned short __pblock_repeat_runtime[80];

/* Basic Runner Function */
void repeat_runtime(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w);

/* Custom Runner Function */
void repeat_runtime_custom(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int repeat_runtime_init(
   __vptr_int16 x,
   __vptr_int16 y,
   int n,
   int m,
   int w,
   unsigned short pblock[]);

/* Parameter Block Update Function */
void repeat_runtime_update(
   __vptr_int16 x,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void repeat_runtime_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_repeat_runtime ((unsigned int)80)
unsigned int repeat_runtime_param_count(void);
/***********************************************************/
/* Parameter Register Block */
extern unsigned short __pblock_early_exit[72];

/* Basic Runner Function */
void early_exit(
   __vptr_int16 x,
   int n);

/* Custom Runner Function */
void early_exit_custom(
   __vptr_int16 x,
   int n,
   unsigned short pblock[]);

/* Parameter Block Initialization Function */
unsigned int early_exit_init(
   __vptr_int16 x,
   int n,
   unsigned short pblock[]);

/* ZELT VLOOP Execution Function */
void early_exit_vloops(
   unsigned short pblock[]);

/* Parameter Register Count */
#define PARAM_SIZE_early_exit ((unsigned int)72)
unsigned int early_exit_param_count(void);
/***********************************************************/
#endif

