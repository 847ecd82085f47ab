// How a result is rounded and clamped on its way to memory: the modes, the
// bounds as parameter expressions, and the parameter registers that carry
// them to the coprocessor.
#ifndef ZLC_ZELT_ZLC_ROUND_SAT_H
#define ZLC_ZELT_ZLC_ROUND_SAT_H

#include <cstdint>
#include <string>
#include <vector>

#include "DIAG/diag.h"

class PREG;
class VCMD;
class VINSTR;
class VPEXPR;

class ROUND_SAT {
 public:
  enum ROUND_MODE : int32_t { RM_NONE = 0, RM_ROUND = 1, RM_TRUNC = 2 };
  enum SAT_MODE : int32_t {
    SM_NONE = 0,
    SM_SYMM = 1,
    SM_ASYMM = 2,
    SM_SYMM32 = 3,
    SM_ASYMM32 = 4,
    SM_4PARAM = 5,
  };

  ROUND_SAT(const DIAG_SRCINFO& srcinfo, VINSTR* owner);
  ROUND_SAT(const ROUND_SAT&) = delete;
  ROUND_SAT& operator=(const ROUND_SAT&) = delete;

  // The loop of the owning instruction.
  VCMD* vcmd() const;

  void set_round(ROUND_MODE mode, const VPEXPR* expr);
  // Stores `mode` and puts `text`, the bounds as the coprocessor reads them,
  // in a parameter register of the owner's loop.
  void set_sat(SAT_MODE mode, const std::string& text);
  // Takes over the settings of the instruction that `other` belongs to.
  void copy_data(const ROUND_SAT& other);
  // Run when the loop closes: the combined parameter of both settings.
  void analyze();

  std::string format_sat_mode() const;
  std::string format_round_mode() const;

  // Parameter words that the bounds of `mode` take.
  static int32_t sat_words(SAT_MODE mode);

  DIAG_SRCINFO_DATA srcinfo;
  VINSTR* owner;
  ROUND_MODE round_mode = RM_NONE;
  SAT_MODE sat_mode = SM_NONE;
  PREG* round_sat_preg = nullptr;
  PREG* sat_preg = nullptr;
  const VPEXPR* round_value = nullptr;  // the shift amount
  std::vector<const VPEXPR*> sat_bounds;  // low, high; or four for SM_4PARAM
};

#endif
