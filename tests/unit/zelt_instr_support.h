// Statements built through the model's entry points in the order the parser
// calls them, on a fresh kernel whose messages are captured.
#ifndef ZLC_TESTS_UNIT_ZELT_INSTR_SUPPORT_H
#define ZLC_TESTS_UNIT_ZELT_INSTR_SUPPORT_H

#include <gtest/gtest.h>

#include <string>

#include "DIAG/diag.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "tests/unit/string_out.h"

class INSTR_TEST : public testing::Test {
 protected:
  void SetUp() override {
    DIAGNOSTIC::error_count_m = 0;
    kernel = new VKERNEL(out, header);
    curr_vkernel = kernel;
    kernel->set_name("k");
    testing::internal::CaptureStderr();
  }
  void TearDown() override {
    if (!captured) testing::internal::GetCapturedStderr();
    DIAGNOSTIC::error_count_m = 0;
  }

  // The messages printed so far on the error stream; ends the capture.
  std::string messages() {
    captured = true;
    return testing::internal::GetCapturedStderr();
  }

  static DIAG_SRCINFO_DATA at(unsigned line) { return DIAG_SRCINFO_DATA("k.zc", line); }
  static const VPEXPR* num(long value) { return new VPEXPR(value, VPEXPR::EVAL_SIGNED); }
  static const VPEXPR* sym(const std::string& text) {
    auto* e = new VPEXPR(text);
    e->eval_type = VPEXPR::EVAL_SYMBOLIC;
    return e;
  }

  VCMD* v() const { return curr_vcmd; }
  VREG* vreg(const std::string& name) {
    VREG* r = kernel->new_vreg(at(1), name, VDATA_TYPE::untyped);
    v()->clear_curr();
    return r;
  }
  void loop(unsigned line, const std::string& lcv, const VPEXPR* count) {
    v()->push_block(at(line), lcv, count);
  }
  void ref(unsigned line, VDATA_TYPE type, AGEN* agen = nullptr) {
    v()->new_vlvalue(at(line), sym("p + 4"), nullptr, nullptr, nullptr, agen, type);
  }

  // dst = p[A].dist(); second makes the target a pair.
  VINSTR* load(unsigned line, VREG* dst, VDATA_TYPE type, int32_t dist = 0,
               VREG* second = nullptr, AGEN* agen = nullptr) {
    v()->clear_curr();
    if (second)
      v()->set_curr_vpair(dst, second);
    else
      v()->set_curr_vreg(dst);
    ref(line, type, agen);
    v()->new_vload(at(line));
    if (dist) v()->set_vload_dist(dist);
    VINSTR* instr = v()->curr_instr;
    v()->add_instr(instr);
    return instr;
  }
  // dst = value
  VINSTR* init(unsigned line, VREG* dst, const VPEXPR* value) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    v()->new_vinit(at(line), value);
    return v()->curr_instr;
  }
  // p[A] = src, the store still open for its suffixes.
  void begin_store(unsigned line, VDATA_TYPE type, int32_t dist = 0, VREG* dist_vreg = nullptr) {
    v()->clear_curr();
    ref(line, type);
    v()->new_vstore(at(line));
    if (dist) v()->set_vstore_dist(dist, dist_vreg);
  }
  VINSTR* end_store(VREG* src, VREG* second = nullptr) {
    VINSTR* store = v()->curr_instr;
    if (second)
      v()->set_curr_vpair(src, second);
    else
      v()->set_curr_vreg(src);
    v()->set_vstore_rhs();
    return store;
  }
  // dst = name(a, b, c)
  VINSTR* op(unsigned line, const std::string& name, VREG* dst, VREG* a, VREG* b = nullptr,
             VREG* c = nullptr) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    v()->new_vop(at(line), name, nullptr, a, b, c);
    return v()->curr_instr;
  }

  STRING_OUT out;
  STRING_OUT header;
  VKERNEL* kernel = nullptr;
  bool captured = false;
};

#endif
