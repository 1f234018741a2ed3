// The scripts running in the host (the CBXApplications collection): each
// with its global variables, the commands sent to it, and the answers it
// gives to Eval. Every script answers the projection picker's two
// questions: "PROJECTION SELECTION" shows the picker and gives the chosen
// coordinate clause (without the words "Earth Projection") or "" when the
// user cancels; "LAST PROJECTION NICENAME" gives the chosen system's name.
// A test (or the command line) sets what the user will pick.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace sim {

struct NoCaseLess {
  bool operator()(const std::string& a, const std::string& b) const;
};

struct Script {
  std::string name;
  std::map<std::string, std::string, NoCaseLess> globals;
  std::vector<std::string> commands;  // what Do sent, in order
};

class Scripts {
 public:
  Script& Add(const std::string& name);
  Script* Find(const std::string& name);
  void Remove(const std::string& name);
  const std::map<std::string, Script, NoCaseLess>& All() const { return m_scripts; }

  // The next pick of the projection picker: a clause and its name.
  void QueueProjection(const std::string& clause, const std::string& niceName);
  // A script's Do: "name = value" sets a global; every command is kept.
  void Do(Script& script, const std::string& command);
  // A script's Eval: the picker's questions, else a global by name;
  // throws HostError for anything else.
  std::string Eval(Script& script, const std::string& query);

 private:
  struct Pick {
    std::string clause;
    std::string niceName;
  };
  std::map<std::string, Script, NoCaseLess> m_scripts;
  std::deque<Pick> m_picks;
  std::string m_strLastNiceName;
};

}  // namespace sim
