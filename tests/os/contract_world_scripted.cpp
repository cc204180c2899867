#include "platform/os/os_scripted.h"
#include "tests/os/contract_world.h"

ContractWorld::ContractWorld() {
  os::scripted::World().Reset();
  os::scripted::World().AddDrive('C');
  os::scripted::World().files.AddFolder(Folder());
}

ContractWorld::~ContractWorld() {
  os::scripted::World().files.Remove(Folder());
  os::scripted::World().registry.RemoveKey(Key());
}

std::string ContractWorld::Folder() const { return "C:\\contract"; }

std::string ContractWorld::Key() const { return "Software\\contract"; }
