// The token reader of georeference files: the field after `index`
// delimiters, scanned as a number. False when the text has fewer
// delimiters, or no number stands at the start of that field.
#pragma once

#include <cstdint>
#include <string_view>

bool GetDelimitedField(std::string_view text, char delimiter, int index, double& value);
bool GetDelimitedField(std::string_view text, char delimiter, int index, std::int32_t& value);
