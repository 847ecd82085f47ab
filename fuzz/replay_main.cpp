// Replays inputs through the fuzz target without libFuzzer, for builds
// without clang.  Each argument is a file, or a directory whose files are
// replayed in name order.  A finding aborts, as under libFuzzer.
//   zlc9k_replay PATH...
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> inputs;
  for (int i = 1; i < argc; ++i) {
    if (std::filesystem::is_directory(argv[i])) {
      for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else {
      inputs.emplace_back(argv[i]);
    }
  }
  std::sort(inputs.begin(), inputs.end());
  for (const auto& input : inputs) {
    std::printf("replaying %s\n", input.c_str());
    std::fflush(stdout);
    std::ifstream in(input, std::ios::binary);
    const std::string data(std::istreambuf_iterator<char>(in), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(data.data()), data.size());
  }
  std::printf("%zu inputs replayed without a finding\n", inputs.size());
  return 0;
}
