#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "World.h"

namespace pellora::protocol {

/// One way to run a routine. `arrange` prepares a new world, `act` runs the routine in it.
struct Scenario {
  /// Object and routine, "frmAddRibbon.LoadTable".
  std::string_view routine;
  /// What is special about this run; empty for the usual one.
  std::string_view circumstances;
  std::function<void(World&)> arrange;
  std::function<void(World&)> act;

  std::string Title() const {
    std::string title(routine);
    return circumstances.empty() ? title : title + ", " + std::string(circumstances);
  }
};

std::vector<Scenario> ProjectScenarios();
std::vector<Scenario> ContractScenarios();
std::vector<Scenario> EditorScenarios();
std::vector<Scenario> TapeScenarios();

/// Every routine under the error protocol in at least one scenario.
inline const std::vector<Scenario>& AllScenarios() {
  static const std::vector<Scenario> all = [] {
    std::vector<Scenario> scenarios;
    for (const auto& part : {ProjectScenarios(), ContractScenarios(), EditorScenarios(), TapeScenarios()})
      scenarios.insert(scenarios.end(), part.begin(), part.end());
    return scenarios;
  }();
  return all;
}

}  // namespace pellora::protocol
