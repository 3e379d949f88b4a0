#pragma once

#include "platform/LaunchAtLogin.h"

#include <filesystem>
#include <utility>

namespace tavrel {

/// An entry in the autostart folder of the user's desktop, which starts the program with "--login".
class LinuxLaunchAtLogin final : public LaunchAtLogin {
  public:
    static constexpr const char* loginArgument = "--login";

    enum class Start { byLogin, byUser };

    /// `start` says whether the program's arguments hold `loginArgument`.
    LinuxLaunchAtLogin(const std::filesystem::path& autostartFolder, std::filesystem::path program,
                       Start start)
        : entry_(autostartFolder / "com.quennith.tavrel.desktop"),
          program_(std::move(program)),
          start_(start) {}

    [[nodiscard]] bool launchedAsLoginItem() const override { return start_ == Start::byLogin; }
    [[nodiscard]] bool isEnabled() const override;
    bool set(bool on) override;

  private:
    [[nodiscard]] bool writeEntry() const;

    std::filesystem::path entry_;
    std::filesystem::path program_;
    Start start_;
};

}  // namespace tavrel
