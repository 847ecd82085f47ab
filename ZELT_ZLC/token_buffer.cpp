// The parser's token stream over compact tokens of the whole text, with the
// token objects made a chunk at a time and released as statements start.
#include "ZELT_ZLC/token_buffer.h"

#include <algorithm>
#include <cassert>

#include "DIAG/diag.h"
#include "ZELT_ZLC/token_scan.h"

namespace {

ANTLR3_MARKER base_of(const std::string& text) {
  return static_cast<ANTLR3_MARKER>(reinterpret_cast<uintptr_t>(text.data()));
}

}  // namespace

TOKEN_BUFFER::TOKEN_BUFFER(const std::string& text, pANTLR3_LEXER lexer,
                           pANTLR3_COMMON_TOKEN_STREAM stream)
    : source(text), lexer(lexer) {
  pANTLR3_TOKEN_STREAM ts = stream->tstream;
  pANTLR3_INT_STREAM is = ts->istream;
  assert(ts->super == stream && is->super == ts);
  stream->super = this;
  is->consume = consume;
  is->_LA = la;
  is->mark = mark;
  is->index = index;
  is->rewind = rewind;
  is->rewindLast = rewind_last;
  is->release = release;
  is->seek = seek;
  is->size = size;
  ts->_LT = lt;
  ts->get = get;
  ts->toStringSS = to_string_ss;
  ts->toStringTT = to_string_tt;
}

TOKEN_BUFFER& TOKEN_BUFFER::of(pANTLR3_TOKEN_STREAM ts) {
  auto* common = static_cast<pANTLR3_COMMON_TOKEN_STREAM>(ts->super);
  auto* self = static_cast<TOKEN_BUFFER*>(common->super);
  if (!self->lexed) self->lex_all();
  return *self;
}

TOKEN_BUFFER& TOKEN_BUFFER::of(pANTLR3_INT_STREAM is) {
  return of(static_cast<pANTLR3_TOKEN_STREAM>(is->super));
}

// ---------------------------------------------------------------------------
// Lexing.

void TOKEN_BUFFER::lex_all() {
  lexed = true;
  pANTLR3_TOKEN_SOURCE source_of_tokens = lexer->rec->state->tokSource;
  pANTLR3_TOKEN_FACTORY factory = lexer->rec->state->tokFactory;
  // What all token objects share: the functions and string factory of a
  // lexer token, the default channel, no line start or custom data, and
  // memory that the runtime never frees.
  prototype = *factory->newToken(factory);
  prototype.channel = ANTLR3_TOKEN_DEFAULT_CHANNEL;
  prototype.lineStart = nullptr;
  prototype.custom = nullptr;
  prototype.factoryMade = ANTLR3_TRUE;
  factory->reset(factory);
  for (;;) {
    skip_white_space();
    if (scan_plain_token()) continue;
    pANTLR3_COMMON_TOKEN token = source_of_tokens->nextToken(source_of_tokens);
    if (!token || token->getType(token) == ANTLR3_TOKEN_EOF) break;
    // A token takes the stream of its factory when its memory is first
    // used; a token in reused memory keeps the stream of the first.
    record(token, factory->input);
    // Nothing holds a lexer token once it is recorded: its memory serves the
    // next one.
    factory->reset(factory);
  }
}

// Where a token starts, a character of white space is always one hidden
// token of its own; it is consumed here, the way the lexer would, without
// making the token.
void TOKEN_BUFFER::skip_white_space() {
  pANTLR3_INPUT_STREAM input = lexer->input;
  const char* next = static_cast<const char*>(input->nextChar);
  const char* end = static_cast<const char*>(input->data) + input->sizeBuf;
  const char* stop = next;
  while (stop < end && (*stop == ' ' || *stop == '\t' || *stop == '\n' || *stop == '\f' || *stop == '\r'))
    ++stop;
  advance(input, static_cast<size_t>(stop - next));
  previous_end = static_cast<uint64_t>(stop - source.data());
}

// A plain token is recorded without the lexer; a comment is passed over.
bool TOKEN_BUFFER::scan_plain_token() {
  pANTLR3_INPUT_STREAM input = lexer->input;
  const char* next = static_cast<const char*>(input->nextChar);
  const char* end = static_cast<const char*>(input->data) + input->sizeBuf;
  if (next >= end) return false;
  const SCANNED_TOKEN token = scan_token(next, end);
  if (token.type == 0) return false;
  const auto start = static_cast<uint64_t>(next - source.data());
  if (!token.hidden)
    entries.push_back({static_cast<uint32_t>(start), static_cast<uint32_t>(start + token.length - 1),
                       input->line, input->charPositionInLine, token.type,
                       stream_index(lexer->rec->state->tokFactory->input)});
  advance(input, token.length);
  previous_end = start + token.length;
  return true;
}

// Moves the stream over `count` characters as consuming them one by one
// would: a line feed starts a new line.
void TOKEN_BUFFER::advance(pANTLR3_INPUT_STREAM input, size_t count) {
  const auto* next = static_cast<const char*>(input->nextChar);
  for (const char* stop = next + count; next < stop; ++next) {
    ++input->charPositionInLine;
    if (static_cast<unsigned char>(*next) == input->newlineChar) {
      ++input->line;
      input->charPositionInLine = 0;
      input->currentLine = const_cast<char*>(next + 1);
    }
  }
  input->nextChar = const_cast<char*>(next);
}

void TOKEN_BUFFER::record(pANTLR3_COMMON_TOKEN token, pANTLR3_INPUT_STREAM input) {
  const ANTLR3_MARKER base = base_of(source);
  const auto start = static_cast<uint64_t>(token->start - base);
  const auto stop = static_cast<uint64_t>(token->stop - base);
  if (start > previous_end)
    gaps.push_back({static_cast<uint32_t>(previous_end), static_cast<uint32_t>(start - 1)});
  previous_end = stop + 1;
  if (token->channel != ANTLR3_TOKEN_DEFAULT_CHANNEL) return;
  entries.push_back({static_cast<uint32_t>(start), static_cast<uint32_t>(stop), token->line,
                     token->charPosition, token->type, stream_index(input)});
}

uint32_t TOKEN_BUFFER::stream_index(pANTLR3_INPUT_STREAM input) {
  if (!streams.empty() && streams.back() == input) return static_cast<uint32_t>(streams.size() - 1);
  auto found = std::find(streams.begin(), streams.end(), input);
  if (found == streams.end()) {
    if (streams.size() == max_streams) DIAG::zlc_antlr_interface_failure().report();
    found = streams.insert(streams.end(), input);
  }
  return static_cast<uint32_t>(found - streams.begin());
}

// ---------------------------------------------------------------------------
// Token objects.

pANTLR3_COMMON_TOKEN TOKEN_BUFFER::make_chunk(size_t number) {
  const size_t size = size_t{1} << made_bits;
  if (number >= made.size()) made.resize(number + 1);
  std::unique_ptr<ANTLR3_COMMON_TOKEN[]>& tokens = made[number];
  // A released chunk already carries the prototype's functions; a new one
  // gets them once.
  if (spare.empty()) {
    tokens.reset(new ANTLR3_COMMON_TOKEN[size]);
    std::fill_n(tokens.get(), size, prototype);
  } else {
    tokens = std::move(spare.back());
    spare.pop_back();
  }
  const ANTLR3_MARKER base = base_of(source);
  const size_t first = number << made_bits;
  for (size_t i = 0; i < size && first + i < entries.size(); ++i) {
    const ENTRY& e = entries[first + i];
    ANTLR3_COMMON_TOKEN& token = tokens[i];
    token.type = e.type;
    token.line = e.line;
    token.charPosition = e.column;
    token.input = streams[e.stream];
    token.index = static_cast<ANTLR3_MARKER>(first + i);
    token.start = base + e.start;
    token.stop = base + e.stop;
    token.textState = ANTLR3_TEXT_NONE;
    token.tokText.chars = nullptr;
  }
  return tokens.get();
}

// The previous token stays for LT(-1); the chunks wholly before it go.
void TOKEN_BUFFER::release_consumed() {
  if (p < 1) return;
  const auto keep = static_cast<size_t>(p - 1) >> made_bits;
  for (; first_made < keep && first_made < made.size(); ++first_made)
    if (made[first_made]) spare.push_back(std::move(made[first_made]));
}

void TOKEN_BUFFER::serve_matches(pANTLR3_BASE_RECOGNIZER parser) {
  runtime_match = parser->match;
  parser->match = match;
}

// As the runtime matches: the current token is the result, consumed when it
// is the one expected, which also ends error recovery.
void* TOKEN_BUFFER::match(pANTLR3_BASE_RECOGNIZER parser, ANTLR3_UINT32 type,
                          pANTLR3_BITSET_LIST follow) {
  TOKEN_BUFFER& self = of(static_cast<pANTLR3_PARSER>(parser->super)->tstream);
  const auto at = static_cast<size_t>(self.p);
  const bool at_end = at >= self.entries.size();
  const ANTLR3_UINT32 next = at_end ? ANTLR3_TOKEN_EOF : self.entries[at].type;
  if (next != type) return self.runtime_match(parser, type, follow);
  pANTLR3_COMMON_TOKEN token = self.lt(1);
  if (!at_end) ++self.p;
  parser->state->errorRecovery = ANTLR3_FALSE;
  parser->state->failed = ANTLR3_FALSE;
  return token;
}

// ---------------------------------------------------------------------------
// Texts.

std::string_view TOKEN_BUFFER::chars(pANTLR3_COMMON_TOKEN token) {
  if (token->textState == ANTLR3_TEXT_NONE && token->input && token->type != ANTLR3_TOKEN_EOF) {
    const auto* first = reinterpret_cast<const char*>(static_cast<uintptr_t>(token->start));
    const ANTLR3_MARKER length = token->stop - token->start + 1;
    return {first, length > 0 ? static_cast<size_t>(length) : 0};
  }
  pANTLR3_STRING text = token->getText(token);
  if (!text || !text->chars) return {};
  return {reinterpret_cast<const char*>(text->chars), text->len};
}

std::string TOKEN_BUFFER::text(pANTLR3_COMMON_TOKEN start, pANTLR3_COMMON_TOKEN stop) const {
  if (!start || !stop || start->type == ANTLR3_TOKEN_EOF || stop->index < start->index) return "";
  const ANTLR3_MARKER base = base_of(source);
  return text(static_cast<uint32_t>(start->start - base), static_cast<uint32_t>(stop->stop - base));
}

std::string TOKEN_BUFFER::text(uint32_t first, uint32_t last) const {
  std::string text;
  auto gap = std::lower_bound(gaps.begin(), gaps.end(), first,
                              [](const GAP& g, uint32_t offset) { return g.last < offset; });
  for (; gap != gaps.end() && gap->first <= last; ++gap) {
    if (gap->first > first) text.append(source, first, gap->first - first);
    first = std::max(first, gap->last + 1);
  }
  if (first <= last) text.append(source, first, last - first + 1);
  return text;
}

pANTLR3_STRING TOKEN_BUFFER::runtime_string(const std::string& text) const {
  pANTLR3_STRING_FACTORY factory = lexer->rec->state->tokSource->strFactory;
  return factory->newPtr(factory, reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>(text.data())),
                         static_cast<ANTLR3_UINT32>(text.size()));
}

// ---------------------------------------------------------------------------
// The operations of the runtime's token stream.

void TOKEN_BUFFER::consume(pANTLR3_INT_STREAM is) {
  TOKEN_BUFFER& self = of(is);
  if (self.p < static_cast<int64_t>(self.entries.size())) ++self.p;
}

ANTLR3_UINT32 TOKEN_BUFFER::la(pANTLR3_INT_STREAM is, ANTLR3_INT32 i) {
  return of(is).look_ahead(i);
}

ANTLR3_MARKER TOKEN_BUFFER::mark(pANTLR3_INT_STREAM is) {
  TOKEN_BUFFER& self = of(is);
  self.last_marker = self.p;
  is->lastMarker = self.p;
  return self.p;
}

ANTLR3_MARKER TOKEN_BUFFER::index(pANTLR3_INT_STREAM is) { return of(is).p; }

void TOKEN_BUFFER::rewind(pANTLR3_INT_STREAM is, ANTLR3_MARKER marker) { seek(is, marker); }

void TOKEN_BUFFER::rewind_last(pANTLR3_INT_STREAM is) { seek(is, of(is).last_marker); }

void TOKEN_BUFFER::release(pANTLR3_INT_STREAM, ANTLR3_MARKER) {}

void TOKEN_BUFFER::seek(pANTLR3_INT_STREAM is, ANTLR3_MARKER index) {
  TOKEN_BUFFER& self = of(is);
  self.p = std::clamp<int64_t>(index, 0, static_cast<int64_t>(self.entries.size()));
}

ANTLR3_UINT32 TOKEN_BUFFER::size(pANTLR3_INT_STREAM is) {
  return static_cast<ANTLR3_UINT32>(of(is).entries.size());
}

pANTLR3_COMMON_TOKEN TOKEN_BUFFER::lt(pANTLR3_TOKEN_STREAM ts, ANTLR3_INT32 k) {
  return of(ts).lt(k);
}

pANTLR3_COMMON_TOKEN TOKEN_BUFFER::get(pANTLR3_TOKEN_STREAM ts, ANTLR3_UINT32 i) {
  TOKEN_BUFFER& self = of(ts);
  return i < self.entries.size() ? self.token_at(i) : nullptr;
}

pANTLR3_STRING TOKEN_BUFFER::to_string_tt(pANTLR3_TOKEN_STREAM ts, pANTLR3_COMMON_TOKEN start,
                                          pANTLR3_COMMON_TOKEN stop) {
  TOKEN_BUFFER& self = of(ts);
  return self.runtime_string(self.text(start, stop));
}

pANTLR3_STRING TOKEN_BUFFER::to_string_ss(pANTLR3_TOKEN_STREAM ts, ANTLR3_UINT32 start,
                                          ANTLR3_UINT32 stop) {
  TOKEN_BUFFER& self = of(ts);
  const size_t count = self.entries.size();
  if (start >= count || stop < start) return self.runtime_string("");
  return self.runtime_string(
      self.text(self.entries[start].start, self.entries[std::min<size_t>(stop, count - 1)].stop));
}
