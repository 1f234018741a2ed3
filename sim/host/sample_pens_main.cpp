// sample-pens FILE: writes the sample pen file.
#include <cstdio>

#include "sim/host/sample_pens.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: sample-pens FILE\n");
    return 2;
  }
  if (!sim::WritePenFile(argv[1], sim::SamplePens())) {
    std::fprintf(stderr, "sample-pens: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
