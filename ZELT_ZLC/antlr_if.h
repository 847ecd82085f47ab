// The binding of the generated lexer and parser to the translator: input
// streams per file name for "#line", the error hooks, and the helpers that
// the grammar's actions and predicates call.
#ifndef ZLC_ZELT_ZLC_ANTLR_IF_H
#define ZLC_ZELT_ZLC_ANTLR_IF_H

#include <antlr3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/expr_tree.h"
#include "ZELT_ZLC/follow_union.h"
#include "ZELT_ZLC/token_buffer.h"

struct zeltLexer_Ctx_struct;
struct zeltParser_Ctx_struct;

class ANTLR_INTERFACE {
 public:
  // Builds stream, lexer, token stream and parser over `text`, which must
  // outlive this object; `file_name` names the text until a "#line" says
  // otherwise.
  ANTLR_INTERFACE(std::string& text, const char* file_name);
  ~ANTLR_INTERFACE();
  ANTLR_INTERFACE(const ANTLR_INTERFACE&) = delete;
  ANTLR_INTERFACE& operator=(const ANTLR_INTERFACE&) = delete;

  // Parses the whole text; the kernels are built as a side effect.
  void invoke();

  // The stream of that name, made on first use over the same text.
  pANTLR3_INPUT_STREAM input_stream(const char* file_name);

  // Switches the lexer to the stream of `file_name` (when given and new) at
  // the current read position, and sets the current line to `line`.
  void line_directive(const char* file_name, int line);

  // A statement starts: the tokens before it and the trees of earlier
  // statements are no longer needed.
  void begin_statement();
  // The source text of the tokens from `start` to `stop`.
  std::string rule_text(pANTLR3_COMMON_TOKEN start, pANTLR3_COMMON_TOKEN stop) const;

  void push_rule(const char* name) { rule_stack.push_back(name); }
  void pop_rule() {
    if (!rule_stack.empty()) rule_stack.pop_back();
  }

  // The hooks installed in the recognisers.
  static void reportError(pANTLR3_BASE_RECOGNIZER recognizer);
  static void displayRecognitionError(pANTLR3_BASE_RECOGNIZER recognizer,
                                      pANTLR3_UINT8* token_names);
  static void displayRecognitionErrorLex(pANTLR3_BASE_RECOGNIZER recognizer,
                                         pANTLR3_UINT8* token_names);
  // The parser's recovery from a token other than the one expected.
  static void* recoverFromMismatchedToken(pANTLR3_BASE_RECOGNIZER recognizer,
                                          ANTLR3_UINT32 expected, pANTLR3_BITSET_LIST follow);
  // The union of the follow stack for error recovery, kept between calls.
  static pANTLR3_BITSET combineFollows(pANTLR3_BASE_RECOGNIZER recognizer, ANTLR3_BOOLEAN exact);

  // The interface that owns a lexer or parser recogniser, or null.
  static ANTLR_INTERFACE* current_ai(pANTLR3_BASE_RECOGNIZER recognizer);

 private:
  std::string& source_text;
  pANTLR3_INPUT_STREAM current_stream = nullptr;
  zeltLexer_Ctx_struct* lexer = nullptr;
  pANTLR3_COMMON_TOKEN_STREAM token_stream = nullptr;
  zeltParser_Ctx_struct* parser = nullptr;
  std::map<std::string, pANTLR3_INPUT_STREAM> stream_table;
  std::vector<const char*> rule_stack;
  std::unique_ptr<TOKEN_BUFFER> tokens;
  EXPR_TREES trees;
  FOLLOW_UNION follow_union;
  pANTLR3_BITSET (*exact_follows)(pANTLR3_BASE_RECOGNIZER, ANTLR3_BOOLEAN) = nullptr;
};

// The position of a token: its stream's name, line and column; "unknown",
// 0, 0 without a token or a stream name.
DIAG_SRCINFO_DATA antlr_srcinfo(pANTLR3_COMMON_TOKEN token);

// Texts of tokens and of rules; a missing text is empty.
std::string antlr_text(pANTLR3_COMMON_TOKEN token);
std::string antlr_text(pANTLR3_STRING text);
// The text of a rule that matched the tokens from `start` to `stop`.
std::string antlr_text(pANTLR3_BASE_RECOGNIZER recognizer, pANTLR3_COMMON_TOKEN start,
                       pANTLR3_COMMON_TOKEN stop);

// Reports a diagnostic at a token.
void antlr_report(DIAGNOSTIC& message, pANTLR3_COMMON_TOKEN token);

// Predicates of the grammar: the token names a vector register, or an
// address generator, visible from the current block.
bool is_vreg(pANTLR3_COMMON_TOKEN token);
bool is_agen(pANTLR3_COMMON_TOKEN token);

// A statement starts.
void antlr_begin_statement(pANTLR3_BASE_RECOGNIZER recognizer);

// The rule stack of the parser's interface.
void antlr_push(pANTLR3_BASE_RECOGNIZER recognizer, const char* rule_name);
void antlr_pop(pANTLR3_BASE_RECOGNIZER recognizer);

// The "#line" command, from the lexer's action.
void antlr_line_directive(pANTLR3_LEXER lexer, const char* file_name, int line);
int antlr_parse_line_number(pANTLR3_COMMON_TOKEN number);

#endif
