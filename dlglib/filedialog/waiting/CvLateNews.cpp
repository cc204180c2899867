#include "dlglib/filedialog/waiting/CvLateNews.h"

#include <mutex>

#include "platform/os/lock.h"

class CvLateNews::Address {
 public:
  explicit Address(UINT message) : message_(message) {}

  void Set(HWND window) {
    const std::lock_guard<os::Lock> held(lock_);
    window_ = window;
  }
  void Post() {
    const std::lock_guard<os::Lock> held(lock_);
    if (window_ != nullptr) ::PostMessageW(window_, message_, 0, 0);
  }

 private:
  os::Lock lock_;
  UINT message_;
  HWND window_ = nullptr;
};

CvLateNews::CvLateNews(UINT message) : address_(std::make_shared<Address>(message)) {}

CvLateNews::~CvLateNews() { Begin(nullptr); }

void CvLateNews::Begin(HWND window) { address_->Set(window); }

std::function<void()> CvLateNews::Teller() const {
  return [address = address_] { address->Post(); };
}
