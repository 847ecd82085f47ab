// The preprocessor's machinery, shared by its layers: line input and token
// scanning (lexer.cpp), directives (directives.cpp), the macro table
// (macros.cpp), expansion on a stack of frames (expand.cpp) and
// conditionals (ifexpr.cpp).
#ifndef ZLC_CPP_CPP_IMPL_H
#define ZLC_CPP_CPP_IMPL_H

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "CPP/cpp.h"
#include "support/mzone.h"

// Fixed limits.
constexpr uint32_t kLineMax = 16384;       // bytes of a logical line
constexpr uint32_t kMaxLineTokens = 4096;  // tokens of a line
constexpr int kMaxFrames = 1000;           // expansion frames, frame 0 included
constexpr size_t kMaxParams = 1000;        // parameters of a macro
constexpr size_t kMaxArgs = 1000;          // arguments of a call
constexpr size_t kMaxDefTokens = 1000;     // tokens of a predefined or generated text
constexpr size_t kOperandMax = 4000;       // text made by # and ##
constexpr size_t kJoinMax = 4096;          // expanded operand of #include and #line

enum PP_TOKEN_TYPE : uint16_t {
  TK_EOL = 0,
  TK_PARAM = 1,  // value: index of the parameter
  TK_END = 2,    // end of a macro body
  TK_HASH = 3,
  TK_CAT = 4,
  TK_IDENT = 5,
  TK_INT = 7,    // no suffix
  TK_UINT = 8,   // "u", up to 32 bits
  TK_LONG = 9,   // "l", up to 31 bits
  TK_ULONG = 10, // any other suffixed integer
  TK_FLOAT = 11,
  TK_DOUBLE = 12,
  TK_LDOUBLE = 13,
  TK_STRING = 14,
  TK_CHAR = 15,
  TK_WCHAR = 16,
  TK_BADNUM = 17,
  // Operators: the value of the first character, +1 for "=", +2 doubled,
  // +3 for a shift with "=".  Single characters stand for themselves.
  TK_PLUS = 128, TK_MINUS = 131, TK_STAR = 134, TK_SLASH = 136, TK_PERCENT = 138,
  TK_AMP = 140, TK_ANDAND = 142, TK_BAR = 143, TK_OROR = 145, TK_CARET = 146,
  TK_GT = 148, TK_GE = 149, TK_SHR = 150, TK_LT = 152, TK_LE = 153, TK_SHL = 154,
  TK_ASSIGN = 156, TK_EQ = 157, TK_NOT = 158, TK_NE = 159, TK_DOT = 160,
  TK_ARROW = 161, TK_ELLIPSIS = 162,
};

struct PP_TOKEN {
  uint16_t type;
  uint32_t offset;  // start in the text that its frame reads
  uint32_t length;
  uint64_t value;   // constants: the value; TK_PARAM: the parameter index
};

// A macro definition.  The record, its name and its text live in the zone;
// only the token array is on the heap, released on #undef or redefinition.
struct MACDEF {
  MACDEF* next;
  PP_TOKEN* body;  // ends with a TK_END token
  const char* text;
  uint32_t ntokens;
  int32_t nparams;  // -1: object-like
  uint32_t name_len;
  bool standard;    // one of the four standard macros
  bool has_ops;     // its # and ## tokens were prepared by #define
  char* name;
};

// One piece of an argument: tokens [first, end) of the frame `home`.
struct PP_SEG {
  int home;
  uint32_t first;
  uint32_t end;
};

struct PP_ARG {
  uint32_t seg_first;
  uint32_t seg_count;
};

enum PP_FRAME_FLAGS : uint8_t { FR_MACRO = 2, FR_ARG = 4, FR_GEN = 8 };

// A frame reads tokens and copies its text out.  Frame 0 is the source line;
// a macro frame reads a body; an argument frame reads the argument's pieces
// in the frames that hold them.
struct PP_FRAME {
  const MACDEF* def = nullptr;
  const PP_TOKEN* tokens = nullptr;
  const char* text = nullptr;
  uint32_t write_pos = 0;  // how far the text has been copied out
  uint8_t flags = 0;
  int caller = 0;          // argument frame: the frame whose tokens it reads
  int owner = 0;           // argument frame: the macro frame of the argument
  uint32_t next_token = 0;
  uint32_t end_token = 0;  // argument frame: end of the current piece
  uint32_t seg = 0;        // argument frame: current piece in owner's segs
  uint32_t seg_end = 0;
  std::vector<PP_ARG> args;  // macro frame: the arguments of the call
  std::vector<PP_SEG> segs;
  std::string gen_text;      // generated frame: the text made by # or ##
  std::vector<PP_TOKEN> gen_tokens;
};

// The value of a #if expression and the undefined names it depends on.
struct PP_VALUE {
  uint64_t value = 0;
  bool is_unsigned = false;
  std::set<std::string> undefined_names;
};

struct PP_IF_ENTRY {
  bool else_allowed;  // no #else seen yet
  unsigned line;      // of the #if, later of the newest branch
};

enum PP_DIRECTIVE {
  PP_NONE = 0,
  PP_NULL = 1,
  PP_IF = 2,
  PP_IFDEF = 3,
  PP_IFNDEF = 4,
  PP_ELIF = 5,
  PP_ELSE = 6,
  PP_ENDIF = 7,
  PP_INCLUDE = 8,
  PP_DEFINE = 9,
  PP_UNDEF = 10,
  PP_LINE = 11,
  PP_ERROR = 12,
  PP_WARN = 13,
  PP_PRAGMA = 14,
  PP_BAD = 15,
};

class CPP_IMPL final : public CPP {
 public:
  CPP_IMPL(const char* file, FILE* fp, CPP_CLIENT_INTERFACE* client);
  ~CPP_IMPL() override;
  const char* fgets() override;
  void predefine(const char* name, const char* value) override;
  void undefine(const char* name) override;

 private:
  struct INCLUDE {
    FILE* fp;
    const char* file;
    unsigned line;
  };
  // A frame's reading state, kept while a call's arguments are looked for.
  struct FRAME_STATE {
    int index;
    const PP_TOKEN* tokens;
    const char* text;
    int caller;
    uint32_t next_token, end_token, seg, write_pos;
  };
  // The current token of a #if expression.
  struct LOOKAHEAD {
    uint16_t type = TK_EOL;
    uint64_t value = 0;
    std::string name;  // identifiers
  };

  template <typename MESSAGE>
  void pp_report(MESSAGE&& d) { cpp_error(d); }

  // cpp.cpp: output.
  void start_line();
  void pp_write(const char* text, size_t length);
  void write_pending(PP_FRAME& frame, uint32_t upto);
  void pp_report_srcloc();

  // lexer.cpp
  bool lx_fill(char* base, char* pos);
  void lx_token(char* text, uint32_t& cursor, PP_TOKEN& token, bool from_line);
  void lx_comment(char* text, uint32_t pos, bool from_line);
  void lx_literal(const char* text, PP_TOKEN& token, char quote, bool wide);
  PP_TOKEN& lx_getc();
  void scan_text(char* text, std::vector<PP_TOKEN>& out);

  // directives.cpp
  int pp_isdir(uint32_t start);
  void pp_directive(int id);
  void pp_include();
  void pp_line();
  void pp_pragma();
  bool pp_eof();
  std::string directive_rest() const;
  std::string expanded_operand(uint32_t first, size_t limit);

  // macros.cpp
  MACDEF* pp_lookup(const PP_TOKEN& token, const char* text) const;
  MACDEF* pp_lookup_name(std::string_view name) const;
  void pp_define();
  void pp_check_ops(PP_TOKEN* body, uint32_t count);
  void pp_install(std::string_view name, int nparams, std::vector<PP_TOKEN>& body,
                  std::string_view text, bool has_ops);
  MACDEF* pp_create_def(std::string_view name, std::string_view text, bool standard);
  void pp_set_body(MACDEF* def, std::vector<PP_TOKEN>& body, const char* text);
  void pp_remove_def(std::string_view name);
  void pp_undef();
  void refresh_standard(MACDEF* def);

  // expand.cpp
  const PP_TOKEN* pp_token();
  bool pp_invoke(MACDEF* def);
  bool pp_findargs(int caller, const MACDEF* def);
  const PP_TOKEN* findargs_token(int frame, const MACDEF* def, bool in_call);
  bool pp_append_line(const MACDEF* def);
  void pp_argpush(const PP_TOKEN& param);
  bool pp_string(const PP_TOKEN& hash);
  bool pp_cat(const PP_TOKEN& cat);
  PP_FRAME* push_frame(uint8_t flags);
  void push_generated(std::string text);
  int home_of(int frame) const;
  void load_segment(PP_FRAME& frame);
  bool next_segment(PP_FRAME& frame);
  uint32_t segment_text_end(const PP_FRAME& frame) const;
  void save_frame(int frame);
  void restore_frames();
  void append_raw_arg(std::string& out, int owner, uint64_t index, bool escape) const;
  void append_raw_token(std::string& out, int home, const PP_TOKEN& token, bool escape) const;

  // ifexpr.cpp
  void pp_if(int id);
  void pp_else();
  void pp_endif();
  void pp_skip();
  bool pp_condition(uint32_t first);
  void advance();
  bool pp_expr(int level, PP_VALUE& value);
  bool pp_quest(PP_VALUE& value);
  bool pp_unary(PP_VALUE& value);
  bool pp_leaf(PP_VALUE& value);
  void pp_eval(PP_VALUE& left, int op, PP_VALUE& right);

  MZONE zone;
  FILE* fp;
  unsigned out_line = 0;  // the line that the output has reached
  char* line_buf;         // the current logical line
  char* comment_buf;      // lines read while skipping a comment
  uint32_t cursor = 0;    // scan position in line_buf
  std::string out;        // the text of the current fgets result
  std::unique_ptr<PP_TOKEN[]> tokens;  // the line's tokens, one spare for the closing end
  uint32_t token_count = 0;
  // The macros by name: the newest definition, with older ones of the same
  // name behind it through `next`.  A map, so that a lookup costs the same
  // however many macros there are.
  std::unordered_map<std::string_view, MACDEF*> macros;
  std::vector<PP_FRAME> stack;
  int top = 0;
  std::vector<INCLUDE> includes;  // files being read, without the current one
  std::vector<PP_IF_ENTRY> ifstack;
  bool in_directive = false;    // output is held back
  bool pass_directive = false;  // ... except for #pragma
  bool expand = true;
  bool force_srcloc = true;
  bool at_end = false;
  MACDEF* line_macro = nullptr;
  MACDEF* file_macro = nullptr;
  std::string bad_directive;     // the word of an invalid directive
  const char* tok_text = nullptr;  // text of the frame of the last pp_token result
  std::vector<FRAME_STATE> saved_frames;
  LOOKAHEAD look;
  std::string line_text;  // the current texts of __LINE__ and __FILE__
  std::string file_text;
};

inline bool pp_white_after(const char* text, const PP_TOKEN& t) {
  switch (text[t.offset + t.length]) {
    case ' ': case '\t': case '\n': case '\v': case '\f': case '\r': return true;
    default: return false;
  }
}

#endif
