// Message headers, wrapping, suppression and counting.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

#include "DIAG/diag.h"

namespace {

// Captures what diagnostics print, and restores the class-wide settings.
class DiagTest : public ::testing::Test {
 protected:
  void SetUp() override {
    out_ = std::tmpfile();
    DIAGNOSTIC::fp_m = out_;
    DIAGNOSTIC::error_count_m = 0;
  }
  void TearDown() override {
    DIAGNOSTIC::fp_m = nullptr;
    DIAGNOSTIC::wrap_enabled_m = true;
    DIAGNOSTIC::warnings_m = true;
    DIAGNOSTIC::display_code_m = false;
    DIAGNOSTIC::error_count_m = 0;
    std::fclose(out_);
  }
  std::string printed() {
    std::fflush(out_);
    std::rewind(out_);
    std::string s;
    for (int c; (c = std::fgetc(out_)) != EOF;) s += static_cast<char>(c);
    std::rewind(out_);
    return s;
  }
  FILE* out_ = nullptr;
};

const DIAG_SRCINFO_DATA at_a_k("a.k", 12);

TEST_F(DiagTest, HeaderForms) {
  DIAG::cpp_open_quote().set_src(&at_a_k).report();
  DIAGNOSTIC::display_code_m = true;
  DIAG::cpp_open_quote().set_src(&at_a_k).report();
  DIAG::gerror("fixed").report();  // no "-D" on a fixed message
  const DIAG_SRCINFO_DATA approx("b.k", 0, 0, true);
  DIAG::cpp_redef("m").set_src(&approx).report();
  EXPECT_EQ(printed(),
            "\"a.k\", line 12: error: unclosed string or character constant\n"
            "\"a.k\", line 12: error #19035-D: unclosed string or character constant\n"
            "error #99923: fixed\n"
            "\"b.k\" (approximate): warning #19011-D: redefinition of macro 'm'\n");
  EXPECT_EQ(DIAGNOSTIC::error_count_m, 3);
}

TEST_F(DiagTest, TextOfExactlyTheLineWidthStillBreaksAtItsLastBlank) {
  // "error: " takes 7 columns, leaving 72 for a text of exactly 72 characters.
  const std::string text = std::string(60, 'x') + " " + std::string(11, 'y');
  DIAG::gerror(text).report();
  EXPECT_EQ(printed(), "error: " + std::string(60, 'x') + "\n   " + std::string(11, 'y') + "\n");
}

TEST_F(DiagTest, OverlongHeaderStaysWholeAndTextStartsOnNextLine) {
  const DIAG_SRCINFO_DATA deep(std::string(80, 'd') + ".k", 3);
  DIAG::cpp_bad_undef().set_src(&deep).report();
  EXPECT_EQ(printed(), "\"" + std::string(80, 'd') +
                           ".k\", line 3: error: \n   missing name on #undef directive\n");
}

TEST_F(DiagTest, WordLongerThanALineIsBroken) {
  DIAG::gerror(std::string(200, 'w')).report();
  EXPECT_EQ(printed(), "error: " + std::string(72, 'w') + "\n   " + std::string(76, 'w') +
                           "\n   " + std::string(52, 'w') + "\n");
}

TEST_F(DiagTest, LineFeedInTextBreaksEvenWithoutWrapping) {
  DIAGNOSTIC::wrap_enabled_m = false;
  DIAG::zlc_move_compare_type("i", "n", "i").report();
  DIAG::gerror(std::string(100, 'z') + " tail").report();
  EXPECT_EQ(printed(),
            "error: loop variable can only be directly compared to 0, did you mean\n"
            "   last(i,n) or (i == 0)?\n"
            "error: " + std::string(100, 'z') + " tail\n");
}

TEST_F(DiagTest, SuppressedWarningsPrintNothingAndWarningsNeverCount) {
  DIAG::cpp_redef("m").report();
  DIAGNOSTIC::warnings_m = false;
  DIAG::cpp_redef("m").report();
  DIAG::gremark("remarks are off by default").report();
  EXPECT_EQ(printed(), "warning: redefinition of macro 'm'\n");
  EXPECT_EQ(DIAGNOSTIC::error_count_m, 0);
}

TEST_F(DiagTest, SeveritiesBelowWarningGoToStdout) {
  DIAGNOSTIC::fp_m = nullptr;
  EXPECT_EQ(DIAG::gremark("r").fp(), stdout);
  EXPECT_EQ(DIAG::gwarning("w").fp(), stderr);
  EXPECT_EQ(DIAG::gfatal("f").fp(), stderr);
}

TEST_F(DiagTest, HundredthErrorGoesOnAndHundredFirstEndsTheRun) {
  EXPECT_EXIT(
      {
        DIAGNOSTIC::fp_m = stderr;
        for (int i = 0; i < 100; ++i) DIAG::gerror("e").report();
        std::fputs("still running\n", stderr);
        DIAG::gerror("e").report();
        std::fputs("not reached\n", stderr);
      },
      ::testing::ExitedWithCode(1),
      "still running\nerror: e\nfatal error: error limit reached; 100 errors detected\n$");
}

TEST(DiagCatalogue, NumbersAreUniqueAndLookedUpByCode) {
  std::set<int> seen;
  for (const DIAG_INFO& info : DIAGNOSTIC::table()) {
    EXPECT_TRUE(seen.insert(info.code).second) << info.code;
    EXPECT_EQ(DIAGNOSTIC::get_info(info.code), &info);
  }
  for (int absent : {26033, 26043, 26101}) EXPECT_EQ(DIAGNOSTIC::get_info(absent), nullptr);
}

}  // namespace
