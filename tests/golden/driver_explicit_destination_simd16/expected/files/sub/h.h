#ifndef _KV_h_h_
#define _KV_h_h_

#endif

