// Every export that talks to the host, against a host that fails every
// call or answers nonsense: wrong types, empty texts, texts of a megabyte,
// negative numbers. No export may crash, hang or let an exception out; a
// host that fails every call gives each its failure result; and the library
// works normally afterwards with a good host. (A connection itself can't
// fail on the host's answers, and a box its user ends with OK ends with OK,
// so only the exports that ask the host for their result must fail.)
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <memory>
#include <string>

#include "formkit/formkit.h"
#include "platform/automation/exceptions.h"
#include "support/host/emulated_host.h"

namespace {

enum class Spoil { FailEveryCall, WrongTypes, EmptyTexts, MegabyteTexts, NegativeNumbers };

// The emulator behind a host that spoils each answer, and the answers of
// every object it gives back, as its mode says.
class HostileObject final : public fk::Dispatch {
 public:
  HostileObject(fk::DispatchPtr inner, Spoil mode) : m_inner(std::move(inner)), m_mode(mode) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    if (m_mode == Spoil::FailEveryCall) throw fk::DispatchException("the host is not answering");
    return Spoiled(m_inner->Invoke(dispid, flags, args));
  }

 private:
  fk::Variant Spoiled(const fk::Variant& answer) const {
    const bool object = answer.Type() == fk::VT_DISPATCH, text = answer.Type() == fk::VT_BSTR;
    switch (m_mode) {
      case Spoil::WrongTypes:
        if (object) return fk::Variant::Text("not an object");
        if (text) return fk::Variant::Object(std::make_shared<HostileObject>(nullptr, Spoil::FailEveryCall));
        return fk::Variant::Text("many");
      case Spoil::EmptyTexts:
        if (text) return fk::Variant::Text("");
        break;
      case Spoil::MegabyteTexts:
        if (text) return fk::Variant::Text(std::string(1 << 20, 'x'));
        break;
      case Spoil::NegativeNumbers:
        if (answer.Type() == fk::VT_I4 || answer.Type() == fk::VT_R8) return fk::Variant::Int(-2147483647 - 1);
        break;
      case Spoil::FailEveryCall: break;
    }
    if (!object || !answer.ToObject()) return answer;  // an empty object stays empty
    return fk::Variant::Object(std::make_shared<HostileObject>(answer.ToObject(), m_mode));
  }

  fk::DispatchPtr m_inner;
  Spoil m_mode;
};

struct HostExport {
  const char* name;
  std::function<std::string(std::int32_t host)> call;  // the result as text
  std::optional<std::string> failure;                   // with a host that fails every call
};

std::string Number(int result) { return std::to_string(result); }
std::string Text(const char* result) { return result ? result : "(null)"; }

// Each export as a script calls it, on a table the good host has open.
std::vector<HostExport> HostExports(const std::string& workspace) {
  static const char* items[] = {"Map1\tcollars", "Map2\tdem"};
  static std::int32_t ticks[2], method, pan, flags[4];
  static char symbol[1 << 21];
  return {
      {"ConnectToCartoma", [](std::int32_t h) { return Number(ConnectToCartoma(h)); }, std::nullopt},
      {"ConnectToCartomaWithoutAppCheck", [](std::int32_t h) { return Number(ConnectToCartomaWithoutAppCheck(h)); },
       std::nullopt},
      {"CartomaDo", [](std::int32_t h) { return Number(CartomaDo(h, "Fetch First From collars")); }, "0"},
      {"CartomaEval", [](std::int32_t h) { return Text(CartomaEval(h, "TableInfo(collars, 8)")); }, ""},
      {"DoDDECommand", [](std::int32_t h) { return Number(DoDDECommand(h, "terravik.cbx", "Refresh")); }, "0"},
      {"GetDDEQuery", [](std::int32_t h) { return Text(GetDDEQuery(h, "terravik.cbx", "Version")); }, ""},
      {"GetCBXVariable", [](std::int32_t h) { return Text(GetCBXVariable(h, "terravik.cbx", "gsName")); }, ""},
      {"GetCartomaTableFieldValue",
       [](std::int32_t h) { return Text(GetCartomaTableFieldValue(h, "collars", "HoleID")); }, ""},
      {"DatamineExport", [](std::int32_t h) { return Number(DatamineExport(h)); }, std::nullopt},
      {"MineSightExport", [](std::int32_t h) { return Number(MineSightExport(h)); }, std::nullopt},
      {"OGBImport", [](std::int32_t h) { return Number(OGBImport(h)); }, std::nullopt},
      {"ConvertHotlinks", [](std::int32_t h) { return Number(ConvertHotlinks(h)); }, std::nullopt},
      {"SetLayerSectionPlane", [](std::int32_t h) { return Number(SetLayerSectionPlane(h)); }, std::nullopt},
      {"MultiReProject", [](std::int32_t h) { return Number(MultiReProject(h)); }, std::nullopt},
      {"LinkWinodowListDialog",
       [](std::int32_t h) { return Number(LinkWinodowListDialog(items, ticks, 2, &method, h)); }, std::nullopt},
      {"WorkspaceEditor",
       [workspace](std::int32_t h) {
         return Number(WorkspaceEditor(h, workspace.c_str(), 0, 0, &flags[0], &flags[1], &flags[2], &flags[3]));
       },
       std::nullopt},
      {"WorkspaceCustomSave", [](std::int32_t h) { return Number(WorkspaceCustomSave(h)); }, "0"},
      {"WorkspaceCustomLoad", [workspace](std::int32_t h) { return Number(WorkspaceCustomLoad(h, workspace.c_str())); },
       std::nullopt},
      // These work on the session an export before them connected.
      {"ColorTableObjects",
       [](std::int32_t) { return Number(ColorTableObjects("collars", "/copy/colours.tab", "R", "G", "B", 1, 1, 1, 2, 0)); }, "0"},
      {"CurPosWinodowListDialog",
       [](std::int32_t) { return Number(CurPosWinodowListDialog(items, ticks, 2, &pan, symbol)); }, std::nullopt},
      {"SaveAllOpenGridsInRegistry", [](std::int32_t) { return Number(SaveAllOpenGridsInRegistry()); }, std::nullopt},
  };
}

class HostileHost : public EmulatorSessionTest {
 protected:
  // Calls every export with the hostile host, each of its boxes pressed OK
  // then Cancel; the exports' results by name.
  std::map<std::string, std::string> CallEveryExport(Spoil mode, const std::string& workspace) {
    sim::CApiRegistration hostile(sim::LinkedHostCApi(),
                                  std::make_shared<HostileObject>(m_emulator.Application(), mode));
    std::map<std::string, std::string> results;
    for (const HostExport& e : HostExports(workspace)) {
      m_ui.Clear();
      m_ui.OnDialog(0, [](fk::ui::HeadlessDialog& box) {
        box.Press(fk::ui::IDOK);
        if (!box.Ended()) box.Press(fk::ui::IDCANCEL);
      });
      results[e.name] = e.call(hostile.Handle());
    }
    return results;
  }
};

TEST_F(HostileHost, NoExportCrashesAFailingHostGivesEachItsFailureAndAGoodHostWorksAfterwards) {
  Open("collars", "collars");
  const std::string workspace = m_folder.Write("site.wor", "Open Table \"collars.tab\" As collars\r\n");
  for (const Spoil mode :
       {Spoil::FailEveryCall, Spoil::WrongTypes, Spoil::EmptyTexts, Spoil::MegabyteTexts, Spoil::NegativeNumbers}) {
    const std::map<std::string, std::string> results = CallEveryExport(mode, workspace);
    if (mode == Spoil::FailEveryCall) {
      for (const HostExport& e : HostExports(workspace)) {
        if (e.failure) {
          EXPECT_EQ(results.at(e.name), *e.failure) << e.name;
        }
      }
    }

    const std::int32_t good = m_registration.Handle();
    ASSERT_EQ(ConnectToCartoma(good), 1) << "after mode " << static_cast<int>(mode);
    EXPECT_EQ(std::string(CartomaEval(good, "TableInfo(collars, 8)")), "5");
    ASSERT_EQ(CartomaDo(good, "Fetch First From collars"), 1);
    EXPECT_NE(std::string(GetCartomaTableFieldValue(good, "collars", "HoleID")), "");
  }
}

}  // namespace
