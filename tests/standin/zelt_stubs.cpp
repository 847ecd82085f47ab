// Empty definitions of everything that the stand-in run-time headers
// declare, so that a generated source links into a host program.  It is
// included ahead of the generated source (g++ -include), in that one
// translation unit only: the templates must be defined where they are
// instantiated.  Nothing here is meant to run.
#include "zelt/zelt_vm.h"

__vector operator+(__vector, __vector) { return {}; }
__vector operator-(__vector, __vector) { return {}; }
__vector operator*(__vector, __vector) { return {}; }
__vector operator&(__vector, __vector) { return {}; }
__vector operator|(__vector, __vector) { return {}; }
__vector operator^(__vector, __vector) { return {}; }
__vector operator~(__vector) { return {}; }
__vector& operator+=(__vector& v, __vector) { return v; }
__vector& operator&=(__vector& v, __vector) { return v; }
__vector& operator|=(__vector& v, __vector) { return v; }
__vector& operator<<=(__vector& v, int) { return v; }
__vector __abs(__vector) { return {}; }
__vector __min(__vector, __vector) { return {}; }
__vector __max(__vector, __vector) { return {}; }

bool __first(int) { return false; }
bool __last(int, int) { return false; }

void __se_open(int, const void*, __SE_TEMPLATE_v1) {}
void __se_close(int) {}
void __sa_open(int, __SA_TEMPLATE_v1) {}
void __sa_close(int) {}

__TSC_TYPE _tsc_gettime(void) { return 0; }
void __zelt_log_kernel_profile(const char*, __TSC_TYPE, __TSC_TYPE) {}

namespace ZELT_VM {

template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&, void*) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&, void*, __uchar64) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&, __vector&, void*) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&, __vector&) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&, void*, __vector&) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::load(__vector&) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::SE_load(__vector&) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::SE_load(__vector&, __vector&) {}
template <class T, class DIST, class TAG>
void zelt_load<T, DIST, TAG>::SE_load(__vector&, __uchar64) {}

template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store(__vector, void*) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store(__vector, __vector, void*) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store(__vector, void*, __vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store(__vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store(__vector, __vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store_pred(__vector, void*, __vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store_pred(__vector, __vector, void*, __vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store_pred(__vector, void*, __vector, __vector) {}
template <class T, class DIST, class TAG, int ELEMENTS>
void zelt_store<T, DIST, TAG, ELEMENTS>::store_pred(__vector, __vector) {}

void* circ(void* base, __agen, int) { return base; }
__uchar64 custom_dist_perm(...) { return {}; }

template <class T, class LOAD, int TRANSPOSE>
__SE_TEMPLATE_v1 SE_init<T, LOAD, TRANSPOSE>::apply(...) { return {}; }
template <class T, int NELEM, int TRANSPOSE>
__SA_TEMPLATE_v1 SA_init<T, NELEM, TRANSPOSE>::apply(...) { return {}; }

#define ZELT_STUB_APPLY(name)                                  \
  template <class T>                                           \
  template <class... V>                                        \
    requires(std::is_same_v<V, __vector> && ...)               \
  void name<T>::apply(V&...) {}
ZELT_STUB_APPLY(addh)
ZELT_STUB_APPLY(addsub)
ZELT_STUB_APPLY(shift)
ZELT_STUB_APPLY(shift_or)
ZELT_STUB_APPLY(sort2)
ZELT_STUB_APPLY(swap)
ZELT_STUB_APPLY(minsetf)
ZELT_STUB_APPLY(maxsetf)
ZELT_STUB_APPLY(cmpeq)
ZELT_STUB_APPLY(cmpgt)
ZELT_STUB_APPLY(cmpge)
ZELT_STUB_APPLY(cmplt)
ZELT_STUB_APPLY(cmple)
ZELT_STUB_APPLY(select)
ZELT_STUB_APPLY(bit_pack)
ZELT_STUB_APPLY(bit_unpack)
ZELT_STUB_APPLY(apply_sign)
ZELT_STUB_APPLY(bit_count)
ZELT_STUB_APPLY(bit_reverse)
ZELT_STUB_APPLY(bit_transpose)
ZELT_STUB_APPLY(lmbd)
ZELT_STUB_APPLY(binlog)
ZELT_STUB_APPLY(bit_interleave)
ZELT_STUB_APPLY(bit_deinterleave)
ZELT_STUB_APPLY(vshf16)
ZELT_STUB_APPLY(interleave_32)
ZELT_STUB_APPLY(deinterleave_32)
ZELT_STUB_APPLY(interleave2_32)
ZELT_STUB_APPLY(deinterleave2_32)
ZELT_STUB_APPLY(interleave4_32)
ZELT_STUB_APPLY(round)
#undef ZELT_STUB_APPLY

template <class T>
void truncate<T>::apply(__vector&, __vector, uint32_t) {}
template <class T>
void round<T>::apply(__vector&, __vector, uint32_t) {}

template <class T>
void print<T>::apply(__vector) {}
template <class T>
void print<T>::apply(__vector, const char*) {}

template <class FROM, class TO, int WIDTH>
void saturate_to_width<FROM, TO, WIDTH>::apply(__vector&) {}

template <class FROM>
void saturate_to_range<FROM>::apply(__vector&, int32_t, int32_t) {}
template <class FROM>
void saturate_to_range<FROM>::apply(__vector&, int32_t, int32_t, int32_t, int32_t) {}

}  // namespace ZELT_VM
