/*
 * FK_API marks what libformkit.so shows its hosts: the exports and the host
 * C API. The library is built with hidden visibility, so nothing else can
 * leak; its version script lists the same names, and a test compares the
 * two with what the library shows.
 */
#ifndef FORMKIT_API_H
#define FORMKIT_API_H

#if defined(__GNUC__)
#define FK_API __attribute__((visibility("default")))
#else
#define FK_API
#endif

#endif /* FORMKIT_API_H */
