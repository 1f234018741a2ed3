// The cost of the library's boundary, as ratios measured in one run:
//   - loading: dlopen of libformkit.so in a fresh process against a floor
//     library that needs only GLib/GIO, SQLite, fmt and the C++ runtime;
//   - calling: exports that do no work of their own (CartomaLastError, and
//     GetProcessID, whose system call may dwarf the call) against the same
//     work in a plain function called through a pointer;
//   - a host round trip: CartomaEval on an in-process host that answers at
//     once, against calling that host object's Invoke directly.
//   boundary_bench LOAD-PROBE LIBFORMKIT FLOOR-LIBRARY
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "formkit/formkit.h"
#include "formkit/host.h"
#include "platform/automation/handle_table.h"
#include "platform/automation/variant.h"

namespace {

using Clock = std::chrono::steady_clock;

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

struct Load {
  double microseconds;
  int objects;
};

// dlopen in a fresh process each time, alternating, so that both see the
// same state of the machine's file cache.
std::pair<Load, Load> LoadBoth(const std::string& probe, const std::string& library, const std::string& floor) {
  std::vector<double> libraryTimes, floorTimes;
  int libraryObjects = 0, floorObjects = 0;
  for (int round = 0; round < 15; ++round)
    for (const auto& [path, times, objects] :
         {std::tie(library, libraryTimes, libraryObjects), std::tie(floor, floorTimes, floorObjects)}) {
      FILE* out = popen((probe + " " + path).c_str(), "r");
      double us = 0;
      if (!out || std::fscanf(out, "%lf %d", &us, &objects) != 2) std::exit(1);
      pclose(out);
      times.push_back(us);
    }
  return {{Median(libraryTimes), libraryObjects}, {Median(floorTimes), floorObjects}};
}

// Nanoseconds per call of `call`, the median of batches.
template <typename Call>
double NanosecondsPerCall(Call call) {
  constexpr int kBatch = 20000;
  std::vector<double> batches;
  for (int b = 0; b < 25; ++b) {
    const auto start = Clock::now();
    for (int i = 0; i < kBatch; ++i) call();
    batches.push_back(std::chrono::duration<double, std::nano>(Clock::now() - start).count() / kBatch);
  }
  return Median(batches);
}

__attribute__((noinline)) int PlainProcessId() { return getpid(); }

const std::string g_strLastError;
__attribute__((noinline)) const char* PlainLastError() { return g_strLastError.c_str(); }

int AnswerAtOnce(void*, int32_t, uint16_t, fk_value* const*, int32_t, fk_value* result, fk_error*) {
  return fk_value_set_text(result, "1") ? 0 : 1;
}

void Row(const char* what, double subject, double floor, const char* unit) {
  std::printf("%-52s %10.1f %10.1f %s %8.2fx %+10.1f %s\n", what, subject, floor, unit, subject / floor,
              subject - floor, unit);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: boundary_bench LOAD-PROBE LIBFORMKIT FLOOR-LIBRARY\n");
    return 2;
  }
  std::printf("%-52s %10s %10s    %9s %10s\n", "", "library", "floor", "ratio", "beyond");
  const auto [library, floor] = LoadBoth(argv[1], argv[2], argv[3]);
  Row("dlopen in a fresh process (us)", library.microseconds, floor.microseconds, "us");
  Row("shared objects mapped after dlopen", library.objects, floor.objects, "  ");

  const char* (*volatile lastErrorExport)() = CartomaLastError;
  const char* (*volatile lastErrorPlain)() = PlainLastError;
  Row("CartomaLastError against the same plain call (ns)", NanosecondsPerCall([&] { lastErrorExport(); }),
      NanosecondsPerCall([&] { lastErrorPlain(); }), "ns");
  int (*volatile exportCall)() = GetProcessID;
  int (*volatile plainCall)() = PlainProcessId;
  Row("GetProcessID against the same plain call (ns)", NanosecondsPerCall([&] { exportCall(); }),
      NanosecondsPerCall([&] { plainCall(); }), "ns");

  const fk_object host = {nullptr, AnswerAtOnce, nullptr};
  const int32_t handle = fk_register_object(&host);
  const fk::DispatchPtr object = fk::HandleTable::Instance().Find(handle);
  constexpr int32_t kEval = 0x6001000C;  // the host's Eval
  Row("CartomaEval against the host's own Invoke (ns)", NanosecondsPerCall([&] { CartomaEval(handle, "1"); }),
      NanosecondsPerCall([&] {
        fk::Variant args[] = {fk::Variant::Text("1")};
        object->Invoke(kEval, 1, args);
      }),
      "ns");
  fk_revoke_object(handle);
  return 0;
}
