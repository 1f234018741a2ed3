#include "platform/automation/foreign_object.h"

#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"

namespace fk {
namespace {

// One object for each host object, however often the host hands it over
// (registered, returned from a call): its release runs once, when the
// library holds no reference to it any more.
using ObjectKey = std::pair<void*, void*>;  // the host's self and invoke callback

// Kept for the whole life of the process: objects held by the module's
// globals are released while the process ends, after ordinary statics are gone.
std::mutex& LiveMutex() {
  static auto* mutex = new std::mutex;
  return *mutex;
}
std::map<ObjectKey, std::weak_ptr<Dispatch>>& LiveObjects() {
  static auto* live = new std::map<ObjectKey, std::weak_ptr<Dispatch>>;
  return *live;
}

ObjectKey KeyOf(const fk_object& object) {
  return {object.self, reinterpret_cast<void*>(object.invoke)};
}

class ForeignObject final : public Dispatch {
 public:
  explicit ForeignObject(const fk_object& object) : m_object(object) {}
  ~ForeignObject() override {
    {
      std::lock_guard lock(LiveMutex());
      auto it = LiveObjects().find(KeyOf(m_object));
      if (it != LiveObjects().end() && it->second.expired()) LiveObjects().erase(it);
    }
    if (m_object.release) m_object.release(m_object.self);
  }

  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) override {
    std::vector<fk_value> views(args.size());
    std::vector<fk_value*> pointers(args.size());
    for (std::size_t i = 0; i < args.size(); ++i) {
      views[i].view = &args[i];
      views[i].target = &args[i];
      pointers[i] = &views[i];
    }
    Variant result;
    fk_value resultView;
    resultView.view = &result;
    resultView.target = &result;
    fk_error error;
    const int status = m_object.invoke(m_object.self, dispid, flags, pointers.data(),
                                       static_cast<std::int32_t>(pointers.size()), &resultView, &error);
    if (status != 0 || error.failed)
      throw DispatchException(error.description.empty() ? "The host reported a failure." : error.description);
    return result;
  }

 private:
  fk_object m_object;
};

}  // namespace

DispatchPtr MakeForeignObject(const fk_object& object) {
  std::lock_guard lock(LiveMutex());
  std::weak_ptr<Dispatch>& live = LiveObjects()[KeyOf(object)];
  if (DispatchPtr existing = live.lock()) return existing;
  DispatchPtr made = std::make_shared<ForeignObject>(object);
  live = made;
  return made;
}

}  // namespace fk

// ------------------------------------------------------------------ the C view of values
namespace {

// A C caller can take no exception: whatever a call on a value throws, a
// failed allocation included, becomes that call's failure value.
template <typename T, typename F>
T OrFailure(T failure, F&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

template <typename T, typename F>
T ReadOr(const fk_value* value, T fallback, F read) {
  if (!value || !value->view) return fallback;
  return OrFailure(fallback, [&] { return read(*value->view); });
}

template <typename F>
int Write(fk_value* value, F make) {
  if (!value || !value->target) return 0;
  return OrFailure(0, [&] {
    fk::Variant made = make();
    if (value->target->IsByRef())
      value->target->Assign(made);
    else
      *value->target = std::move(made);
    return 1;
  });
}

const fk::SafeArray* ArrayOf(const fk_value* value) {
  return ReadOr<const fk::SafeArray*>(value, nullptr, [](const fk::Variant& v) { return &v.ToArray(); });
}

}  // namespace

extern "C" {

uint16_t fk_value_type(const fk_value* value) { return value && value->view ? value->view->Type() : 0; }

int32_t fk_value_int(const fk_value* value) {
  return ReadOr<int32_t>(value, 0, [](const fk::Variant& v) { return v.ToInt(); });
}

int fk_value_bool(const fk_value* value) {
  return ReadOr<int>(value, 0, [](const fk::Variant& v) { return v.ToBool() ? 1 : 0; });
}

double fk_value_double(const fk_value* value) {
  return ReadOr<double>(value, 0.0, [](const fk::Variant& v) { return v.ToDouble(); });
}

const char* fk_value_text(const fk_value* value) {
  if (!value) return "";
  auto* self = const_cast<fk_value*>(value);
  return OrFailure<const char*>("", [&] {
    std::string text = ReadOr<std::string>(value, {}, [](const fk::Variant& v) { return v.ToText(); });
    // A text handed out earlier in the call stays as it was, even when the
    // value has been written since.
    if (self->texts.empty() || self->texts.back() != text) self->texts.push_back(std::move(text));
    return self->texts.back().c_str();
  });
}

uint16_t fk_value_array_element_type(const fk_value* value) {
  const fk::SafeArray* array = ArrayOf(value);
  return array ? array->ElementType() : 0;
}

int32_t fk_value_array_lower_bound(const fk_value* value) {
  const fk::SafeArray* array = ArrayOf(value);
  return array ? array->LowerBound() : 0;
}

int32_t fk_value_array_count(const fk_value* value) {
  const fk::SafeArray* array = ArrayOf(value);
  return array ? static_cast<int32_t>(array->Count()) : 0;
}

const fk_value* fk_value_array_element(const fk_value* value, int32_t index) {
  const fk::SafeArray* array = ArrayOf(value);
  if (!array || index < array->LowerBound() || index > array->UpperBound()) return nullptr;
  auto* self = const_cast<fk_value*>(value);
  return OrFailure<const fk_value*>(nullptr, [&] {
    fk_value& element = self->elements.emplace_back();
    element.view = &array->At(index);
    return &element;
  });
}

int fk_value_set_empty(fk_value* value) {
  return Write(value, [] { return fk::Variant(); });
}

int fk_value_set_int(fk_value* value, int32_t number) {
  return Write(value, [&] { return fk::Variant::Int(number); });
}

int fk_value_set_bool(fk_value* value, int flag) {
  return Write(value, [&] { return fk::Variant::Bool(flag != 0); });
}

int fk_value_set_double(fk_value* value, double number) {
  return Write(value, [&] { return fk::Variant::Double(number); });
}

int fk_value_set_text(fk_value* value, const char* text) {
  return Write(value, [&] { return fk::Variant::Text(text ? text : ""); });
}

int fk_value_set_object(fk_value* value, const fk_object* object) {
  return Write(value, [&] {
    return fk::Variant::Object(object && object->invoke ? fk::MakeForeignObject(*object) : nullptr);
  });
}

void fk_fail(fk_error* error, const char* description) {
  if (!error) return;
  error->failed = true;
  // Without memory for the text, the failure keeps the default description.
  OrFailure(false, [&] {
    error->description = description ? description : "";
    return true;
  });
}

}  // extern "C"
