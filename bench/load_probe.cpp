// load_probe LIBRARY: loads the library with dlopen in this fresh process
// and prints the microseconds it took and how many shared objects the
// process then maps.
#include <dlfcn.h>
#include <link.h>

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const auto start = std::chrono::steady_clock::now();
  void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  const auto end = std::chrono::steady_clock::now();
  if (!library) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  int objects = 0;
  dl_iterate_phdr([](dl_phdr_info*, size_t, void* count) { return ++*static_cast<int*>(count), 0; }, &objects);
  std::printf("%.1f %d\n", std::chrono::duration<double, std::micro>(end - start).count(), objects);
  return 0;
}
