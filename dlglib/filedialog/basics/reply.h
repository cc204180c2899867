// Answers to questions that let messages through.
#pragma once

#include <optional>

namespace filedialog {

/// The answer to a question. It runs windows of its own, and what happens meanwhile may have taken the window away for
/// which it was asked: then there is no value, and whoever has asked returns without a value too and touches nothing
/// more.
template <class Answer>
using Reply = std::optional<Answer>;

/// The answer of what has nothing to tell but that the window is still there.
struct Done {};

}  // namespace filedialog
