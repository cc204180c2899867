#include "platform/framework/detail/paint_watch.h"

#include <utility>

#include "platform/framework/detail/window_table.h"

PaintWatch::PaintWatch(Told told) : told_(std::move(told)) {}

PaintWatch::~PaintWatch() { Release(); }

void PaintWatch::Watch(WindowArg window) {
  Release();
  if (::IsWindow(window.handle) != FALSE) {
    entry_ = framework::WindowTable::Instance().WatchPainting(window.handle, *this);
  }
}

void PaintWatch::Release() noexcept {
  if (entry_ == nullptr) return;
  framework::WindowTable::Instance().UnwatchPainting(entry_, *this);
  entry_.reset();
}
