#include "value.h"

#include "errors.h"
#include "text_util.h"

namespace sim {

double Value::AsNumber(const std::string& what) const {
  if (const auto* number = std::get_if<double>(&m_value)) return *number;
  if (const auto* flag = std::get_if<bool>(&m_value)) return *flag ? 1 : 0;
  if (const auto* text = std::get_if<std::string>(&m_value)) {
    try {
      std::size_t used = 0;
      const double number = std::stod(*text, &used);
      if (text->find_first_not_of(" \t", used) == std::string::npos) return number;
    } catch (const std::exception&) {
    }
    throw HostError(what + " \"" + *text + "\" is not a number");
  }
  if (IsNull()) return 0;
  throw HostError(what + " is not a number");
}

std::string Value::AsText() const {
  if (const auto* number = std::get_if<double>(&m_value)) return FormatNumber(*number);
  if (const auto* text = std::get_if<std::string>(&m_value)) return *text;
  if (const auto* flag = std::get_if<bool>(&m_value)) return *flag ? "T" : "F";
  if (const auto* style = std::get_if<Style>(&m_value)) return style->Text();
  if (const auto* object = std::get_if<ObjectValue>(&m_value))
    return object->object ? KindName(object->object->kind) : std::string();
  return {};
}

bool Value::AsBool(const std::string& what) const {
  if (const auto* flag = std::get_if<bool>(&m_value)) return *flag;
  if (const auto* number = std::get_if<double>(&m_value)) return *number != 0;
  if (const auto* text = std::get_if<std::string>(&m_value)) {
    if (EqualNoCase(*text, "T") || EqualNoCase(*text, "True")) return true;
    if (EqualNoCase(*text, "F") || EqualNoCase(*text, "False") || text->empty()) return false;
  }
  if (IsNull()) return false;
  throw HostError(what + " is not a truth value");
}

const ObjectValue& Value::AsObject(const std::string& what) const {
  const auto* object = std::get_if<ObjectValue>(&m_value);
  if (!object || !object->object) throw HostError(what + " holds no object");
  return *object;
}

const Style& Value::AsStyle(const std::string& what) const {
  if (const auto* style = std::get_if<Style>(&m_value)) return *style;
  throw HostError(what + " is not a style");
}

}  // namespace sim
