#include "faulty_viewer.h"

#include <unistd.h>

#include <cstdlib>

#include "platform/automation/exceptions.h"

namespace tv {
namespace {

class FaultyObject final : public fk::Dispatch {
 public:
  FaultyObject(fk::DispatchPtr object, std::shared_ptr<Fault> fault)
      : m_object(std::move(object)), m_fault(std::move(fault)) {}
  fk::Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<fk::Variant> args) override {
    m_fault->BeforeCall();
    return m_object->Invoke(dispid, flags, args);
  }

 private:
  fk::DispatchPtr m_object;
  std::shared_ptr<Fault> m_fault;
};

}  // namespace

std::shared_ptr<Fault> Fault::FromText(const std::string& text) {
  auto fault = std::make_shared<Fault>();
  if (text == "fail")
    fault->m_bFailEvery = true;
  else if (text.starts_with("exit:"))
    fault->m_nExitAtCall = std::atoi(text.c_str() + 5);
  else
    return nullptr;
  return fault;
}

void Fault::BeforeCall() {
  if (m_bFailEvery) throw fk::DispatchException("The viewer has failed");
  if (++m_nCalls == m_nExitAtCall) _exit(3);
}

fk::DispatchPtr WithFault(fk::DispatchPtr object, std::shared_ptr<Fault> fault) {
  return fault ? std::make_shared<FaultyObject>(std::move(object), std::move(fault)) : object;
}

}  // namespace tv
