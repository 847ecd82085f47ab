// Writing held text to its stream; the writers of the two output files.
#include "ZELT_ZLC/text_out.h"

#include "ZELT_ZLC/driver.h"

void TEXT_OUT::flush() {
  if (held.empty()) return;
  out.write(held.data(), static_cast<std::streamsize>(held.size()));
  handed += held.size();
  held.clear();
}

namespace {

TEXT_OUT* made_source = nullptr;
TEXT_OUT* made_header = nullptr;

}  // namespace

// Made at their first use, after the streams, and so gone before them at
// the end of the run.
TEXT_OUT& source_text() {
  static TEXT_OUT text(outfile);
  made_source = &text;
  return text;
}

TEXT_OUT& header_text() {
  static TEXT_OUT text(header_file);
  made_header = &text;
  return text;
}

void flush_text_outputs() {
  if (made_source) made_source->flush();
  if (made_header) made_header->flush();
}
