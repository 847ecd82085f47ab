// The tree of a translated vector loop: loops and the basic blocks that hold
// the instructions, the declarations at the head of each loop, and the
// indentation kept with an output stream.
#ifndef ZLC_TRANSLATE_LOOP_H
#define ZLC_TRANSLATE_LOOP_H

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <vector>

#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/text_out.h"
#include "translate/tinstr.h"

class AGEN;
class BBLOCK;
class LOOP;
class SCOPE;
class TCMD;
class TEXPR;
class TKERNEL;
class VBLOCK;
class VPEXPR;

// Indentation of generated text, three blanks a level, and the memory of
// the last blank line, both kept with the text itself.
class INDENT {
 public:
  // Writes the blanks of the current level.
  static TEXT_OUT& indent(TEXT_OUT& out);
  static void raise(TEXT_OUT& out);
  static void lower(TEXT_OUT& out);
  // Level 0, at the start of each generated function.
  static void reset(TEXT_OUT& out);
  // An indented "{" line, then one level deeper.
  static void open(TEXT_OUT& out);
  // One level up, then an indented "}" line.
  static void close(TEXT_OUT& out);
  // One empty line, unless nothing was written since the last one.
  static void blankline(TEXT_OUT& out);
};

class TDECL {
 public:
  TDECL(SCOPE* scope, uint32_t seq, std::string type, std::string name, const VPEXPR* init)
      : scope(scope), seq(seq), type(std::move(type)), name(std::move(name)), init(init) {}

  TKERNEL* kernel() const;
  // "type name = init;" on an indented line.
  void format(TEXT_OUT& out) const;

  // Orders of printing: by type and then name, or by creation.
  static bool less_by_type(const TDECL* a, const TDECL* b);
  static bool less_by_seq(const TDECL* a, const TDECL* b);

  SCOPE* scope;
  uint32_t seq;
  std::string type;
  std::string name;
  const VPEXPR* init;
};

// Declarations by name; a name is declared once, whatever its type.
class SCOPE {
 public:
  explicit SCOPE(TKERNEL* kernel) : kernel(kernel) {}
  SCOPE(const SCOPE&) = delete;
  SCOPE& operator=(const SCOPE&) = delete;

  // The existing entry when the name is present, otherwise a new one.
  TDECL* add(const std::string& type, const std::string& name, const VPEXPR* init);
  TDECL* lookup(const std::string& type, const std::string& name) const;
  void remove(const std::string& type, const std::string& name);
  // The declarations in the order `less`, then a blank line; nothing at
  // all when the scope is empty.
  void format_declarations(TEXT_OUT& out,
                           bool (*less)(const TDECL*, const TDECL*)) const;

  std::map<std::string, TDECL*, NAME_LESS> decls;
  TKERNEL* kernel;
  uint32_t next_seq = 0;
};

class LOOPNODE {
 public:
  // Enters the node among the members of `parent`.
  LOOPNODE(TCMD& cmd, LOOP* parent);
  virtual ~LOOPNODE() = default;
  LOOPNODE(const LOOPNODE&) = delete;
  LOOPNODE& operator=(const LOOPNODE&) = delete;

  virtual bool is_loop() const { return false; }
  virtual bool is_block() const { return false; }
  virtual void format(TEXT_OUT& out) const = 0;

  TCMD& cmd;
  LOOP* parent;
  int32_t depth;
};

class BBLOCK : public LOOPNODE {
 public:
  BBLOCK(TCMD& cmd, LOOP* parent);

  bool is_block() const override { return true; }
  void format(TEXT_OUT& out) const override;

  // The loop that holds this block.
  LOOP* loop() const { return parent; }

  // Insertions; each makes this block the instruction's block.
  void add_tinstr_back(TINSTR* instr);
  void add_tinstr_front(TINSTR* instr);
  void add_tinstr(std::list<TINSTR*>::iterator position, TINSTR* instr);
  // After `after`, or at the end when `after` isn't here.
  void add_tinstr_after(const TINSTR* after, TINSTR* instr);

  // The control-flow edge from this block to `to`, once.
  void add_edge(BBLOCK* to);

  // "b" and the id.
  std::string name() const;

  std::list<TINSTR*> instrs;
  std::vector<BBLOCK*> succ;  // unique, in order of insertion
  std::vector<BBLOCK*> pred;
  int32_t id;

  static int32_t id_counter;
};

class LOOP : public LOOPNODE {
 public:
  // The root loop of a translated vector loop: no loop variable, no count.
  explicit LOOP(TCMD& cmd);
  LOOP(TCMD& cmd, LOOP* parent, VBLOCK* vblock, BBLOCK* init_block, TEXPR* count,
       std::string lcv);

  bool is_loop() const override { return true; }
  void format(TEXT_OUT& out) const override;
  // The blank line, the pragmas, the for line and its "{"; nothing at the
  // root.
  void format_header(TEXT_OUT& out) const;

  void add_member(LOOPNODE* node) { members.push_back(node); }

  // Declares `name` where it is needed: nothing when it is already visible
  // here; a vector register goes to the kernel's scope, anything else to
  // this loop, taken out of the loops directly inside.
  void add_tdecl(const std::string& type, const std::string& name, const VPEXPR* init);
  // The declaration of `name` visible from this loop, or null.
  TDECL* find_tdecl(const std::string& type, const std::string& name) const;

  // The increments of `a` at the end of each loop below this one.
  void add_agen_increments(AGEN* a);
  // What `a` moves when this loop steps, after the nested loop has run.
  const VPEXPR* incr_expr(const AGEN* a) const;
  // What `a` moves over the whole of this loop.
  const VPEXPR* rewind_expr(const AGEN* a) const;
  // The stride of `a` for this loop's depth; zero where it has none.
  const VPEXPR* stride(const AGEN* a) const;
  // The source trip count; a loop without a source level, or whose header
  // failed to parse, counts as running once.
  const VPEXPR* tripcount() const;

  LOOP* nested_loop() const;
  BBLOCK* first_block() const;
  BBLOCK* last_block() const;
  // Where the end marker of the loop body stands in the last block.
  std::list<TINSTR*>::iterator endloop_pos() const;
  // This loop is where declarations and streams of its command are anchored.
  bool is_vcmd() const;

  VBLOCK* vblock = nullptr;
  SCOPE decls;
  SCOPE tval_decls;
  std::vector<LOOPNODE*> members;
  TEXPR* count = nullptr;
  std::string lcv;
  std::string exit_label;
  BBLOCK* entry_block = nullptr;
  BBLOCK* init_block = nullptr;
  BBLOCK* cleanup_block = nullptr;
};

// Markers of a loop body for the control-flow analysis; they print nothing.
class TBEGINLOOP : public TINSTR {
 public:
  TBEGINLOOP(std::string lcv, TEXPR* count) : lcv(std::move(lcv)), count(count) {}
  void format(TEXT_OUT&) const override {}
  std::string instr_string() const override { return "BEGINLOOP"; }

  std::string lcv;
  TEXPR* count;
};

class TENDLOOP : public TINSTR {
 public:
  explicit TENDLOOP(TBEGINLOOP* begin) : begin(begin) {}
  void format(TEXT_OUT&) const override {}
  std::string instr_string() const override { return "ENDLOOP"; }

  TBEGINLOOP* begin;
};

#endif
