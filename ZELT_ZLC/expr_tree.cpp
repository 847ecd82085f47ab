// Trees of parameter expressions: nodes, the arena, and the construction
// rules of a rule's root.
#include "ZELT_ZLC/expr_tree.h"

#include "ZELT_ZLC/token_buffer.h"

EXPR_TREE* EXPR_TREE::child(uint32_t i) const {
  if (i >= child_count) return nullptr;
  EXPR_TREE* c = first;
  while (i-- > 0) c = c->next;
  return c;
}

EXPR_TREE* error_tree() {
  static EXPR_TREE tree{.text = "Tree Error Node"};
  return &tree;
}

EXPR_TREE* EXPR_TREES::nil() {
  EXPR_TREE& tree = nodes.emplace_back();
  tree.nil = true;
  return &tree;
}

EXPR_TREE* EXPR_TREES::node(pANTLR3_COMMON_TOKEN token) {
  EXPR_TREE& tree = nodes.emplace_back();
  tree.type = token->type;
  tree.text = TOKEN_BUFFER::chars(token);
  if (token->start != 0) {
    tree.real = true;
    tree.input = token->input;
    tree.line = token->line;
    tree.column = token->charPosition;
  }
  return &tree;
}

EXPR_TREE* EXPR_TREES::imaginary(ANTLR3_UINT32 type, std::string_view text) {
  EXPR_TREE& tree = nodes.emplace_back();
  tree.type = type;
  tree.text = text;
  return &tree;
}

EXPR_TREE* EXPR_TREES::error() { return &nodes.emplace_back(*error_tree()); }

EXPR_TREE* EXPR_TREES::owned(EXPR_TREE* tree) { return tree == error_tree() ? error() : tree; }

void EXPR_TREES::add_child(EXPR_TREE* tree, EXPR_TREE* child) {
  if (!child) return;
  child = owned(child);
  if (child->nil) {
    if (!child->first) return;
    (tree->last ? tree->last->next : tree->first) = child->first;
    tree->last = child->last;
    tree->child_count += child->child_count;
    return;
  }
  child->next = nullptr;
  (tree->last ? tree->last->next : tree->first) = child;
  tree->last = child;
  ++tree->child_count;
}

void EXPR_ROOT::add(EXPR_TREES& trees, EXPR_TREE* child) {
  if (!child) return;
  if (node) {
    trees.add_child(node, child);
  } else if (child->nil) {
    for (EXPR_TREE *c = child->first, *next; c; c = next) {
      next = c->next;
      add(trees, c);
    }
  } else if (!only) {
    only = child;
  } else {
    node = trees.nil();
    trees.add_child(node, only);
    trees.add_child(node, child);
    only = nullptr;
  }
}

void EXPR_ROOT::become_root(EXPR_TREES& trees, EXPR_TREE* new_root) {
  if (new_root == error_tree()) new_root = trees.error();
  if (node)
    trees.add_child(new_root, node);
  else if (only)
    trees.add_child(new_root, only);
  node = new_root;
  only = nullptr;
}

EXPR_TREE* EXPR_ROOT::result() const {
  if (!node) return only;
  if (node->nil && node->child_count <= 1) return node->first;
  return node;
}
