#include "platform/automation/safe_array.h"

#include "platform/automation/exceptions.h"

namespace fk {

SafeArray SafeArray::OfVariants(std::vector<Variant> elements) {
  SafeArray array(VT_VARIANT);
  for (auto& element : elements) array.Append(std::move(element));
  return array;
}

SafeArray SafeArray::OfInts(const std::vector<std::int32_t>& values) {
  SafeArray array(VT_I4);
  for (std::int32_t value : values) array.Append(Variant::Int(value));
  return array;
}

// The index is checked against the count: the upper bound of an empty array
// from the smallest int is no real bound.
const Variant& SafeArray::At(std::int32_t index) const {
  const std::int64_t offset = std::int64_t{index} - m_lowerBound;
  if (offset < 0 || offset >= static_cast<std::int64_t>(m_elements.size())) throw OleException("Invalid index.");
  return m_elements[static_cast<std::size_t>(offset)];
}

void SafeArray::Append(Variant element) {
  if (m_elementType != VT_VARIANT && element.Type() != m_elementType) throw OleException("Type mismatch.");
  m_elements.push_back(std::move(element));
}

}  // namespace fk
