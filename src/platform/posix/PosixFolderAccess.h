#pragma once

#include "platform/FolderAccess.h"

#include <string>
#include <vector>

namespace tavrel {

/// What any POSIX system can do: folders opened one component at a time, each compared with the one before.
///
/// Its limits: a mount of the same device over itself looks like a plain folder, a folder that may
/// not be read cannot be opened, and a file moves by way of a hidden name and a hard link. On file systems
/// without those it stays where it is; a crash in between, or another program that swaps the file and then
/// takes its old name, leaves a file under the hidden name.
class PosixFolderAccess : public FolderAccess {
  public:
    [[nodiscard]] Outcome<FileHandle> openAnchor(const std::filesystem::path& root) const override;
    [[nodiscard]] Outcome<FileHandle> openBeneath(int anchor,
                                                  const std::vector<std::string>& components) const override;
    [[nodiscard]] Outcome<FileHandle> openAbove(int handle) const override;
    [[nodiscard]] Outcome<FileIdentity> identify(int handle) const override;
    [[nodiscard]] Outcome<FileIdentity> identify(int folder, const std::string& name) const override;
    [[nodiscard]] std::error_code moveExclusively(int fromFolder, const std::string& fromName, int toFolder,
                                                  const std::string& toName) const override;
    [[nodiscard]] std::error_code setMode(int handle, mode_t permissions) const override;
    [[nodiscard]] bool holdsMount(int handle) const override;

  protected:
    /// Whether `component` is the name of one entry and not a way to somewhere else.
    [[nodiscard]] static bool isPlainName(const std::string& component);

    /// Opens one folder with the strongest handle that its permissions allow. ELOOP for a link.
    [[nodiscard]] virtual Outcome<FileHandle> openFolder(int at, const std::string& name) const;

    /// Gives a file a second name; EEXIST rather than replace anything.
    [[nodiscard]] virtual std::error_code link(int fromFolder, const std::string& fromName, int toFolder,
                                               const std::string& toName) const;

  private:
    [[nodiscard]] Outcome<FileHandle> openOnSameMount(int at, const std::string& name) const;
    /// A rename that replaces nothing; the old name must be known to this process alone.
    [[nodiscard]] std::error_code relink(int folder, const std::string& hidden, int toFolder,
                                         const std::string& toName) const;
    [[nodiscard]] std::error_code moveFile(int fromFolder, const std::string& fromName, int toFolder,
                                           const std::string& toName) const;
};

}  // namespace tavrel
