// Path operations on file names; "/" is the only separator.
#ifndef ZLC_SUPPORT_FNAME_H
#define ZLC_SUPPORT_FNAME_H

#include <cstddef>
#include <string>

// Splits a path into directory (with its trailing "/"), base name and
// extension (without the "."); each part is cut to 499 characters.
void fn_split(const std::string& path, std::string* dir, std::string* base, std::string* ext);

// Joins directory, name and extension, adding a "/" after a directory that
// lacks one and a "." before an extension that lacks one.
std::string fn_build(const std::string& dir, const std::string& name, const std::string& ext = "");

// Adds `ext` when the path has no extension; replaces it only when `replace`.
std::string fn_addext(const std::string& path, const std::string& ext, bool replace);
std::string fn_delext(const std::string& path);
std::string fn_basename(const std::string& path);
bool fn_exists(const std::string& path);
bool fn_starts_with_dot_dot(const std::string& path);  // "./" or "../"

// A file name as it stands in a C string literal and back: identical here.
inline const std::string& cstr_to_fn(const std::string& s) { return s; }

// Case-insensitive comparison of at most `n` characters.
int strcaseincmp(const char* a, const char* b, size_t n);

#endif
