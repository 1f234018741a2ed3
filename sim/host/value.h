// A value of the statement language: nothing, a number, a text, a truth
// value, an object (with the coordinate system its nodes are in) or a style.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "coordsys.h"
#include "geometry.h"
#include "styles.h"

namespace sim {

// An object as an expression yields it: the object and the system of its nodes.
struct ObjectValue {
  ObjectPtr object;
  std::shared_ptr<const CoordSys> coordsys;
};

class Value {
 public:
  Value() = default;
  Value(double number) : m_value(number) {}
  Value(std::string text) : m_value(std::move(text)) {}
  Value(const char* text) : m_value(std::string(text)) {}
  Value(bool flag) : m_value(flag) {}
  Value(ObjectValue object) : m_value(std::move(object)) {}
  Value(Style style) : m_value(std::move(style)) {}

  bool IsNull() const { return std::holds_alternative<std::monostate>(m_value); }
  bool IsNumber() const { return std::holds_alternative<double>(m_value); }
  bool IsText() const { return std::holds_alternative<std::string>(m_value); }
  bool IsBool() const { return std::holds_alternative<bool>(m_value); }
  bool IsObject() const { return std::holds_alternative<ObjectValue>(m_value); }
  bool IsStyle() const { return std::holds_alternative<Style>(m_value); }

  // Conversions; each throws HostError with `what` naming the value when
  // the value can't be read so.
  double AsNumber(const std::string& what = "the value") const;
  std::string AsText() const;  // numbers as the host writes them, truth as "T" or "F"
  bool AsBool(const std::string& what = "the value") const;
  const ObjectValue& AsObject(const std::string& what = "the value") const;
  const Style& AsStyle(const std::string& what = "the value") const;

 private:
  std::variant<std::monostate, double, std::string, bool, ObjectValue, Style> m_value;
};

}  // namespace sim
