// Fixed limits end with their fatal messages and never overrun memory; the
// memory zone of the macro definitions.
#include <gtest/gtest.h>

#include <cstdint>

#include "support/mzone.h"
#include "tests/unit/cpp_harness.h"

namespace {

std::string repeat(const std::string& s, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

}  // namespace

TEST(CppLimits, LogicalLineOf16384Bytes) {
  EXPECT_TRUE(run_cpp(std::string(16000, 'x') + "\n").fatal_codes.empty());
  EXPECT_EQ(run_cpp(std::string(17000, 'x') + "\n").fatal_codes, std::vector<int>{19032});
  // Continued lines and calls that span lines fill the same buffer.
  EXPECT_EQ(run_cpp(repeat(std::string(5000, 'x') + "\\\n", 4) + "\n").fatal_codes,
            std::vector<int>{19032});
  EXPECT_EQ(run_cpp("#define F(a) a\nF(\n" + repeat(std::string(5000, 'x') + "\n", 4) + ")\n")
                .fatal_codes.front(),
            19032);
}

TEST(CppLimits, TokensOfALine) {
  EXPECT_TRUE(run_cpp(repeat("a ", 4095) + "\n").fatal_codes.empty());
  EXPECT_EQ(run_cpp(repeat("a ", 4096) + "\n").fatal_codes, std::vector<int>{19040});
  EXPECT_EQ(run_cpp("#define X " + repeat("a ", 4100) + "\n").fatal_codes, std::vector<int>{19040});
}

TEST(CppLimits, MacroNesting) {
  // Within an argument a macro may expand again, so this recursion has no end.
  EXPECT_EQ(run_cpp("#define f(x) x\n#define g f(g)\ng\n").fatal_codes,
            std::vector<int>{19003});
  std::string defs;
  for (int i = 1; i < 1000; ++i) defs += "#define M" + std::to_string(i) + " M" + std::to_string(i + 1) + "\n";
  EXPECT_TRUE(run_cpp(defs + "M1\n").fatal_codes.empty());  // 999 frames above the line
  EXPECT_EQ(run_cpp(defs + "#define M1000 M1001\nM1\n").fatal_codes,
            std::vector<int>{19003});
}

TEST(CppLimits, CommentThatOverflowsTheLine) {
  EXPECT_EQ(run_cpp("a" + std::string(10000, ' ') + "/* x\n*/" + std::string(10000, 'z') + "\n")
                .fatal_codes,
            std::vector<int>{19041});
}

TEST(CppLimits, ManyArgumentsAndLongOperands) {
  std::string params, args;
  for (int i = 0; i < 1000; ++i) params += (i ? ",p" : "p") + std::to_string(i);
  for (int i = 0; i < 1000; ++i) args += (i ? "," : "") + std::to_string(i);
  const PP_RESULT r = run_cpp("#define G(" + params + ") p999 #p0\nG(" + args + ")\nG(" + args + ",1)\n");
  EXPECT_TRUE(r.messages.empty()) << r.all_messages();
  EXPECT_EQ(without_line_directives(r.text), "999 \"0\"\nG(" + args + ",1)\n");  // 1001 stop the search
  const PP_RESULT s = run_cpp("#define S(x) #x\nS(" + repeat("abcdefgh ", 600) + ")\n");
  EXPECT_EQ(without_line_directives(s.text).size(), 4000u);  // 3999 characters and the line end
}

TEST(CppLimitsDeathTest, FatalMessagesEndTheRun) {
  FILE* fp = tmpfile();
  std::fputs((std::string(17000, 'x') + "\n").c_str(), fp);
  std::rewind(fp);
  CPP* cpp = new_CPP("long.k", fp, nullptr);
  EXPECT_EXIT(cpp->fgets(), testing::ExitedWithCode(1),
              "\"long.k\", line 1: fatal error: source line too long");
  delete cpp;
  std::fclose(fp);
}

TEST(Mzone, BlocksAreAlignedZeroedAndDisjoint) {
  MZONE zone(2000, __FILE__, __LINE__);
  char* a = static_cast<char*>(zone.alloc(5));
  char* b = static_cast<char*>(zone.alloc(16));
  char* c = static_cast<char*>(zone.alloc(3));
  EXPECT_EQ(reinterpret_cast<uintptr_t>(b) % 8, 0u);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(c) % 8, 0u);
  EXPECT_GE(b, a + 5);
  EXPECT_EQ(c, b + 24);  // a multiple of 8 still moves on by 8 more
  for (int i = 0; i < 16; ++i) EXPECT_EQ(b[i], 0);
  EXPECT_EQ(zone.current_size(), 24u);
}

TEST(Mzone, LargeRequestGetsItsOwnPoolAndResetKeepsTheOldest) {
  MZONE zone(100, __FILE__, __LINE__);
  const uint64_t before = MZONE::cur_alloced;
  char* small = static_cast<char*>(zone.alloc(10));
  small[0] = 'x';
  zone.alloc(5000);
  EXPECT_EQ(MZONE::cur_alloced - before, 5100u);
  int released = 0;
  zone.add_release([](void* n) { ++*static_cast<int*>(n); }, &released);
  zone.reset();
  EXPECT_EQ(released, 1);
  EXPECT_EQ(MZONE::cur_alloced - before, 100u);
  EXPECT_EQ(static_cast<char*>(zone.alloc(10)), small);  // the oldest pool, empty again
  EXPECT_EQ(small[0], 0);
}
