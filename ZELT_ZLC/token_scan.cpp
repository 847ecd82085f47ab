// Direct scanning of the plain tokens: the longest match, and a keyword
// before an identifier of the same text.
#include "ZELT_ZLC/token_scan.h"

#include <string_view>

// The generated header defines the token numbers.
#include "zeltLexer.h"

namespace {

struct FIXED_TOKEN {
  const char* text;
  uint32_t type;
};

// Every token of a fixed text.
constexpr FIXED_TOKEN fixed_tokens[] = {
    {"=", ASG}, {",", COMMA}, {"?", QUEST}, {"&&", ANDAND}, {"||", OROR}, {"==", EQ}, {"!=", NEQ},
    {"<", LESS}, {"<=", LE}, {">", GT}, {">=", GE}, {"sizeof", SIZEOF}, {"~", NOTB},
    {"!", EXCLAIM}, {"*", MULT}, {"/", DIV}, {"%", MOD}, {"+", PLUS}, {"-", MINUS}, {"<<", SHL},
    {">>", SHR}, {"&", ANDB}, {"|", ORB}, {"^", XORB}, {".", STDOT}, {"->", STREF},
    {"int", INT_TYPE}, {"unsigned", UNS_TYPE},
    {"void", T__61}, {"(", T__62}, {")", T__63}, {"__update", T__64}, {"__tscratch", T__65},
    {"__output_only", T__66}, {"char", T__67}, {"short", T__68}, {"long", T__69},
    {"float", T__70}, {"double", T__71}, {"signed", T__72}, {"[", T__73}, {"]", T__74},
    {"{", T__75}, {"}", T__76}, {"for", T__77}, {";", T__78}, {"foreach", T__79}, {":", T__80},
    {"++", T__81}, {"+=", T__82}, {"_HISTOGRAM", T__83}, {"_LOOKUP", T__84}, {"_EXPAND", T__85},
    {"_COLLATE", T__86}, {"__vector", T__87}, {"__vector_int32", T__88},
    {"__vector_uint32", T__89}, {"__agen", T__90}, {"expand", T__91}, {"npt", T__92},
    {"onept", T__93}, {"circ2", T__94}, {"ds2", T__95}, {"us2", T__96}, {"deinterleave", T__97},
    {"dist", T__98}, {"nbits", T__99}, {"hist_update", T__100}, {"lookup", T__101},
    {"weight_load", T__102}, {"collate", T__103}, {"interleave", T__104},
    {"offset_np1", T__105}, {"s_scatter", T__106}, {"p_scatter", T__107}, {"skip", T__108},
    {"table_npt", T__109}, {"table_skip", T__110}, {"predicate", T__111}, {"CIRC_1K", T__112},
    {"CIRC_2K", T__113}, {"CIRC_4K", T__114}, {"CIRC_8K", T__115}, {"CIRC_16K", T__116},
    {"CIRC_32K", T__117}, {"round", T__118}, {"truncate", T__119}, {"saturate", T__120},
    {"if", T__121}, {"goto", T__122}, {"last", T__123}, {"hi", T__124}, {"abs", T__125},
    {"min", T__126}, {"max", T__127}, {"minf", T__128}, {"maxf", T__129}, {"pack", T__130},
    {"unpack", T__131}, {"apply_sign", T__132}, {"count_bits", T__133},
    {"reverse_bits", T__134}, {"transpose_bits", T__135}, {"binlog", T__136},
    {"leading_bit", T__137}, {"interleave_bits", T__138}, {"deinterleave_bits", T__139},
    {"jus16", T__140}, {"select", T__141}, {"-=", T__142}, {"*=", T__143}, {"&=", T__144},
    {"|=", T__145}, {"^=", T__146}, {"clear", T__147}, {"addsub", T__148}, {"minmax", T__149},
    {"swap", T__150}, {"interleave2", T__151}, {"deinterleave2", T__152},
    {"interleave4", T__153}, {"print", T__154},
};

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$';
}
bool is_digit(char c) { return c >= '0' && c <= '9'; }

// What may follow the digits of an integer that is then more than plain
// digits: a fraction, an exponent, or a float or integer suffix.
bool continues_number(char c) {
  switch (c) {
    case '.': case 'e': case 'E': case 'f': case 'F': case 'd': case 'D':
    case 'u': case 'U': case 'l': case 'L':
      return true;
    default:
      return false;
  }
}

// The fixed tokens by text: signs of one and of two characters in arrays,
// words in a hash table with open addressing.
class FIXED_TABLE {
 public:
  FIXED_TABLE() {
    for (const FIXED_TOKEN& token : fixed_tokens) {
      const std::string_view text(token.text);
      const auto type = static_cast<uint8_t>(token.type);
      if (is_letter(text[0])) {
        size_t slot = hash(text) & (word_slots - 1);
        while (words[slot].type != 0) slot = (slot + 1) & (word_slots - 1);
        words[slot] = {token.text, static_cast<uint8_t>(text.size()), type};
      } else if (text.size() == 1) {
        single[static_cast<unsigned char>(text[0])] = type;
      } else {
        pair[static_cast<unsigned char>(text[0])][static_cast<unsigned char>(text[1])] = type;
      }
    }
  }

  uint32_t word(std::string_view text) const {
    for (size_t slot = hash(text) & (word_slots - 1); words[slot].type != 0;
         slot = (slot + 1) & (word_slots - 1))
      if (words[slot].length == text.size() && text.compare(0, text.size(), words[slot].text) == 0)
        return words[slot].type;
    return 0;
  }
  uint32_t sign(unsigned char first) const { return single[first]; }
  uint32_t sign(unsigned char first, unsigned char second) const {
    return first < 128 && second < 128 ? pair[first][second] : 0;
  }

 private:
  struct SLOT {
    const char* text = nullptr;
    uint8_t length = 0;
    uint8_t type = 0;
  };
  static constexpr size_t word_slots = 512;

  static size_t hash(std::string_view text) {
    uint32_t h = 2166136261u;
    for (char c : text) h = (h ^ static_cast<unsigned char>(c)) * 16777619u;
    return h;
  }

  uint8_t single[256] = {};
  uint8_t pair[128][128] = {};
  SLOT words[word_slots];
};

const FIXED_TABLE& fixed() {
  static const FIXED_TABLE table;
  return table;
}

SCANNED_TOKEN word(const char* at, const char* end) {
  const char* stop = at + 1;
  while (stop < end && (is_letter(*stop) || is_digit(*stop))) ++stop;
  const std::string_view text(at, static_cast<size_t>(stop - at));
  const uint32_t keyword = fixed().word(text);
  return {keyword != 0 ? keyword : IDENTIFIER, text.size(), false};
}

SCANNED_TOKEN number(const char* at, const char* end) {
  const char* stop = at + 1;
  if (*at != '0')
    while (stop < end && is_digit(*stop)) ++stop;
  if (stop < end && (continues_number(*stop) || is_digit(*stop) || *stop == 'x' || *stop == 'X'))
    return {};
  return {INT_LITERAL, static_cast<size_t>(stop - at), false};
}

// "/*" up to the first "*/", or "//" up to a line feed, with at most a
// carriage return before it; unterminated, it is the lexer's error.
SCANNED_TOKEN comment(const char* at, const char* end) {
  if (at[1] == '*') {
    for (const char* p = at + 2; p + 1 < end; ++p)
      if (p[0] == '*' && p[1] == '/') return {COMMENT, static_cast<size_t>(p + 2 - at), true};
    return {};
  }
  const char* p = at + 2;
  while (p < end && *p != '\n' && *p != '\r') ++p;
  if (p < end && *p == '\r') ++p;
  if (p < end && *p == '\n') return {LINE_COMMENT, static_cast<size_t>(p + 1 - at), true};
  return {};
}

}  // namespace

SCANNED_TOKEN scan_token(const char* at, const char* end) {
  const char c = *at;
  if (is_letter(c)) return word(at, end);
  if (is_digit(c)) return number(at, end);
  const bool two = at + 1 < end;
  if (c == '/' && two && (at[1] == '*' || at[1] == '/')) return comment(at, end);
  if (c == '.' && two && is_digit(at[1])) return {};  // a floating-point literal
  if (two)
    if (const uint32_t type = fixed().sign(static_cast<unsigned char>(c), static_cast<unsigned char>(at[1])))
      return {type, 2, false};
  const uint32_t type = fixed().sign(static_cast<unsigned char>(c));
  return {type, type != 0 ? size_t{1} : size_t{0}, false};
}
