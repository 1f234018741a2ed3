// Exports that draw the host's line styles and measure layout text.
#include <exception>
#include <span>

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "maptools/layout_text.h"
#include "maptools/style_line.h"
#include "platform/draw/dc_handles.h"

// Runs with no module guard, as the host calls it while it paints.
extern "C" void DrawCMStyleLine(int32_t dc, const char* file, int32_t index, int32_t colour, int32_t width,
                                int32_t* points, int32_t count) {
  try {
    const std::shared_ptr<fk::draw::DeviceContext> context = fk::draw::FindDeviceContext(dc);
    if (!context || !points || count < 1) return;
    const std::span<fk::draw::Point> line(reinterpret_cast<fk::draw::Point*>(points), static_cast<std::size_t>(count));
    stylelines::DrawCMStyleLine(*context, TextArg(file), index, static_cast<std::uint32_t>(colour),
                                static_cast<std::int16_t>(width), line);
  } catch (...) {
    fk::ReportUncaught("DrawCMStyleLine", std::current_exception());
  }
}

extern "C" float GetLayoutTextHeight(const char* font, int32_t size) {
  return fk::GuardedCall("GetLayoutTextHeight", 0.0f, [&] { return LayoutTextHeight(TextArg(font), size); });
}

extern "C" float GetLayoutTextLength(const char* text, const char* font, int32_t size) {
  return fk::GuardedCall("GetLayoutTextLength", 0.0f,
                         [&] { return LayoutTextLength(TextArg(text), TextArg(font), size); });
}
