// Sizes of layout text for the host's scripts, from the screen's metrics.
#pragma once

#include <string>

// The height of "A" in the font `face` of `points` size, scaled by 0.027.
float LayoutTextHeight(const std::string& face, int points);
// The width of `text` followed by "XXX", scaled likewise.
float LayoutTextLength(const std::string& text, const std::string& face, int points);
