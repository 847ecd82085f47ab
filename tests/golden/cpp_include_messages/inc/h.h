#warn inside the header
#if 1
