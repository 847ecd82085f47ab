// Stand-in for the target's vector-machine header: the load, store,
// operation, rounding, saturation and stream configuration templates that
// generated loop bodies call.  Declarations only.
#ifndef ZLC_STANDIN_ZELT_VM_H
#define ZLC_STANDIN_ZELT_VM_H

#include <type_traits>

#include "zelt/zelt.h"

namespace ZELT_VM {

// Distributions of loads and stores, and the stream tags of an access.
struct npt {};
struct onept {};
struct circ2 {};
struct ds2 {};
struct us2 {};
struct deinterleave {};
struct custom {};
struct nbits {};
struct expand {};
struct transpose {};
struct interleave {};
struct offset_np1 {};
struct collate_ {};
struct s_scatter {};
struct p_scatter {};
struct skip {};
struct table_npt {};
struct lut_pdda {};
struct lut_offset_np1 {};

struct nosa {};
#define ZELT_VM_STREAM_TAGS(n) \
  struct se##n {};             \
  struct se##n##adv {};        \
  struct sa##n {};             \
  struct sa##n##adv {};
ZELT_VM_STREAM_TAGS(0)
ZELT_VM_STREAM_TAGS(1)
ZELT_VM_STREAM_TAGS(2)
ZELT_VM_STREAM_TAGS(3)
#undef ZELT_VM_STREAM_TAGS

enum { TRANSPOSE_OFF, TRANSPOSE_ON };

template <class T, class DIST, class TAG = nosa>
struct zelt_load {
  static void load(__vector& dst, void* addr);
  static void load(__vector& dst, void* addr, __uchar64 perm);
  static void load(__vector& dst, __vector& dst2, void* addr);
  static void load(__vector& dst, __vector& dst2);
  static void load(__vector& dst, void* collate_ptr, __vector& flags);
  static void load(__vector& dst);
  static void SE_load(__vector& dst);
  static void SE_load(__vector& dst, __vector& dst2);
  static void SE_load(__vector& dst, __uchar64 perm);
};

template <class T, class DIST, class TAG = nosa, int ELEMENTS = 0>
struct zelt_store {
  static void store(__vector src, void* addr);
  static void store(__vector src, __vector src2, void* addr);
  // Also the collated form: the pointer and the predicate.
  static void store(__vector src, void* addr, __vector scatter);
  static void store(__vector src);
  static void store(__vector src, __vector src2);
  static void store_pred(__vector src, void* addr, __vector pred);
  static void store_pred(__vector src, __vector src2, void* addr, __vector pred);
  static void store_pred(__vector src, void* addr, __vector scatter, __vector pred);
  static void store_pred(__vector src, __vector pred);
};

void* circ(void* base, __agen agen, int code);
__uchar64 custom_dist_perm(...);

template <class T, class LOAD, int TRANSPOSE>
struct SE_init {
  static __SE_TEMPLATE_v1 apply(...);
};

template <class T, int NELEM, int TRANSPOSE>
struct SA_init {
  static __SA_TEMPLATE_v1 apply(...);
};

// Operation templates take vector registers only, by reference.
#define ZELT_VM_APPLY(name)                                         \
  template <class T>                                                \
  struct name {                                                     \
    template <class... V>                                           \
      requires(std::is_same_v<V, __vector> && ...)                  \
    static void apply(V&... regs);                                  \
  };
ZELT_VM_APPLY(addh)
ZELT_VM_APPLY(addsub)
ZELT_VM_APPLY(shift)
ZELT_VM_APPLY(shift_or)
ZELT_VM_APPLY(sort2)
ZELT_VM_APPLY(swap)
ZELT_VM_APPLY(minsetf)
ZELT_VM_APPLY(maxsetf)
ZELT_VM_APPLY(cmpeq)
ZELT_VM_APPLY(cmpgt)
ZELT_VM_APPLY(cmpge)
ZELT_VM_APPLY(cmplt)
ZELT_VM_APPLY(cmple)
ZELT_VM_APPLY(select)
ZELT_VM_APPLY(bit_pack)
ZELT_VM_APPLY(bit_unpack)
ZELT_VM_APPLY(apply_sign)
ZELT_VM_APPLY(bit_count)
ZELT_VM_APPLY(bit_reverse)
ZELT_VM_APPLY(bit_transpose)
ZELT_VM_APPLY(lmbd)
ZELT_VM_APPLY(binlog)
ZELT_VM_APPLY(bit_interleave)
ZELT_VM_APPLY(bit_deinterleave)
ZELT_VM_APPLY(vshf16)
ZELT_VM_APPLY(interleave_32)
ZELT_VM_APPLY(deinterleave_32)
ZELT_VM_APPLY(interleave2_32)
ZELT_VM_APPLY(deinterleave2_32)
ZELT_VM_APPLY(interleave4_32)
#undef ZELT_VM_APPLY

template <class T>
struct truncate {
  static void apply(__vector& dst, __vector src, uint32_t bits);
};

// The vector operation and the rounding of a result share this name.
template <class T>
struct round {
  template <class... V>
    requires(std::is_same_v<V, __vector> && ...)
  static void apply(V&... regs);
  static void apply(__vector& dst, __vector src, uint32_t bits);
};

template <class T>
struct print {
  static void apply(__vector v);
  static void apply(__vector v, const char* text);
};

template <class FROM, class TO, int WIDTH>
struct saturate_to_width {
  static void apply(__vector& v);
};

template <class FROM>
struct saturate_to_range {
  static void apply(__vector& v, int32_t lo, int32_t hi);
  static void apply(__vector& v, int32_t lo_test, int32_t lo_set, int32_t hi_test,
                    int32_t hi_set);
};

// Tables in the target's table memory.  ID is lut_id<slot, bytes>: the
// table's slot and its share of the table memory.  These are defined, so
// that generated sources also link.
template <int SLOT, int BYTES>
struct lut_id {};

template <class T, int OBJS, int PTS, int DUP, class ID>
struct zelt_table {
  static uint32_t config() { return 0; }
  static uint32_t copy_in_config() { return 0; }
  static uint32_t copy_out_config() { return 0; }
  static __SE_TEMPLATE_v1 copy_in_SE_config(uint32_t) { return {}; }
  static __SA_TEMPLATE_v1 copy_out_SA_config(uint32_t) { return {}; }
  static void open(int, uint32_t) {}
  // Lookup and histogram tables stream through an engine or a generator;
  // scatter tables copy a size computed in the loop.
  static void copy_table_in(void*, uint32_t, uint32_t, __SE_TEMPLATE_v1) {}
  static void copy_table_in(void*, uint32_t, uint32_t) {}
  static void copy_table_out(void*, uint32_t, uint32_t, __SA_TEMPLATE_v1) {}
  static void copy_table_out(void*, uint32_t, uint32_t) {}
};

template <class T, int OBJS, int PTS, int DUP, class ID>
struct zelt_lookup : zelt_table<T, OBJS, PTS, DUP, ID> {
  static void lookup(__vector& dst, __vector index) { dst = index; }
};

template <class T, int OBJS, int PTS, int DUP, class ID>
struct zelt_hist : zelt_table<T, OBJS, PTS, DUP, ID> {
  static void hist_update(__vector& dst, __vector data) { dst = data; }
  static void whist_update(__vector& dst, __vector data, __vector weight) {
    dst = __vector(data.s0 + weight.s0);
  }
};

template <class T, int OBJS, int PTS, int DUP, class ID>
struct zelt_scatter : zelt_table<T, OBJS, PTS, DUP, ID> {
  static void scatter(__vector, long long, __vector) {}
  static void offset_np1(__vector, long long) {}
  static int32_t max_index(__vector offsets) { return offsets.s0; }
  static int32_t scatter_size(uint32_t max_agen, int32_t max_index, uint32_t max_offset) {
    return static_cast<int32_t>(max_agen + max_offset) + max_index;
  }
};

// The pointer of a streaming address generator, for table writes.
template <class T, class TAG>
struct SAptr {
  explicit SAptr(const void* base) : base(base) {}
  long long addr() const { return reinterpret_cast<long long>(base); }
  const void* base;
};

// Extents of a scatter table, computed by the init function.
template <class... V>
uint32_t max8(V... values) {
  uint32_t most = 0;
  ((most = static_cast<uint32_t>(values) > most ? static_cast<uint32_t>(values) : most), ...);
  return most;
}

// The farthest a generator gets: (count - 1) * stride over each level.
inline uint32_t max_agen() { return 0; }
template <class C, class S, class... R>
uint32_t max_agen(C count, S stride, R... rest) {
  return (static_cast<uint32_t>(count) - 1) * static_cast<uint32_t>(stride) + max_agen(rest...);
}

}  // namespace ZELT_VM

#endif
