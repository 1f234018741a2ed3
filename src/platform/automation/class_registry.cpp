#include "platform/automation/class_registry.h"

#include <strings.h>

#include <utility>

#include "platform/automation/bus_classes.h"

namespace fk {

bool ClassRegistry::NoCase::operator()(const std::string& a, const std::string& b) const {
  return strcasecmp(a.c_str(), b.c_str()) < 0;
}

ClassRegistry& ClassRegistry::Instance() {
  static ClassRegistry registry;
  return registry;
}

// What a registration replaces or revokes is dropped only after the lock is
// released: dropping an object may run its owner's release callback, which
// may call back into the registry.

void ClassRegistry::RegisterClass(const std::string& progId, Factory factory) {
  Factory dropped;
  std::lock_guard lock(m_mutex);
  dropped = std::exchange(m_classes[progId], std::move(factory));
}

void ClassRegistry::RevokeClass(const std::string& progId) {
  Factory dropped;
  std::lock_guard lock(m_mutex);
  if (auto it = m_classes.find(progId); it != m_classes.end()) {
    dropped = std::move(it->second);
    m_classes.erase(it);
  }
}

void ClassRegistry::RegisterActiveObject(const std::string& progId, DispatchPtr object) {
  DispatchPtr dropped;
  std::lock_guard lock(m_mutex);
  dropped = std::exchange(m_active[progId], std::move(object));
}

void ClassRegistry::RevokeActiveObject(const std::string& progId) {
  DispatchPtr dropped;
  std::lock_guard lock(m_mutex);
  if (auto it = m_active.find(progId); it != m_active.end()) {
    dropped = std::move(it->second);
    m_active.erase(it);
  }
}

void ClassRegistry::SetRemote(std::shared_ptr<RemoteClasses> remote) {
  std::lock_guard lock(m_mutex);
  m_remote = std::move(remote);
  m_bRemoteChosen = true;
}

std::shared_ptr<RemoteClasses> ClassRegistry::Remote() {
  {
    std::lock_guard lock(m_mutex);
    if (m_bRemoteChosen) return m_remote;
  }
  // Connecting may block; it happens outside the lock, and a source set
  // meanwhile with SetRemote wins over the one found here.
  std::shared_ptr<RemoteClasses> sessionBus = SessionBusClasses();
  std::lock_guard lock(m_mutex);
  if (!m_bRemoteChosen) {
    m_remote = std::move(sessionBus);
    m_bRemoteChosen = true;
  }
  return m_remote;
}

DispatchPtr ClassRegistry::GetActiveObject(const std::string& progId) {
  {
    std::lock_guard lock(m_mutex);
    if (auto it = m_active.find(progId); it != m_active.end()) return it->second;
  }
  auto remote = Remote();
  return remote ? remote->GetActiveObject(progId) : nullptr;
}

DispatchPtr ClassRegistry::CreateObject(const std::string& progId) {
  Factory factory;
  {
    std::lock_guard lock(m_mutex);
    if (auto it = m_classes.find(progId); it != m_classes.end()) factory = it->second;
  }
  if (factory) return factory();
  auto remote = Remote();
  return remote ? remote->CreateObject(progId) : nullptr;
}

}  // namespace fk
