// Path operations on file names.
#include "support/fname.h"

#include <sys/stat.h>

#include <cctype>

namespace {

constexpr size_t part_max = 499;

std::string cut(const std::string& s) { return s.substr(0, part_max); }

// Position of the extension's "." or npos when the last component has none.
size_t ext_dot(const std::string& path) {
  const size_t dot = path.rfind('.');
  if (dot == std::string::npos) return dot;
  const size_t slash = path.rfind('/');
  return slash != std::string::npos && slash > dot ? std::string::npos : dot;
}

}  // namespace

void fn_split(const std::string& path, std::string* dir, std::string* base, std::string* ext) {
  const size_t slash = path.rfind('/');
  const size_t name_at = slash == std::string::npos ? 0 : slash + 1;
  const size_t dot = ext_dot(path);
  const size_t base_end = dot == std::string::npos ? path.size() : dot;
  if (dir) *dir = cut(path.substr(0, name_at));
  if (base) *base = cut(path.substr(name_at, base_end - name_at));
  if (ext) *ext = dot == std::string::npos ? "" : cut(path.substr(dot + 1));
}

std::string fn_build(const std::string& dir, const std::string& name, const std::string& ext) {
  std::string out = dir;
  if (!out.empty() && out.back() != '/') out += '/';
  out += name;
  if (!ext.empty()) {
    if (ext.front() != '.') out += '.';
    out += ext;
  }
  return out;
}

std::string fn_addext(const std::string& path, const std::string& ext, bool replace) {
  const size_t dot = ext_dot(path);
  if (dot != std::string::npos && !replace) return path;
  std::string out = dot == std::string::npos ? path : path.substr(0, dot);
  if (ext.empty() || ext.front() != '.') out += '.';
  return out + ext;
}

std::string fn_delext(const std::string& path) {
  const size_t dot = ext_dot(path);
  return dot == std::string::npos ? path : path.substr(0, dot);
}

std::string fn_basename(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool fn_exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

bool fn_starts_with_dot_dot(const std::string& path) {
  return path.rfind("./", 0) == 0 || path.rfind("../", 0) == 0;
}

int strcaseincmp(const char* a, const char* b, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    const int ca = std::tolower(static_cast<unsigned char>(a[i]));
    const int cb = std::tolower(static_cast<unsigned char>(b[i]));
    if (ca != cb || ca == 0) return ca - cb;
  }
  return 0;
}
