// The text of a run of tokens, gathered in one buffer.
#include "ZELT_ZLC/antlr_rule_text.h"

#include <string>

namespace {

pANTLR3_STRING text_of_range(pANTLR3_TOKEN_STREAM stream, ANTLR3_UINT32 start,
                             ANTLR3_UINT32 stop) {
  pANTLR3_TOKEN_SOURCE source = stream->getTokenSource(stream);
  if (!source) return nullptr;
  const ANTLR3_UINT32 size = stream->istream->size(stream->istream);
  if (size == 0) return source->strFactory->newRaw(source->strFactory);
  if (stop >= size) stop = size - 1;
  std::string text;
  for (ANTLR3_UINT32 i = start; i <= stop; ++i) {
    pANTLR3_COMMON_TOKEN token = stream->get(stream, i);
    if (!token) continue;
    pANTLR3_STRING piece = token->getText(token);
    if (piece && piece->chars) text.append(reinterpret_cast<const char*>(piece->chars), piece->len);
  }
  return source->strFactory->newPtr8(source->strFactory,
                                     reinterpret_cast<pANTLR3_UINT8>(text.data()),
                                     static_cast<ANTLR3_UINT32>(text.size()));
}

pANTLR3_STRING text_of_tokens(pANTLR3_TOKEN_STREAM stream, pANTLR3_COMMON_TOKEN start,
                              pANTLR3_COMMON_TOKEN stop) {
  if (!start || !stop) return nullptr;
  return text_of_range(stream, static_cast<ANTLR3_UINT32>(start->getTokenIndex(start)),
                       static_cast<ANTLR3_UINT32>(stop->getTokenIndex(stop)));
}

}  // namespace

void use_linear_rule_text(pANTLR3_TOKEN_STREAM stream) {
  stream->toStringSS = text_of_range;
  stream->toStringTT = text_of_tokens;
}
