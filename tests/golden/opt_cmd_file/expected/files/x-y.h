#ifndef _KV_x_y_h_
#define _KV_x_y_h_

#endif

