// The transpose transformation: a buffer written with .offset_np1() in one
// vector loop and read back with .npt() in a later one is transposed by the
// streaming engine instead of going through memory.  The pass marks such
// pairs of the model as transposing accesses; the back end does the rest.
#ifndef ZLC_TRANSLATE_Q9K_TRANSPOSE_H
#define ZLC_TRANSLATE_Q9K_TRANSPOSE_H

#include <cstdint>
#include <map>
#include <set>
#include <string>

class AGEN;
class PARM;
class VCMD;
class VKERNEL;

// One block of a buffer: the parameter, and the offset's text, or for a
// constant offset "$" and the number of the transpose tile it falls in.
struct BLOCK_ID {
  PARM* parm;
  std::string offset;

  // By the parameter's name, then by the offset.
  bool operator<(const BLOCK_ID& other) const;
};

// The streams that the accepted transposes of a kernel take, per vector
// loop: the address generators of the writes and the number of reads.
class RESOURCE_TRACKER {
 public:
  static constexpr size_t max_agens = 4;   // streaming address generators
  static constexpr int32_t max_loads = 2;  // streaming engines

  struct VCMD_RESOURCE_SET {
    std::set<const AGEN*> agens;
    int32_t loads = 0;
  };
  struct VCMD_ORDER {
    bool operator()(const VCMD* a, const VCMD* b) const;
  };
  using KERN_RESOURCE_SET = std::map<const VCMD*, VCMD_RESOURCE_SET, VCMD_ORDER>;

  // True when `request`, added to what is taken, stays within the limits in
  // every vector loop; it is then taken.  Otherwise nothing changes.
  bool request_resources(const KERN_RESOURCE_SET& request);

 private:
  KERN_RESOURCE_SET taken;
};

// Gives the write-then-read pairs of the kernel's buffers that the streaming
// engine can transpose the distribution value 10; off with disable:se or
// disable:transpose.
void do_transpose_transformation(VKERNEL* kernel);

#endif
