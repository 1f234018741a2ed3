// A line drawn in a pen of the host's pen file, the interpreter's messages
// shown in message boxes.
#include "host/pen_file.h"
#include "maptools/style_line.h"
#include "platform/ui/ui_backend.h"

namespace stylelines {

void DrawCMStyleLine(fk::draw::DeviceContext& dc, const std::string& path, int index, std::uint32_t colour,
                     std::int16_t lineWidth, std::span<fk::draw::Point> points) {
  std::vector<std::string> passes;
  ReadPenPasses(path, index, passes);
  static CStyleLine interpreter([](const char* text) {
    fk::ui::CurrentUi().GetPrompter().MessageBox(text, fk::ui::MB_OK);
  });
  interpreter.Draw(dc, passes, colour, lineWidth, points);
}

}  // namespace stylelines
