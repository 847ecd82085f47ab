// zlc9k: translates one file of ZELT kernels into C++ for the Q9k processor.
#include "ZELT_ZLC/run.h"

int main(int argc, char** argv) { return run_zlc9k(argc, argv); }
