// The Datamine and MineSight exports of a 100,000-node table through the
// in-process host emulator, in nodes per second, with the share of the time
// that the library's own code takes (building the records and writing
// them) against the host round trips; and the writers alone.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "exchange/datamine_format.h"
#include "exchange/minesight_format.h"
#include "host/cartoma.h"
#include "platform/ui/headless/headless_progress.h"
#include "sim/host/emulator.h"
#include "sim/host/linked_c_api.h"

namespace {

constexpr int kRows = 10000;
constexpr int kNodesPerRow = 10;

// A host with the table "Lines": kRows polylines of kNodesPerRow nodes in
// metres, each with a name, and the library's session connected to it.
class BenchHost {
 public:
  BenchHost() {
    sim::Host& host = m_emulator.GetHost();
    host.Do("Set CoordSys NonEarth Units \"m\"");
    host.Do("Create Table Lines (Name Char (16))");
    host.Do("Dim p As Object");
    for (int row = 1; row <= kRows; ++row) {
      std::string pline = "Create Pline Into Variable p " + std::to_string(kNodesPerRow);
      for (int node = 0; node < kNodesPerRow; ++node)
        pline += " (" + std::to_string(255000.125 + row + node * 0.5) + ", " +
                 std::to_string(5925000.375 + row * 0.25 - node) + ")";
      host.Do("Insert Into Lines (Name) Values(\"line " + std::to_string(row) + "\")");
      host.Do(pline);
      host.Do("Update Lines Set Obj = p Where RowID = " + std::to_string(row));
    }
    setenv("FORMKIT_UI", "headless", 1);
    m_emulator.AddScript("terravik.cbx");
    g_Cartoma.Connect(m_registration.Handle(), 1);
    fk::ui::HeadlessProgress::SetQuiet(true);
  }

 private:
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
};

BenchHost& Host() {
  static BenchHost host;
  return host;
}

// A file format that keeps the time spent in the format's own code.
class TimedFormat : public NodeFileFormat {
 public:
  explicit TimedFormat(NodeFileFormat& format) : m_format(format) {}
  std::string ProgressText(const std::string& path, const std::string& table) const override {
    return m_format.ProgressText(path, table);
  }
  void WriteHead(fk::TextWriter& file, const std::vector<std::string>& attributes,
                 const fk::DateTimeParts& today) override {
    Timed([&] { m_format.WriteHead(file, attributes, today); });
  }
  std::string AttributeField(const std::string& value) const override {
    std::string field;
    Timed([&] { field = m_format.AttributeField(value); });
    return field;
  }
  void WriteNode(fk::TextWriter& file, const ExportNode& node, const std::vector<std::string>& values) override {
    Timed([&] { m_format.WriteNode(file, node, values); });
  }
  double Seconds() const { return m_dSeconds; }

 private:
  template <typename Work>
  void Timed(Work work) const {
    const auto start = std::chrono::steady_clock::now();
    work();
    m_dSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  NodeFileFormat& m_format;
  mutable double m_dSeconds = 0;
};

void RunExport(benchmark::State& state, NodeFileFormat& format) {
  Host();
  NodeExportOptions options;
  options.table = "Lines";
  options.path = "/dev/null";
  options.attributes = {"Name"};
  options.multiplyX = 2;
  options.addZ = 100;
  TimedFormat timed(format);
  double total = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    std::string message;
    if (ExportTableNodes(options, timed, message) != 1) state.SkipWithError(message.c_str());
    total += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }
  state.SetItemsProcessed(state.iterations() * kRows * kNodesPerRow);
  state.counters["own_share_%"] = 100 * timed.Seconds() / total;
}

void BM_DatamineExport(benchmark::State& state) {
  CDatamineFormat format;
  RunExport(state, format);
}
BENCHMARK(BM_DatamineExport)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_MineSightExport(benchmark::State& state) {
  CMineSightFormat format(true);
  RunExport(state, format);
}
BENCHMARK(BM_MineSightExport)->Unit(benchmark::kMillisecond)->Iterations(3);

// The writers alone: records of 100,000 nodes with one attribute.
void RunWriter(benchmark::State& state, NodeFileFormat& format) {
  fk::TextWriter file;
  file.Open("/dev/null", "w");
  const std::vector<std::string> values = {format.AttributeField("line 4711")};
  for (auto _ : state)
    for (int n = 0; n < kRows * kNodesPerRow; ++n)
      format.WriteNode(file, {n / kNodesPerRow + 1, n % kNodesPerRow + 1, 510250.25 + n, 5925000.375 - n, 100}, values);
  state.SetItemsProcessed(state.iterations() * kRows * kNodesPerRow);
}

void BM_DatamineWriter(benchmark::State& state) {
  CDatamineFormat format;
  RunWriter(state, format);
}
BENCHMARK(BM_DatamineWriter)->Unit(benchmark::kMillisecond);

void BM_MineSightWriter(benchmark::State& state) {
  CMineSightFormat format(true);
  RunWriter(state, format);
}
BENCHMARK(BM_MineSightWriter)->Unit(benchmark::kMillisecond);

}  // namespace
