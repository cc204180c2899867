// The services of the operating system for whoever may have to wait for them: each call on a device is a question of
// Patience, so it answers or does not come back (WaitEnded). What reaches no device is asked in place.
#pragma once

#include <memory>

#include "dlglib/filedialog/basics/patience.h"
#include "platform/os/os.h"

namespace filedialog {

class PatientServices {
 public:
  /// `plain` must be callable on any thread and live as long as the program, `patience` longer than this.
  PatientServices(const os::ServiceTable& plain, Patience& patience);
  PatientServices(const PatientServices&) = delete;
  PatientServices& operator=(const PatientServices&) = delete;
  ~PatientServices();

  [[nodiscard]] const os::ServiceTable& Table() const { return table_; }
  /// For what runs on a worker.
  [[nodiscard]] const os::ServiceTable& Plain() const { return plain_; }
  [[nodiscard]] Patience& Waits() const { return patience_; }

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
  const os::ServiceTable& plain_;
  Patience& patience_;
  os::ServiceTable table_;
};

}  // namespace filedialog
