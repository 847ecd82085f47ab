#warn b.h from the second path
