// The folder of the raster image that was chosen last.
//
// Sessions started with "SXF_USE_LAST_HOLDER" open the raster kind where the user last took an image from, not in the
// kind's own folder. The folder lies in the registry; it is read back only once this process has written it.
#pragma once

#include <optional>

#include "dlglib/base/encoded_text.h"
#include "platform/os/os.h"

class CwSession;

namespace filsel {

class RasterMemory {
 public:
  /// The one that all requests of this process share.
  [[nodiscard]] static RasterMemory& OfProcess();

  /// Before the browser: gives the kind "#RASTER#" the remembered folder. Returns the folder that the kind had (empty
  /// when there was no such kind), or none when the session or the keyword asks for no memory. When the user cancels,
  /// the kind keeps the remembered folder.
  [[nodiscard]] std::optional<EucText> Recall(const EucText& keyword, CwSession& session, os::Registry& registry);

  /// After OK: gives the kind `formerFolder` (internal form) again and remembers the folder of `chosenPath` (real form)
  /// with its "\"; a path without one is remembered whole. The kind is registered anew with that folder alone, so its
  /// patterns are gone.
  void Remember(const EucText& formerFolder, SjisView chosenPath, CwSession& session, os::Registry& registry);

 private:
  bool saved_ = false;
};

}  // namespace filsel
