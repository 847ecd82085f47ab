// One run of zlc9k over its command line.
#ifndef ZLC_ZELT_ZLC_RUN_H
#define ZLC_ZELT_ZLC_RUN_H

// Translates the source that the command line names and returns the exit
// status: 0 without errors, 1 with.  Fatal messages and faults end the
// process from within.
int run_zlc9k(int argc, char** argv);

#endif
