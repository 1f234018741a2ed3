// Classes of automation objects by ProgID, and the objects that are running.
//
// Objects of the same process come first: a class registered with a factory,
// an object registered as the running one of its class (a host in the same
// process, a test). Then the classes outside the process, through the remote
// class source (the session bus).
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/automation/dispatch.h"

namespace fk {

// Where objects of other processes come from.
class RemoteClasses {
 public:
  virtual ~RemoteClasses() = default;
  // The running object of the class, or null when none runs.
  virtual DispatchPtr GetActiveObject(const std::string& progId) = 0;
  // A new object of the class, started if need be, or null.
  virtual DispatchPtr CreateObject(const std::string& progId) = 0;
};

class ClassRegistry {
 public:
  using Factory = std::function<DispatchPtr()>;

  static ClassRegistry& Instance();

  void RegisterClass(const std::string& progId, Factory factory);
  void RevokeClass(const std::string& progId);
  void RegisterActiveObject(const std::string& progId, DispatchPtr object);
  void RevokeActiveObject(const std::string& progId);
  // Replaces the source of objects of other processes; null for none. Until
  // this is called, the session bus (SessionBusClasses) is the source, chosen
  // on first use.
  void SetRemote(std::shared_ptr<RemoteClasses> remote);

  DispatchPtr GetActiveObject(const std::string& progId);
  DispatchPtr CreateObject(const std::string& progId);

 private:
  struct NoCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  std::shared_ptr<RemoteClasses> Remote();

  std::mutex m_mutex;
  std::map<std::string, Factory, NoCase> m_classes;
  std::map<std::string, DispatchPtr, NoCase> m_active;
  std::shared_ptr<RemoteClasses> m_remote;
  bool m_bRemoteChosen = false;
};

}  // namespace fk
