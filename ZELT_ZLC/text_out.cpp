// Writing held text to its stream; the writers of the two output files.
#include "ZELT_ZLC/text_out.h"

#include "ZELT_ZLC/driver.h"

void TEXT_OUT::flush() {
  if (held.empty()) return;
  out.write(held.data(), static_cast<std::streamsize>(held.size()));
  handed += held.size();
  held.clear();
}

// Made at their first use, after the streams, and so gone before them at
// the end of the run, which hands the streams whatever is still held.
TEXT_OUT& source_text() {
  static TEXT_OUT text(outfile);
  return text;
}

TEXT_OUT& header_text() {
  static TEXT_OUT text(header_file);
  return text;
}
