// Every kernel of the parse corpus must parse without a syntax error.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/unit/zelt_parse_support.h"

namespace {

std::filesystem::path corpus_dir() {
  return std::filesystem::path(__FILE__).parent_path().parent_path() / "parse_corpus";
}

TEST(ZeltParseCorpus, EveryKernelParses) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(corpus_dir())) {
    if (entry.path().extension() != ".zc") continue;
    std::ifstream in(entry.path());
    std::stringstream text;
    text << in.rdbuf();
    const PARSE_RESULT result = parse_text(text.str(), entry.path().filename().c_str());
    EXPECT_EQ(result.err.find("syntax error"), std::string::npos)
        << entry.path() << "\n" << result.err;
    EXPECT_EQ(result.err.find("lexer error"), std::string::npos)
        << entry.path() << "\n" << result.err;
    ++files;
  }
  EXPECT_GE(files, 4);
}

}  // namespace
