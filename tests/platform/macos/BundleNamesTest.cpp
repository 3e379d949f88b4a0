#include "platform/macos/BundleNames.h"
#include "support/Sandbox.h"

#include <string>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;

std::string information(const std::string& identifier) {
    return "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key>" + identifier + "</dict></plist>";
}

TEST(BundleNames, GivesTheFileNameBehindAnIdentifier) {
    const Sandbox sandbox;
    sandbox.text("Good Editor.app/Contents/Info.plist", information("<string>com.example.editor</string>"));
    sandbox.text("Not an app/Contents/Info.plist", information("<string>com.example.folder</string>"));
    sandbox.text("Number.app/Contents/Info.plist", information("<integer>1</integer>"));
    sandbox.text("Broken.app/Contents/Info.plist", "bplist00\xFF");
    sandbox.folder("Empty.app/Contents");
    sandbox.folder("Folder.app/Contents/Info.plist");
    sandbox.folder("Pipe.app/Contents");
    ASSERT_EQ(::mkfifo(sandbox.path("Pipe.app/Contents/Info.plist").c_str(), 0600), 0);
    sandbox.text("Zoom.app/Contents/Info.plist", information("<string>com.example.zoom</string>"));

    const BundleNames names(sandbox.root());
    EXPECT_EQ(names.displayName("com.example.editor"), "Good Editor");
    EXPECT_EQ(names.displayName("com.example.zoom"), "Zoom");
    EXPECT_EQ(names.displayName("com.example.folder"), std::nullopt);
    EXPECT_EQ(names.displayName(""), std::nullopt);
    EXPECT_EQ(BundleNames(sandbox.path("missing")).displayName("com.example.editor"), std::nullopt);
}

}  // namespace
}  // namespace tavrel
