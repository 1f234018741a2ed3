// The wizards' start: the collar table's hole ids read row by row through
// the in-process host emulator (two host calls a row), then the host's
// selection of every tenth hole moved to the chosen list (a search of the
// available names for each), in holes per second.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "host/cartoma.h"
#include "sim/host/emulator.h"
#include "sim/host/linked_c_api.h"
#include "wizards/hole_list.h"

namespace {

// A host with the table "Collars" of `holes` hole ids, its id column named
// by its metadata, and the library's session connected to it.
class CollarHost {
 public:
  explicit CollarHost(int holes) {
    sim::Host& host = m_emulator.GetHost();
    host.Do("Create Table Collars (HoleID Char (16))");
    for (int row = 1; row <= holes; ++row)
      host.Do("Insert Into Collars (HoleID) Values(\"H" + std::to_string(row) + "\")");
    host.Do("Metadata Table Collars SetKey \"\\Terravik\\xsects\\collar\\CH\" To \"1\"");
    setenv("FORMKIT_UI", "headless", 1);
    m_emulator.AddScript("terravik.cbx");
    g_Cartoma.Connect(m_registration.Handle(), 1);
  }
  void Select(bool everyTenth) {
    g_Cartoma.Do(everyTenth ? "Select * From Collars Where RowID Mod 10 = 0" : "Select * From Collars Where 0");
  }

 private:
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
};

void BM_ReadHoles(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  CollarHost host(holes);
  host.Select(state.range(1) != 0);
  for (auto _ : state) {
    CDrillholeWizDlg dialog;
    ReadHoles(dialog, "Collars", IdColumnOf("Collars", "\\Terravik\\xsects\\collar\\CH"));
    benchmark::DoNotOptimize(dialog.m_SelectedNames.size());
  }
  state.SetItemsProcessed(state.iterations() * holes);
}
BENCHMARK(BM_ReadHoles)->Args({1000, 0})->Args({1000, 1})->Args({5000, 0})->Args({5000, 1})->Unit(benchmark::kMillisecond);

}  // namespace
