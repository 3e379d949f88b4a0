#include "core/Permissions.h"
#include "support/Sandbox.h"

#include <array>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;

TEST(Permissions, OneReadableProbeProvesTheAccess) {
    constexpr std::array<std::string_view, 2> probes = {"Library/guarded.db", "Library/Safari"};
    const Sandbox sandbox;
    const auto hasAccess = [&](const char* home) {
        return Permissions::hasFullDiskAccess(sandbox.path(home), probes);
    };
    sandbox.folder("empty");
    EXPECT_FALSE(hasAccess("empty"));
    EXPECT_FALSE(hasAccess("missing"));
    EXPECT_TRUE(Permissions::hasFullDiskAccess(sandbox.path("empty"), {}));

    sandbox.file("withFile/Library/guarded.db");
    EXPECT_TRUE(hasAccess("withFile"));
    sandbox.folder("withFolder/Library/Safari");
    EXPECT_TRUE(hasAccess("withFolder"));

    sandbox.link("withBrokenLink/Library/Safari", "nowhere");
    EXPECT_FALSE(hasAccess("withBrokenLink"));
    sandbox.folder("withPipe/Library");
    ASSERT_EQ(::mkfifo(sandbox.path("withPipe/Library/Safari").c_str(), 0600), 0);
    EXPECT_TRUE(hasAccess("withPipe"));  // and no writer is waited for
}

}  // namespace
}  // namespace tavrel
