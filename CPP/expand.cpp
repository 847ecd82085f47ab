// Macro expansion on a stack of frames.  A call pushes a frame that reads
// the macro's tokens; an argument is a frame that re-reads the caller's
// tokens in place.  Text is copied out only at the leaves, so that spacing
// survives wherever nothing was replaced.
#include <algorithm>
#include <cstring>

#include "CPP/cpp_impl.h"

namespace {

void trim_right(std::string& s) {
  while (!s.empty() && std::strchr(" \t\n\v\f\r", s.back())) s.pop_back();
}

}  // namespace

int CPP_IMPL::home_of(int frame) const {
  return (stack[frame].flags & FR_ARG) ? stack[frame].caller : frame;
}

PP_FRAME* CPP_IMPL::push_frame(uint8_t flags) {
  if (top + 1 >= kMaxFrames) {
    pp_report(DIAG::cpp_max_mac_nest());
    return nullptr;
  }
  PP_FRAME& f = stack[++top];
  f.def = nullptr;
  f.flags = flags;
  f.next_token = 0;
  f.write_pos = 0;
  f.args.clear();
  f.segs.clear();
  return &f;
}

// A frame reading a text made by # or ##; its tokens are looked at again.
void CPP_IMPL::push_generated(std::string text) {
  PP_FRAME* g = push_frame(FR_MACRO | FR_GEN);
  if (!g) return;
  g->gen_text.assign(text);
  g->gen_text.push_back('\0');  // room for the scanner to end a comment
  scan_text(g->gen_text.data(), g->gen_tokens);
  g->tokens = g->gen_tokens.data();
  g->text = g->gen_text.c_str();
}

void CPP_IMPL::load_segment(PP_FRAME& frame) {
  const PP_SEG& s = stack[frame.owner].segs[frame.seg];
  frame.caller = s.home;
  frame.tokens = stack[s.home].tokens;
  frame.text = stack[s.home].text;
  frame.next_token = s.first;
  frame.end_token = s.end;
  frame.write_pos = frame.tokens[s.first].offset;
}

bool CPP_IMPL::next_segment(PP_FRAME& frame) {
  if (frame.seg + 1 >= frame.seg_end) return false;
  ++frame.seg;
  load_segment(frame);
  return true;
}

uint32_t CPP_IMPL::segment_text_end(const PP_FRAME& frame) const {
  const PP_TOKEN& last = frame.tokens[frame.end_token - 1];
  return last.offset + last.length;
}

// The next token for the caller, with macros expanded when `expand` is set.
// Text before it has been written out; the token itself is written later.
const PP_TOKEN* CPP_IMPL::pp_token() {
  for (;;) {
    PP_FRAME& fr = stack[top];
    if (fr.flags & FR_ARG) {
      if (fr.next_token == fr.end_token) {
        write_pending(fr, segment_text_end(fr));
        if (!next_segment(fr)) --top;
        continue;
      }
    } else if (top == 0 && fr.next_token == token_count) {
      lx_getc();
    }
    const PP_TOKEN& t = fr.tokens[fr.next_token];
    tok_text = fr.text;
    switch (t.type) {
      case TK_EOL:
        write_pending(fr, t.offset);
        return &t;
      case TK_PARAM:
        write_pending(fr, t.offset);
        pp_argpush(t);
        continue;
      case TK_END:
        write_pending(fr, t.offset);
        --top;
        continue;
      case TK_HASH:
        if (pp_string(t)) continue;
        break;
      case TK_CAT:
        if (pp_cat(t)) continue;
        break;
      case TK_IDENT:
        if (!expand) break;
        if (MACDEF* def = pp_lookup(t, fr.text)) {
          write_pending(fr, t.offset);
          if (pp_invoke(def)) continue;
        }
        break;
      default:
        break;
    }
    ++fr.next_token;
    return &t;
  }
}

// Expands the macro named by the current token, unless it is being expanded
// already (up to the nearest argument frame) or is a function-like macro
// without a call.  On false nothing has changed.
bool CPP_IMPL::pp_invoke(MACDEF* def) {
  for (int f = top; f > 0 && !(stack[f].flags & FR_ARG); --f)
    if (stack[f].def == def) return false;
  if (def->standard && (def == line_macro || def == file_macro)) refresh_standard(def);
  const int caller = top;
  PP_FRAME& cur = stack[caller];
  const PP_TOKEN& name = cur.tokens[cur.next_token];
  const uint32_t saved_next = cur.next_token;
  const uint32_t saved_write = cur.write_pos;
  ++cur.next_token;
  cur.write_pos = name.offset + name.length;
  PP_FRAME* frame = push_frame(FR_MACRO);
  if (frame) {
    frame->def = def;
    frame->tokens = def->body;
    frame->text = def->text;
    if (def->nparams >= 0 && !pp_findargs(caller, def)) {
      --top;
      frame = nullptr;
    }
  }
  if (!frame) {
    cur.next_token = saved_next;
    cur.write_pos = saved_write;
  }
  return frame != nullptr;
}

void CPP_IMPL::save_frame(int frame) {
  const PP_FRAME& f = stack[frame];
  saved_frames.push_back(
      {frame, f.tokens, f.text, f.caller, f.next_token, f.end_token, f.seg, f.write_pos});
}

void CPP_IMPL::restore_frames() {
  for (auto s = saved_frames.rbegin(); s != saved_frames.rend(); ++s) {
    PP_FRAME& f = stack[s->index];
    f.tokens = s->tokens;
    f.text = s->text;
    f.caller = s->caller;
    f.next_token = s->next_token;
    f.end_token = s->end_token;
    f.seg = s->seg;
    f.write_pos = s->write_pos;
  }
}

// Drops the end token of the source line and reads the next line in its
// place; directive lines are refused.  False at the end of the file.
bool CPP_IMPL::pp_append_line(const MACDEF* def) {
  for (;;) {
    const uint32_t pos = tokens[token_count - 1].offset;
    --token_count;
    cursor = pos;
    if (!lx_fill(line_buf, line_buf + pos)) {
      line_buf[pos] = '\0';
      pp_report(DIAG::cpp_open_mac(def->name));
      return false;
    }
    const uint32_t count = token_count;
    if (pp_isdir(pos) == PP_NONE) return true;
    pp_report(DIAG::cpp_dir_in_mac());
    token_count = count;
    line_buf[pos] = '\0';
    cursor = pos;
    lx_getc();
  }
}

// The current token of `frame` while a call is looked for; a source line
// that ends is continued by the next one.  Null when the call can't go on.
const PP_TOKEN* CPP_IMPL::findargs_token(int frame, const MACDEF* def, bool in_call) {
  PP_FRAME& fr = stack[frame];
  if (frame != 0) return &fr.tokens[fr.next_token];
  for (;;) {
    if (fr.next_token == token_count) lx_getc();
    const PP_TOKEN& t = tokens[fr.next_token];
    if (t.type != TK_EOL) return &t;
    if (in_directive) {
      if (in_call) pp_report(DIAG::cpp_open_mac(def->name));
      return nullptr;
    }
    if (!pp_append_line(def)) return nullptr;
  }
}

// Reads the arguments of a call of `def` from the frames at and below
// `caller` into the new top frame.  On false the frames are as they were.
bool CPP_IMPL::pp_findargs(int caller, const MACDEF* def) {
  PP_FRAME& mf = stack[top];
  saved_frames.clear();
  int f = caller;
  save_frame(f);
  for (;;) {  // the opening parenthesis
    PP_FRAME& fr = stack[f];
    if ((fr.flags & FR_ARG) && fr.next_token == fr.end_token) {
      if (next_segment(fr)) continue;
      save_frame(--f);  // an argument ends: its caller may go on
      if (stack[f].def == def) {
        restore_frames();
        return false;
      }
      continue;
    }
    const PP_TOKEN* t = findargs_token(f, def, false);
    if (!t || t->type != '(') {
      restore_frames();
      return false;
    }
    ++fr.next_token;
    break;
  }

  uint32_t arg_first = 0;  // the first piece of the current argument
  int depth = 1;
  const auto open_piece = [&] { mf.segs.push_back({home_of(f), stack[f].next_token, 0}); };
  const auto close_piece = [&] {
    PP_SEG& s = mf.segs.back();
    s.end = stack[f].next_token;
    if (s.end == s.first) mf.segs.pop_back();
  };
  const auto end_argument = [&]() -> bool {
    mf.args.push_back({arg_first, static_cast<uint32_t>(mf.segs.size()) - arg_first});
    arg_first = static_cast<uint32_t>(mf.segs.size());
    return mf.args.size() <= kMaxArgs;
  };
  open_piece();
  for (;;) {
    PP_FRAME& fr = stack[f];
    if ((fr.flags & FR_ARG) && fr.next_token == fr.end_token) {
      close_piece();
      if (next_segment(fr)) {
        open_piece();
        continue;
      }
      pp_report(DIAG::cpp_bad_mac_arg(def->name));
      restore_frames();
      return false;
    }
    const PP_TOKEN* t = findargs_token(f, def, true);
    if (!t) {
      restore_frames();
      return false;
    }
    if (t->type == TK_END) {  // the call goes on in the frame below
      close_piece();
      save_frame(--f);
      open_piece();
      continue;
    }
    if (t->type == '(') {
      ++depth;
    } else if (t->type == ')' && --depth == 0) {
      close_piece();
      const bool empty_last = mf.segs.size() == arg_first;  // not counted
      if (!empty_last && !end_argument()) {
        restore_frames();
        return false;
      }
      ++fr.next_token;
      break;
    } else if (t->type == ',' && depth == 1) {
      close_piece();
      if (!end_argument()) {
        restore_frames();
        return false;
      }
      ++fr.next_token;
      open_piece();
      continue;
    }
    ++fr.next_token;
  }

  if (mf.args.size() != static_cast<size_t>(def->nparams))
    pp_report(DIAG::cpp_arg_mismatch(def->name));
  for (int c = caller; c > f; --c) {  // frames used up by the call
    PP_FRAME& used = stack[c];
    used.write_pos = (used.flags & FR_ARG) ? segment_text_end(used)
                                           : used.tokens[used.next_token].offset;
  }
  PP_FRAME& last = stack[f];
  const PP_TOKEN& close = last.tokens[last.next_token - 1];
  last.write_pos = close.offset + close.length;
  return true;
}

void CPP_IMPL::pp_argpush(const PP_TOKEN& param) {
  PP_FRAME& fr = stack[top];
  const int owner = home_of(top);
  ++fr.next_token;
  fr.write_pos = param.offset + param.length;
  const PP_FRAME& of = stack[owner];
  if (param.value >= of.args.size() || of.args[param.value].seg_count == 0) return;
  const PP_ARG& arg = of.args[param.value];
  PP_FRAME* af = push_frame(FR_ARG);
  if (!af) return;
  af->owner = owner;
  af->seg = arg.seg_first;
  af->seg_end = arg.seg_first + arg.seg_count;
  load_segment(*af);
}

// The text of argument `index` of the macro frame `owner` as it stands: one
// blank where white space followed a token.
void CPP_IMPL::append_raw_arg(std::string& out, int owner, uint64_t index, bool escape) const {
  const PP_FRAME& of = stack[owner];
  if (index >= of.args.size()) return;
  const PP_ARG& arg = of.args[index];
  for (uint32_t s = arg.seg_first; s < arg.seg_first + arg.seg_count; ++s) {
    const PP_SEG& seg = of.segs[s];
    for (uint32_t k = seg.first; k < seg.end; ++k)
      append_raw_token(out, seg.home, stack[seg.home].tokens[k], escape);
  }
}

void CPP_IMPL::append_raw_token(std::string& out, int home, const PP_TOKEN& token,
                                bool escape) const {
  if (out.size() >= kOperandMax) return;
  const PP_FRAME& hf = stack[home];
  if (token.type == TK_PARAM) {
    append_raw_arg(out, home, token.value, escape);
  } else if (token.type == TK_CAT && hf.def && hf.def->has_ops) {
    return;  // the mark in front of a left operand
  } else if (escape && token.type >= TK_STRING && token.type <= TK_WCHAR) {
    for (const char* c = hf.text + token.offset; c < hf.text + token.offset + token.length; ++c) {
      if (*c == '\\' || *c == '"') out += '\\';
      out += *c;
    }
  } else {
    out.append(hf.text + token.offset, token.length);
  }
  if (pp_white_after(hf.text, token)) out += ' ';
}

// "#": the argument behind it becomes a string literal.
bool CPP_IMPL::pp_string(const PP_TOKEN& hash) {
  PP_FRAME& fr = stack[top];
  const int home = home_of(top);
  if (home == 0) {
    pp_report(DIAG::cpp_not_in_macro("#"));
    return false;
  }
  const MACDEF* def = stack[home].def;
  const uint32_t k = fr.next_token;
  const uint32_t limit = (fr.flags & FR_ARG) ? fr.end_token : UINT32_MAX;
  if (!def || !def->has_ops || k + 1 >= limit || fr.tokens[k + 1].type != TK_PARAM) return false;
  const PP_TOKEN& param = fr.tokens[k + 1];
  write_pending(fr, hash.offset);
  std::string text = "\"";
  append_raw_arg(text, home, param.value, true);
  trim_right(text);
  if (text.size() > kOperandMax - 2) text.resize(kOperandMax - 2);
  text += '"';
  fr.next_token = k + 2;
  fr.write_pos = param.offset + param.length;
  push_generated(std::move(text));
  return true;
}

// "##": the operands, unexpanded, are joined and scanned again.  A chain
// a ## b ## c is one text.
bool CPP_IMPL::pp_cat(const PP_TOKEN& cat) {
  PP_FRAME& fr = stack[top];
  const int home = home_of(top);
  if (home == 0) {
    pp_report(DIAG::cpp_not_in_macro("##"));
    return false;
  }
  const MACDEF* def = stack[home].def;
  if (!def || !def->has_ops) return false;
  const uint32_t limit = (fr.flags & FR_ARG) ? fr.end_token : UINT32_MAX;
  const auto at_end = [&](uint32_t j) { return j >= limit || fr.tokens[j].type == TK_END; };
  std::string text;
  uint32_t consumed_end = cat.offset + cat.length;  // the text that the result replaces
  const auto consume = [&](uint32_t j) {
    const PP_TOKEN& t = fr.tokens[j];
    consumed_end = std::max(consumed_end, t.offset + t.length);
    if (t.type != TK_CAT) append_raw_token(text, home, t, false);
  };
  uint32_t j = fr.next_token + 1;
  if (!at_end(j)) consume(j++);  // the left operand
  while (!at_end(j)) {           // the right one, maybe a concatenation itself
    trim_right(text);
    if (fr.tokens[j].type == TK_CAT) {
      consume(j++);
      if (!at_end(j)) consume(j++);
      continue;
    }
    consume(j++);
    break;
  }
  trim_right(text);
  if (text.size() > kOperandMax - 1) text.resize(kOperandMax - 1);
  write_pending(fr, cat.offset);
  fr.write_pos = consumed_end;
  fr.next_token = j;
  push_generated(std::move(text));
  return true;
}
