// Trees of parameter expressions, as the parser's actions build them.  They
// follow the runtime's rules of tree construction: a rule's root starts as a
// nil list, a nil child is replaced by its children, an operator made root
// takes the list as its children, and a rule that failed yields an error
// node.  Nodes live in an arena that each statement clears.
#ifndef ZLC_ZELT_ZLC_EXPR_TREE_H
#define ZLC_ZELT_ZLC_EXPR_TREE_H

#include <antlr3.h>

#include <cstdint>
#include <deque>
#include <string_view>

struct EXPR_TREE {
  ANTLR3_UINT32 type = 0;
  bool nil = false;
  std::string_view text;  // of the token; the node's word for imaginary nodes
  // The position of a token that stands in the source; null for imaginary
  // nodes and for tokens that error recovery made up.
  pANTLR3_INPUT_STREAM input = nullptr;
  ANTLR3_UINT32 line = 0;
  ANTLR3_INT32 column = 0;
  bool real = false;
  uint32_t child_count = 0;
  EXPR_TREE* first = nullptr;
  EXPR_TREE* last = nullptr;
  EXPR_TREE* next = nullptr;  // the next sibling

  // The child at `i`, or null.
  EXPR_TREE* child(uint32_t i) const;
};

// The tree of a rule that failed: a leaf of type 0.  Rules start with it as
// their result, and it is copied into the arena when it becomes a child.
EXPR_TREE* error_tree();

class EXPR_TREES {
 public:
  EXPR_TREE* nil();
  // A node of `token`, with its type and text.
  EXPR_TREE* node(pANTLR3_COMMON_TOKEN token);
  // A node of a type that no token has, with a word of its own.
  EXPR_TREE* imaginary(ANTLR3_UINT32 type, std::string_view text);
  EXPR_TREE* error();
  // Appends `child`, or the children of a nil `child`; null adds nothing.
  void add_child(EXPR_TREE* tree, EXPR_TREE* child);
  void clear() { nodes.clear(); }

 private:
  EXPR_TREE* owned(EXPR_TREE* tree);
  std::deque<EXPR_TREE> nodes;
};

// The root that a rule builds: a nil list until an operator becomes root.
// A list of one child needs no nil node.
class EXPR_ROOT {
 public:
  void add(EXPR_TREES& trees, EXPR_TREE* child);
  // `new_root` takes the list, or the root so far, as its children.
  void become_root(EXPR_TREES& trees, EXPR_TREE* new_root);
  // The rule's tree: null for an empty list, the child of a list of one.
  EXPR_TREE* result() const;

 private:
  EXPR_TREE* node = nullptr;  // a root node, or a nil node of two or more children
  EXPR_TREE* only = nullptr;  // the one child of a list without a nil node
};

#endif
