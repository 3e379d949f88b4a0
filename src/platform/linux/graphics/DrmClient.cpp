#include "platform/linux/graphics/DrmClient.h"

#include "platform/linux/kernel/KernelText.h"

namespace tavrel {

std::optional<DrmClient> DrmClient::parse(std::string_view fdinfo) {
    using KernelText::takeWord;
    DrmClient client;
    while (!fdinfo.empty()) {
        std::string_view line = KernelText::takeLine(fdinfo);
        const std::string_view key = takeWord(line);
        const std::string_view value = takeWord(line);
        if (key == "drm-pdev:") client.device = value;
        if (key == "drm-client-id:") client.id = value;
        if (key == "drm-engine-render:") client.renderNanoseconds = KernelText::number<std::uint64_t>(value);
        if (key == "drm-cycles-rcs:") client.renderCycles = KernelText::number<std::uint64_t>(value);
        if (key == "drm-total-cycles-rcs:") client.totalCycles = KernelText::number<std::uint64_t>(value);
    }
    const bool complete = !client.device.empty() && !client.id.empty();
    return complete ? std::optional(client) : std::nullopt;
}

}  // namespace tavrel
