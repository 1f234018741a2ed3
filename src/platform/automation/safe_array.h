// A one-dimensional automation array. It keeps its own element type and
// lower bound, as the array descriptor does on the wire; the enclosing
// variant's type word is kept apart (see Variant::Array).
#pragma once

#include <cstdint>
#include <vector>

#include "platform/automation/variant.h"

namespace fk {

class SafeArray {
 public:
  SafeArray(std::uint16_t elementType, std::int32_t lowerBound = 0)
      : m_elementType(elementType), m_lowerBound(lowerBound) {}

  // A list of variant elements (element type 12) and a list of ints (type 3).
  static SafeArray OfVariants(std::vector<Variant> elements);
  static SafeArray OfInts(const std::vector<std::int32_t>& values);

  std::uint16_t ElementType() const { return m_elementType; }
  std::int32_t LowerBound() const { return m_lowerBound; }
  // The lower bound less one for an empty array; saturates at the largest int.
  std::int32_t UpperBound() const {
    const std::int64_t upper = std::int64_t{m_lowerBound} + static_cast<std::int64_t>(m_elements.size()) - 1;
    return upper > INT32_MAX ? INT32_MAX : static_cast<std::int32_t>(upper);
  }
  std::size_t Count() const { return m_elements.size(); }

  // Elements are addressed by their index from the lower bound; an index
  // out of the bounds throws OleException.
  const Variant& At(std::int32_t index) const;
  // Appends an element; its type must match the element type (any type for 12).
  void Append(Variant element);

  const std::vector<Variant>& Elements() const { return m_elements; }

 private:
  std::uint16_t m_elementType;
  std::int32_t m_lowerBound;
  std::vector<Variant> m_elements;
};

}  // namespace fk
