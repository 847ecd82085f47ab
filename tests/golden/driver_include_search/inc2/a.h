#warn wrong a.h
