// Address generator tables.
#include "ZELT_ZLC/agen.h"

AGEN* AGEN_TABLE::new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name) {
  AGEN* agen = new_sym(srcinfo, name, -1);
  if (by_name.size() > max_agens)
    DIAG::zlc_illegal_agen_cnt(max_agens, name).set_src(&srcinfo).report();
  return agen;
}
