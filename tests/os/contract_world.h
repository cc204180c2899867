// The place in which the contract of the services is tried out: an empty folder and the name of a registry key that
// does not exist. Each program that runs the contract defines it for its own implementation.
#pragma once

#include <string>

class ContractWorld {
 public:
  ContractWorld();
  ContractWorld(const ContractWorld&) = delete;
  ContractWorld& operator=(const ContractWorld&) = delete;
  /// Leaves neither the folder nor the key behind.
  ~ContractWorld();

  /// Without a "\" at its end.
  [[nodiscard]] std::string Folder() const;
  [[nodiscard]] std::string Key() const;
};
