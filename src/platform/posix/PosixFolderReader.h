#pragma once

#include "platform/FolderReader.h"

namespace tavrel {

/// Lists with readdir and asks fstatat about every entry.
class PosixFolderReader final : public FolderReader {
  public:
    bool read(int folder, const std::function<bool(const FolderEntry&)>& visit) const override;
};

}  // namespace tavrel
