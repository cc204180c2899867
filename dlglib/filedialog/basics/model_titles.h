// The titles that the active model defines.
#pragma once

#include <optional>

#include "dlglib/base/encoded_text.h"

class CwModel;
class CwModelTitle;

namespace filedialog {

/// The title of a number; null when there is none. `model` may be null: without a model no title exists.
[[nodiscard]] const CwModelTitle* FindTitle(CwModel* model, int number);

/// The name of a title.
[[nodiscard]] EucView NameOf(const CwModelTitle& title);

/// The name of the title of a number as the screen shows it, at most 256 bytes; none when there is no such title.
[[nodiscard]] std::optional<SjisText> ShownTitleName(CwModel* model, int number);

}  // namespace filedialog
