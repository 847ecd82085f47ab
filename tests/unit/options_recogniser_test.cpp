// Recognition of command-line words by the option object.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "options/option_table.h"
#include "options/optobj.h"

namespace {

using oo = option_obj;

std::vector<std::string> following_words;  // what next_arg yields
size_t next_word_at = 0;

void follow_with(std::vector<std::string> words) {
  following_words = std::move(words);
  next_word_at = 0;
}

const char* next_test_word() {
  return next_word_at < following_words.size() ? following_words[next_word_at++].c_str()
                                               : nullptr;
}

class OptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    follow_with({});
    option_obj::next_arg = next_test_word;
    predefined_symbols.clear();
    user_include_paths.clear();
    DIAGNOSTIC::wrap_enabled_m = false;  // messages on one line
  }
  void TearDown() override {  // as the options of a test may have left them
    DIAGNOSTIC::wrap_enabled_m = true;
    DIAGNOSTIC::warnings_m = true;
  }
  // Recognises `word` (with its first dash), expecting no message.
  bool take(const char* word) {
    ::testing::internal::CaptureStderr();
    const bool ok = opts.process_option(word + 1, nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << word;
    return ok;
  }
  option_obj opts{true};
};

TEST_F(OptionsTest, EverySpellingSetsItsOption) {
  const struct {
    const char* word;
    oo::option_id id;
    unsigned form;
  } cases[] = {
      {"--cpp_out", oo::OO_CPP_OUT, 0},
      {"-cpp", oo::OO_CPP_OUT, 1},
      {"--error_summary", oo::OO_ERROR_SUMMARY, 0},
      {"--summary", oo::OO_ERROR_SUMMARY, 1},
      {"-pdw", oo::OO_NO_WARNINGS, 1},
      {"--profile", oo::OO_PROFILE, 0},
      {"--quiet", oo::OO_QUIET, 0},
      {"-q", oo::OO_QUIET, 1},
      {"--zelt_unconditional_loads", oo::OO_ZELT_UNCONDITIONAL_LOADS, 0},
      {"-lu", oo::OO_ZELT_UNCONDITIONAL_LOADS, 1},
  };
  for (const auto& c : cases) {
    option_obj fresh(false);
    ::testing::internal::CaptureStderr();
    EXPECT_TRUE(fresh.process_option(c.word + 1, nullptr)) << c.word;
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(fresh.state[c.id], 1) << c.word;
    EXPECT_EQ(fresh.enabled[c.id], 1) << c.word;
    EXPECT_EQ(fresh.parsed[c.id], 1) << c.word;
    EXPECT_EQ(fresh.form[c.id], c.form) << c.word;
  }
}

TEST_F(OptionsTest, UnknownWordsAreRejectedWithThePlaceWhereRecognitionStopped) {
  const struct {
    const char* word;
    size_t stop;  // in the word without its first dash
  } cases[] = {
      {"--cpp_outx", 8},  // a plain flag demands the end of the word
      {"--cpp", 4},       // no abbreviation
      {"--debug_x", 6},   // option 3 has no spelling
      {"--dump", 2},      // nor has option 8
      {"--lut_scatter", 1},  // nor option 11
      {"--debug", 6},
      {"-help", 1},
      {"--quietx", 6},   // only the short -q leaves a rest
      {"-x", 0},
      {"--", 1},
      {"-cpp_out", 3},
  };
  for (const auto& c : cases) {
    const char* bad = nullptr;
    EXPECT_FALSE(opts.process_option(c.word + 1, &bad)) << c.word;
    EXPECT_EQ(bad - (c.word + 1), static_cast<long>(c.stop)) << c.word;
  }
  for (unsigned id = 0; id < oo::num_options; ++id)
    EXPECT_EQ(opts.state[id], id == oo::OO_ZELT_SIMD ? 1 : 0) << id;
  EXPECT_TRUE(opts.process_option("", nullptr));
  EXPECT_TRUE(opts.process_option(nullptr, nullptr));
}

TEST_F(OptionsTest, WrongCaseWarnsAndStillSetsTheOption) {
  const struct {
    const char* word;
    oo::option_id id;
    const char* typed;
    const char* canonical;
  } cases[] = {
      {"-Q", oo::OO_QUIET, "-Q", "-q"},
      {"--Zelt_Simd=16", oo::OO_ZELT_SIMD, "--Zelt_Simd", "--zelt_simd"},
      {"--Help_x", oo::OO_USAGE, nullptr, nullptr},  // not a name: no warning
  };
  for (const auto& c : cases) {
    option_obj fresh(false);
    ::testing::internal::CaptureStderr();
    fresh.process_option(c.word + 1, nullptr);
    const std::string err = ::testing::internal::GetCapturedStderr();
    if (!c.typed) {
      EXPECT_EQ(err, "");
      continue;
    }
    EXPECT_EQ(err, std::string("warning: Case insensitivity of options has been deprecated; ") +
                       c.typed + " must be written as " + c.canonical + " in future releases\n");
    EXPECT_EQ(fresh.state[c.id], 1) << c.word;
  }
}

TEST_F(OptionsTest, QuietMayBeFollowedByMoreShortOptions) {
  EXPECT_TRUE(take("-quiet"));
  EXPECT_EQ(opts.state[oo::OO_QUIET], 1);
  EXPECT_EQ(opts.state[oo::OO_UNDEFINE], 1);
  EXPECT_EQ(predefined_symbols.at("iet"), "0");

  EXPECT_TRUE(take("-qqlu"));
  EXPECT_EQ(opts.state[oo::OO_QUIET], 3);
  EXPECT_EQ(opts.state[oo::OO_ZELT_UNCONDITIONAL_LOADS], 1);

  const char* bad = nullptr;
  EXPECT_FALSE(opts.process_option("qx", &bad));  // -q acts before the rest fails
  EXPECT_STREQ(bad, "x");
  EXPECT_EQ(opts.state[oo::OO_QUIET], 4);

  ::testing::internal::CaptureStderr();
  EXPECT_TRUE(opts.process_option("qU=A", nullptr));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "warning: Case insensitivity of options has been deprecated; -U must be written as -u "
            "in future releases\n");
  EXPECT_EQ(predefined_symbols.at("A"), "0");
}

TEST_F(OptionsTest, RequiredArgumentsAttachedAfterEqualsOrInTheNextWord) {
  follow_with({"D=4", "E", "F"});
  for (const char* word : {"-dA=1", "-d=B=2", "--defineC=3", "--define=H", "-d", "--define", "-d="})
    EXPECT_TRUE(take(word)) << word;
  EXPECT_EQ(predefined_symbols,
            (std::map<std::string, std::string>{
                {"A", "1"}, {"B", "2"}, {"C", "3"}, {"D", "4"}, {"E", "1"}, {"F", "1"}, {"H", "1"}}));
  EXPECT_EQ(opts.state[oo::OO_DEFINE], 7);
  EXPECT_EQ(opts.args[oo::OO_DEFINE].size(), 1u);  // one string: the newest replaces the last
  EXPECT_STREQ(opts.getstrarg(oo::OO_DEFINE, 0), "F");

  follow_with({"p2"});
  EXPECT_TRUE(take("-ip1"));
  EXPECT_TRUE(take("--include_path"));
  EXPECT_EQ(user_include_paths, (std::vector<std::string>{"p1", "p2"}));

  EXPECT_TRUE(take("--define=X"));
  EXPECT_TRUE(take("--undefine=X"));
  EXPECT_EQ(predefined_symbols.at("X"), "0");
}

TEST_F(OptionsTest, MissingRequiredArgumentEndsTheRun) {
  EXPECT_EXIT(opts.process_option("d", nullptr), ::testing::ExitedWithCode(1),
              "error: option -d is missing its parameter 'NAME\\[=value\\]'");
  EXPECT_EXIT(opts.process_option("-OUTPUT_HEADER=", nullptr), ::testing::ExitedWithCode(1),
              "option --OUTPUT_HEADER is missing its parameter 'file'");
  follow_with({""});
  EXPECT_EXIT(opts.process_option("@", nullptr), ::testing::ExitedWithCode(1),
              "option -@ is missing its parameter 'file'");
}

TEST_F(OptionsTest, OptionalStringTakesOnlyAttachedText) {
  follow_with({"7"});
  EXPECT_TRUE(take("-r"));
  EXPECT_STREQ(opts.getstrarg(oo::OO_SUPPRESS_REMARK, 0), "0");
  EXPECT_EQ(next_word_at, 0u);
  EXPECT_TRUE(take("--suppress_remark=12"));
  EXPECT_EQ(opts.getnumarg(oo::OO_SUPPRESS_REMARK, 0), 12);
  EXPECT_TRUE(take("-r==5"));
  EXPECT_STREQ(opts.getstrarg(oo::OO_SUPPRESS_REMARK, 0), "=5");
  EXPECT_EQ(opts.state[oo::OO_SUPPRESS_REMARK], 3);
  EXPECT_EXIT(opts.process_option("r=", nullptr), ::testing::ExitedWithCode(1),
              "option -r is missing its parameter 'id'");
}

TEST_F(OptionsTest, ListValues) {
  EXPECT_EQ(opts.state[oo::OO_ZELT_SIMD], 1);  // the default counts as given once
  EXPECT_EQ(opts.parsed[oo::OO_ZELT_SIMD], 0);
  EXPECT_EQ(opts.getnumarg(oo::OO_ZELT_SIMD, 0), 4);
  EXPECT_STREQ(opts.getstrarg(oo::OO_ZELT_SIMD, 0), "8");

  for (const char* word : {"--zelt_simd=16", "--zelt_simd16", "--zelt_simd"}) EXPECT_TRUE(take(word));
  EXPECT_EQ(opts.state[oo::OO_ZELT_SIMD], 4);
  EXPECT_EQ(opts.getnumarg(oo::OO_ZELT_SIMD, 0), 4);  // the last word gave the default
  EXPECT_TRUE(take("--zelt_simd=16"));
  EXPECT_EQ(opts.getnumarg(oo::OO_ZELT_SIMD, 0), 3);
  EXPECT_STREQ(opts.getstrarg(oo::OO_ZELT_SIMD, 0), "16");

  EXPECT_EQ(option_obj(false).state[oo::OO_ZELT_SIMD], 0);

  EXPECT_EXIT(opts.process_option("-zelt_simd=32", nullptr), ::testing::ExitedWithCode(1),
              "error: bad argument to option --zelt_simd: should be one of \\{8,16\\}");
  EXPECT_EXIT(opts.process_option("-diag_wrap=of", nullptr), ::testing::ExitedWithCode(1),
              "bad argument to option --diag_wrap: should be one of \\{on,off\\}");
  EXPECT_EXIT(opts.process_option("-zelt_simd=", nullptr), ::testing::ExitedWithCode(1),
              "option --zelt_simd is missing its parameter '8\\|16'");
}

TEST_F(OptionsTest, StringListsAppend) {
  follow_with({"b"});
  EXPECT_TRUE(take("--debug:a"));
  EXPECT_TRUE(take("--debug:"));
  EXPECT_TRUE(take("--disable:=c"));
  EXPECT_EQ(opts.args[oo::OO_DEBUG].size(), 2u);
  EXPECT_STREQ(opts.getstrarg(oo::OO_DEBUG, 0), "a");
  EXPECT_STREQ(opts.getstrarg(oo::OO_DEBUG, 1), "b");
  EXPECT_EQ(opts.getstrarg(oo::OO_DEBUG, 2), nullptr);
  EXPECT_STREQ(opts.getstrarg(oo::OO_DISABLE, 0), "c");
}

TEST_F(OptionsTest, GettersOfAbsentValuesAndBadIds) {
  EXPECT_EQ(opts.getstrarg(oo::OO_OUTPUT_HEADER, 0), nullptr);
  EXPECT_EQ(opts.getnumarg(oo::OO_OUTPUT_HEADER, 0), 0);
  const auto beyond = static_cast<oo::option_id>(oo::num_options);
  opts.setopt(beyond);
  opts.setarg(beyond, "x");
  EXPECT_EQ(opts.getnumarg(beyond, 0), 0);
  EXPECT_EQ(opts.getstrarg(beyond, 0), nullptr);
}

TEST(OptionItems, DeprecatedItemWarnsAndMatchesIgnoringCase) {
  const option_item items[] = {{"+new", 1}, {"*old", 2}};
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(match_item(items, "NEW", "--opt"), &items[0]);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(match_item(items, "Old", "--opt"), &items[1]);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "WARNING: argument 'Old' to option '--opt' is deprecated and will be removed in a "
            "future release\n");
  EXPECT_EQ(match_item(items, "ne", "--opt"), nullptr);
  EXPECT_EQ(listed_items(items), "new");
}

}  // namespace
