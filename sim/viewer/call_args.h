// Reading a call's arguments by position, as the viewer's members take them:
// a wrong count or kind fails the call with a description.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/variant.h"

namespace tv {

class CallArgs {
 public:
  CallArgs(const char* member, std::span<fk::Variant> args, std::size_t count);

  std::int32_t Int(std::size_t i) const;
  bool Bool(std::size_t i) const;
  std::string Text(std::size_t i) const;
  // The elements of a list, which must arrive as a reference to a variant
  // of type word 0x2000 alone holding an array with lower bound 0.
  std::vector<fk::Variant> List(std::size_t i) const;
  std::vector<std::string> TextList(std::size_t i) const;
  std::vector<std::int32_t> IntList(std::size_t i) const;
  // Writes through a reference argument.
  void Out(std::size_t i, const fk::Variant& value) const;

 private:
  const fk::Variant& At(std::size_t i) const;
  std::string m_member;
  std::span<fk::Variant> m_args;
};

}  // namespace tv
