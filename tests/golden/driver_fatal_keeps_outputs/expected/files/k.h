#ifndef _KV_k_h_
#define _KV_k_h_

