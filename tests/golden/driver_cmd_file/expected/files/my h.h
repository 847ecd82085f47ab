#ifndef _KV_my_h_h_
#define _KV_my_h_h_

#endif

