// The record of every call the simulator answered: the object, the dispatch
// id, the invoke flags and each argument with its type word, one line a
// call, appended to a file as the call arrives (so a test reads it while
// the simulator runs).
//
// A line:  OBJECT DISPID flags=F ARG ARG ...
// An argument is TYPEWORD(hex):VALUE; a text is in double quotes, a list is
// [ELEMENTTYPE;LOWERBOUND|E1,E2,...], a reference shows what it pointed at.
#pragma once

#include <cstdint>
#include <fstream>
#include <span>
#include <string>

#include "platform/automation/variant.h"

namespace tv {

std::string DescribeValue(const fk::Variant& value);

class CallRecord {
 public:
  // With an empty path nothing is written.
  explicit CallRecord(const std::string& path);
  void Add(const std::string& object, std::int32_t dispid, std::uint16_t flags, std::span<const fk::Variant> args);

 private:
  std::ofstream m_out;
};

}  // namespace tv
