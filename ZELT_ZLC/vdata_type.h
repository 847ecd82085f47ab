// The element type of vector data: a width in bits and a signed flag.
#ifndef ZLC_ZELT_ZLC_VDATA_TYPE_H
#define ZLC_ZELT_ZLC_VDATA_TYPE_H

#include <cstdint>
#include <string>

struct VDATA_TYPE {
  uint32_t bits = 0;  // 0 for untyped
  bool is_signed = false;

  // "int" or "uint", the width, "_t": "int32_t", "uint8_t".
  std::string get_name() const {
    return (is_signed ? "int" : "uint") + std::to_string(bits) + "_t";
  }
  bool is_untyped() const { return bits == 0; }
  bool operator==(const VDATA_TYPE&) const = default;

  static const VDATA_TYPE untyped;
  static const VDATA_TYPE uint8;
  static const VDATA_TYPE int8;
  static const VDATA_TYPE uint16;
  static const VDATA_TYPE int16;
  static const VDATA_TYPE uint32;
  static const VDATA_TYPE int32;
};

inline constexpr VDATA_TYPE VDATA_TYPE::untyped{0, false};
inline constexpr VDATA_TYPE VDATA_TYPE::uint8{8, false};
inline constexpr VDATA_TYPE VDATA_TYPE::int8{8, true};
inline constexpr VDATA_TYPE VDATA_TYPE::uint16{16, false};
inline constexpr VDATA_TYPE VDATA_TYPE::int16{16, true};
inline constexpr VDATA_TYPE VDATA_TYPE::uint32{32, false};
inline constexpr VDATA_TYPE VDATA_TYPE::int32{32, true};

#endif
