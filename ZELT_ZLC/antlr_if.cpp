// The parser interface: builds the recognisers over the preprocessed text,
// keeps one input stream per file name, and turns recognition errors into
// the translator's messages.
#include "ZELT_ZLC/antlr_if.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "ZELT_ZLC/follow_stack.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "support/fname.h"

// The generated headers define token macros and must come last.
#include "zeltLexer.h"
#include "zeltParser.h"

namespace {

constexpr ANTLR3_UINT32 size_hint = 1025;
constexpr ANTLR3_UINT32 token_name_count = 155;
constexpr int max_members_listed = 5;
constexpr int lexer_context_chars = 20;

std::string stream_name(pANTLR3_INPUT_STREAM stream) {
  return stream && stream->fileName ? antlr_text(stream->fileName) : std::string();
}

void check_setup(const void* step) {
  if (!step) DIAG::zlc_antlr_interface_failure().report();
}

// " at end-of-file" or " near 'text'" for the token of an exception.
std::string near_text(pANTLR3_EXCEPTION ex) {
  auto* token = static_cast<pANTLR3_COMMON_TOKEN>(ex->token);
  if (!token) return "";
  if (token->getType(token) == ANTLR3_TOKEN_EOF) return " at end-of-file";
  return " near '" + antlr_text(token) + "'";
}

std::string token_name(ANTLR3_UINT32 type, pANTLR3_UINT8* token_names) {
  if (type == ANTLR3_TOKEN_EOF) return "end-of-file";
  if (!token_names || type >= token_name_count) return "";
  return reinterpret_cast<const char*>(token_names[type]);
}

std::string expected_text(pANTLR3_EXCEPTION ex, pANTLR3_UINT8* token_names) {
  if (ex->expecting == ANTLR3_TOKEN_EOF) return " - expected end-of-file";
  if (!token_names || ex->expecting >= token_name_count) return "";
  return " - expected " + token_name(ex->expecting, token_names);
}

// The members of an exception's expected set, in token-number order.
std::vector<ANTLR3_UINT32> expected_members(pANTLR3_EXCEPTION ex) {
  std::vector<ANTLR3_UINT32> members;
  if (!ex->expectingSet) return members;
  pANTLR3_BITSET set = antlr3BitsetLoad(ex->expectingSet);
  if (!set) return members;
  for (ANTLR3_UINT32 bit = 0; bit < set->numBits(set); ++bit)
    if (set->isMember(set, bit)) members.push_back(bit);
  set->free(set);
  return members;
}

pANTLR3_LEXER lexer_of(pANTLR3_BASE_RECOGNIZER recognizer) {
  switch (recognizer->type) {
    case ANTLR3_TYPE_LEXER:
      return static_cast<pANTLR3_LEXER>(recognizer->super);
    case ANTLR3_TYPE_PARSER: {
      auto* parser = static_cast<pANTLR3_PARSER>(recognizer->super);
      return static_cast<pANTLR3_LEXER>(parser->tstream->tokenSource->super);
    }
    default:
      return nullptr;
  }
}

}  // namespace

ANTLR_INTERFACE::ANTLR_INTERFACE(std::string& text, const char* file_name) : source_text(text) {
  current_stream = input_stream(file_name);
  check_setup(current_stream);
  lexer = zeltLexerNew(current_stream);
  check_setup(lexer);
  token_stream = antlr3CommonTokenStreamSourceNew(size_hint, TOKENSOURCE(lexer));
  check_setup(token_stream);
  tokens = std::make_unique<TOKEN_BUFFER>(text, lexer->pLexer, token_stream);
  parser = zeltParserNew(token_stream);
  check_setup(parser);
  parser->trees = &trees;
  parser->tokens = tokens.get();

  lexer->ai = this;
  pANTLR3_BASE_RECOGNIZER lexer_rec = lexer->pLexer->rec;
  pANTLR3_BASE_RECOGNIZER parser_rec = parser->pParser->rec;
  lexer_rec->reportError = reportError;
  parser_rec->reportError = reportError;
  lexer_rec->displayRecognitionError = displayRecognitionErrorLex;
  parser_rec->displayRecognitionError = displayRecognitionError;
  parser_rec->recoverFromMismatchedToken = recoverFromMismatchedToken;
  use_fast_follow_stack(parser_rec->state->following);
  tokens->serve_matches(parser_rec);
  exact_follows = parser_rec->combineFollows;
  parser_rec->combineFollows = combineFollows;
}

ANTLR_INTERFACE::~ANTLR_INTERFACE() {
  if (parser) parser->free(parser);
  if (token_stream) token_stream->free(token_stream);
  if (lexer) lexer->free(lexer);
  for (auto& [name, stream] : stream_table) stream->close(stream);
}

void ANTLR_INTERFACE::invoke() {
  parser->translation_unit(parser);
  KERNEL_OBJECTS::close();
}

void ANTLR_INTERFACE::begin_statement() {
  tokens->release_consumed();
  trees.clear();
}

std::string ANTLR_INTERFACE::rule_text(pANTLR3_COMMON_TOKEN start,
                                       pANTLR3_COMMON_TOKEN stop) const {
  return tokens->text(start, stop);
}

pANTLR3_INPUT_STREAM ANTLR_INTERFACE::input_stream(const char* file_name) {
  auto it = stream_table.find(file_name);
  if (it != stream_table.end()) return it->second;
  pANTLR3_INPUT_STREAM stream = antlr3StringStreamNew(
      reinterpret_cast<pANTLR3_UINT8>(source_text.data()), ANTLR3_ENC_8BIT,
      static_cast<ANTLR3_UINT32>(source_text.size()),
      reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>(file_name)));
  if (stream) stream_table.emplace(file_name, stream);
  return stream;
}

void ANTLR_INTERFACE::line_directive(const char* file_name, int line) {
  if (file_name) {
    const std::string name = cstr_to_fn(file_name);
    if (name != stream_name(current_stream)) {
      pANTLR3_INPUT_STREAM next = input_stream(name.c_str());
      check_setup(next);
      next->nextChar = current_stream->nextChar;
      next->currentLine = current_stream->currentLine;
      next->charPositionInLine = current_stream->charPositionInLine;
      current_stream = next;
      // Setting the stream forgets where the current token started; the
      // "#line" token itself still has to be emitted from there.
      pANTLR3_RECOGNIZER_SHARED_STATE state = lexer->pLexer->rec->state;
      const ANTLR3_MARKER token_start = state->tokenStartCharIndex;
      lexer->pLexer->setCharStream(lexer->pLexer, next);
      state->tokenStartCharIndex = token_start;
    }
  }
  current_stream->line = static_cast<ANTLR3_UINT32>(line);
}

ANTLR_INTERFACE* ANTLR_INTERFACE::current_ai(pANTLR3_BASE_RECOGNIZER recognizer) {
  pANTLR3_LEXER base = lexer_of(recognizer);
  if (!base) {
    std::fprintf(stderr, "unknown parser type\n");
    return nullptr;
  }
  return static_cast<pzeltLexer>(base->ctx)->ai;
}

void ANTLR_INTERFACE::reportError(pANTLR3_BASE_RECOGNIZER recognizer) {
  pANTLR3_RECOGNIZER_SHARED_STATE state = recognizer->state;
  if (state->exception && !state->errorRecovery) {
    state->errorRecovery = ANTLR3_TRUE;
    ++state->errorCount;
    recognizer->displayRecognitionError(recognizer, state->tokenNames);
  }
  if (state->exception) state->exception->freeEx(state->exception);
  state->exception = nullptr;
  state->error = ANTLR3_FALSE;
}

// The runtime's three ways out of a mismatch, with the runtime's own steps:
// drop one unwanted token when the expected one follows it; take a missing
// token as present when what follows fits; otherwise leave the error to the
// rule, whose handler reports it and resynchronises.  Whichever way is taken,
// the report names the token found and the one expected, so a token taken as
// present is reported as the mismatch it is.
void* ANTLR_INTERFACE::recoverFromMismatchedToken(pANTLR3_BASE_RECOGNIZER recognizer,
                                                  ANTLR3_UINT32 expected,
                                                  pANTLR3_BITSET_LIST follow) {
  pANTLR3_INT_STREAM input = static_cast<pANTLR3_PARSER>(recognizer->super)->tstream->istream;
  pANTLR3_RECOGNIZER_SHARED_STATE state = recognizer->state;
  antlr3MTExceptionNew(recognizer);
  state->exception->expecting = expected;

  if (recognizer->mismatchIsUnwantedToken(recognizer, input, expected)) {
    state->exception->type = ANTLR3_UNWANTED_TOKEN_EXCEPTION;
    state->exception->name = const_cast<char*>(ANTLR3_UNWANTED_TOKEN_EXCEPTION_NAME);
    recognizer->beginResync(recognizer);
    input->consume(input);
    recognizer->endResync(recognizer);
    recognizer->reportError(recognizer);
    void* matched = recognizer->getCurrentInputSymbol(recognizer, input);
    input->consume(input);
    state->error = ANTLR3_FALSE;
    return matched;
  }
  if (recognizer->mismatchIsMissingToken(recognizer, input, follow)) {
    void* missing =
        recognizer->getMissingSymbol(recognizer, input, state->exception, expected, follow);
    recognizer->reportError(recognizer);
    state->error = ANTLR3_FALSE;
    return missing;
  }
  state->error = ANTLR3_TRUE;
  return nullptr;
}

pANTLR3_BITSET ANTLR_INTERFACE::combineFollows(pANTLR3_BASE_RECOGNIZER recognizer,
                                               ANTLR3_BOOLEAN exact) {
  ANTLR_INTERFACE* ai = current_ai(recognizer);
  if (exact) return ai->exact_follows(recognizer, exact);
  return ai->follow_union.combine(recognizer->state->following);
}

void ANTLR_INTERFACE::displayRecognitionError(pANTLR3_BASE_RECOGNIZER recognizer,
                                              pANTLR3_UINT8* token_names) {
  pANTLR3_EXCEPTION ex = recognizer->state->exception;
  ANTLR_INTERFACE* ai = current_ai(recognizer);
  std::string file = ex->streamName ? antlr_text(ex->streamName) : std::string();
  if (file.empty() && ai) file = stream_name(ai->current_stream);
  const DIAG_SRCINFO_DATA position(file, ex->line, static_cast<unsigned>(ex->charPositionInLine));

  std::string text;
  switch (ex->type) {
    case ANTLR3_MISMATCHED_TOKEN_EXCEPTION:
    case ANTLR3_UNWANTED_TOKEN_EXCEPTION:
      text = near_text(ex) + expected_text(ex, token_names);
      break;
    case ANTLR3_MISMATCHED_SET_EXCEPTION: {
      text = near_text(ex);
      const std::vector<ANTLR3_UINT32> members = expected_members(ex);
      if (!members.empty() && members.size() <= max_members_listed) {
        text += " - expected one of: ";
        for (size_t i = 0; i < members.size(); ++i)
          text += (i ? ", " : "") + token_name(members[i], token_names);
      }
      text += near_text(ex);
      break;
    }
    case ANTLR3_MISSING_TOKEN_EXCEPTION:
      text = expected_text(ex, token_names);
      break;
    default:
      text = near_text(ex);
      break;
  }
  DIAG::zlc_syntax_error(text).set_src(&position).report();
}

void ANTLR_INTERFACE::displayRecognitionErrorLex(pANTLR3_BASE_RECOGNIZER recognizer,
                                                 pANTLR3_UINT8*) {
  pANTLR3_EXCEPTION ex = recognizer->state->exception;
  auto* lexer = static_cast<pANTLR3_LEXER>(recognizer->super);
  pANTLR3_INPUT_STREAM input = lexer->input;
  const char* begin = static_cast<const char*>(input->data);
  const char* end = begin + input->sizeBuf;

  if (ex->streamName)
    std::fprintf(stderr, "%s(", antlr_text(ex->streamName).c_str());
  else
    std::fprintf(stderr, "-unknown source-(");
  std::fprintf(stderr, "%d) ", static_cast<int>(ex->line));
  std::fprintf(stderr, ": lexer error %d :\n\t%s at offset %d, ", static_cast<int>(ex->type),
               ex->message ? static_cast<const char*>(ex->message) : "",
               ex->charPositionInLine + 1);

  const auto* at = reinterpret_cast<const char*>(ex->index);
  if (at >= begin && at < end) {
    if (std::isprint(static_cast<int>(ex->c)))
      std::fprintf(stderr, "near '%c' :\n", static_cast<int>(ex->c));
    else
      std::fprintf(stderr, "near char(%#02X) :\n", static_cast<unsigned>(ex->c));
    std::fprintf(stderr, "\t%.*s\n", static_cast<int>(std::min<ptrdiff_t>(lexer_context_chars, end - at)),
                 at);
    return;
  }
  pANTLR3_RECOGNIZER_SHARED_STATE state = recognizer->state;
  std::fprintf(stderr,
               "(end of input).\n\t This indicates a poorlyspecified lexer RULE\n\t or "
               "unterminatedinput element such as: \"STRING[\"]\n");
  std::fprintf(stderr, "\t The lexer was matching from line %d,offset %d, which\n\t ",
               static_cast<int>(state->tokenStartLine),
               static_cast<int>(state->tokenStartCharPositionInLine));
  const auto* start = reinterpret_cast<const char*>(state->tokenStartCharIndex);
  if (start >= begin && start < end)
    std::fprintf(stderr, "looks like this:\n\t\t%.*s\n",
                 static_cast<int>(std::min<ptrdiff_t>(lexer_context_chars, end - start)), start);
  else
    std::fprintf(stderr, "is also the end of the line, so youmust check your lexer rules\n");
}

DIAG_SRCINFO_DATA antlr_srcinfo(pANTLR3_COMMON_TOKEN token) {
  if (!token || !token->input || !token->input->fileName) return DIAG_SRCINFO_DATA("unknown", 0, 0);
  return DIAG_SRCINFO_DATA(antlr_text(token->input->fileName), token->getLine(token),
                           static_cast<unsigned>(token->getCharPositionInLine(token)));
}

std::string antlr_text(pANTLR3_COMMON_TOKEN token) {
  return token ? std::string(TOKEN_BUFFER::chars(token)) : std::string();
}

std::string antlr_text(pANTLR3_BASE_RECOGNIZER recognizer, pANTLR3_COMMON_TOKEN start,
                       pANTLR3_COMMON_TOKEN stop) {
  ANTLR_INTERFACE* ai = ANTLR_INTERFACE::current_ai(recognizer);
  return ai ? ai->rule_text(start, stop) : std::string();
}

std::string antlr_text(pANTLR3_STRING text) {
  if (!text || !text->chars) return "";
  return std::string(reinterpret_cast<const char*>(text->chars), text->len);
}

void antlr_report(DIAGNOSTIC& message, pANTLR3_COMMON_TOKEN token) {
  const DIAG_SRCINFO_DATA position = antlr_srcinfo(token);
  message.set_src(&position).report();
}

bool is_vreg(pANTLR3_COMMON_TOKEN token) {
  return curr_vcmd->lookup_vreg(TOKEN_BUFFER::chars(token), srcloc_internal, false) != nullptr;
}

bool is_agen(pANTLR3_COMMON_TOKEN token) {
  return curr_vcmd->lookup_agen(TOKEN_BUFFER::chars(token)) != nullptr;
}

void antlr_begin_statement(pANTLR3_BASE_RECOGNIZER recognizer) {
  if (ANTLR_INTERFACE* ai = ANTLR_INTERFACE::current_ai(recognizer)) ai->begin_statement();
}

void antlr_push(pANTLR3_BASE_RECOGNIZER recognizer, const char* rule_name) {
  if (ANTLR_INTERFACE* ai = ANTLR_INTERFACE::current_ai(recognizer)) ai->push_rule(rule_name);
}

void antlr_pop(pANTLR3_BASE_RECOGNIZER recognizer) {
  if (ANTLR_INTERFACE* ai = ANTLR_INTERFACE::current_ai(recognizer)) ai->pop_rule();
}

void antlr_line_directive(pANTLR3_LEXER lexer, const char* file_name, int line) {
  if (ANTLR_INTERFACE* ai = ANTLR_INTERFACE::current_ai(lexer->rec))
    ai->line_directive(file_name, line);
}

int antlr_parse_line_number(pANTLR3_COMMON_TOKEN number) {
  return static_cast<int>(std::strtol(antlr_text(number).c_str(), nullptr, 10));
}
