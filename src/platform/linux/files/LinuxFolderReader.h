#pragma once

#include "platform/FolderReader.h"

namespace tavrel {

/// Lists with getdents64 and asks statx only about what is no folder.
class LinuxFolderReader final : public FolderReader {
  public:
    bool read(int folder, const std::function<bool(const FolderEntry&)>& visit) const override;
};

}  // namespace tavrel
