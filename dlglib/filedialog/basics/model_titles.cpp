#include "dlglib/filedialog/basics/model_titles.h"

#include <cstddef>

#include "dlglib/base/encoder.h"
#include "platform/suite/crvnmdl.h"

namespace filedialog {

namespace {

constexpr std::size_t kNameLimit = 256;

}  // namespace

const CwModelTitle* FindTitle(CwModel* model, int number) {
  return model == nullptr ? nullptr : model->GetModelTitleSet()->GetTitle(number);
}

EucView NameOf(const CwModelTitle& title) { return EucView(title.GetName()); }

std::optional<SjisText> ShownTitleName(CwModel* model, int number) {
  const CwModelTitle* const title = FindTitle(model, number);
  if (title == nullptr) return std::nullopt;
  return encoder::ToSjis(EucText(NameOf(*title)), kNameLimit);
}

}  // namespace filedialog
