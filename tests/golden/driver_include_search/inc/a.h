#warn a.h from the first path
