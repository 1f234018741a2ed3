// Hotlinks written on a handheld: values behind "link:" with the device's
// folders and its Pocket Word and Pocket Excel extensions, rewritten row by
// row in the host's open table as plain paths for the desktop. The table is
// not saved here.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct HotlinkOptions {
  bool changeDirectory = false;
  std::string newDirectory;  // put in front of the file name exactly as given
  bool pocketWord = true;    // ".psw" becomes ".doc"
  bool pocketExcel = true;   // ".pxl" becomes ".xls"
};

// The desktop form of a value, as the host's string expression, or nothing
// when the value holds no "link:". The value is lower-cased, loses every
// "link:" and its drive, and is split and joined again as told.
std::optional<std::string> ConvertHotlinkValue(const std::string& value, const HotlinkOptions& options);

// Rewrites the chosen fields of every row under a progress window: 1, or 0
// when the user cancelled ("Operation aborted by user." in `message`);
// rows done by then stay changed.
int ConvertLinks(const std::string& table, const std::vector<std::string>& fields, const HotlinkOptions& options,
                 std::string& message);
