#include "platform/desktop/ThemeIconSource.h"
#include "support/Sandbox.h"

#include <QColor>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;

class ThemeIconSourceTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path entry(const std::string& name, const std::string& rest) const {
        return box.text("applications/" + name, "[Desktop Entry]\nType=Application\n" + rest);
    }

    const Sandbox box;
    ThemeIconSource source{{box.path("applications")}};
};

TEST_F(ThemeIconSourceTest, EveryQuestionGetsAPictureOfOneSize) {
    const QImage images[] = {source.iconForFolder(),
                             source.iconForType("pdf"),
                             source.iconForType(""),
                             source.iconForType("nobody-knows"),
                             source.iconForFile(box.root()),
                             source.iconForFile("/gone/x.app"),
                             source.iconForFile("/gone/x.zip"),
                             source.iconForFile("/gone/\xff\xfe.txt")};
    for (const QImage& image : images) {
        EXPECT_EQ(std::max(image.width(), image.height()), 64);
        bool visible = false;
        for (int at = 0; at < 64; ++at)
            visible = visible || qAlpha(image.pixel(at % image.width(), at / 2)) > 0;
        for (int y = 0; y < image.height(); ++y)
            visible = visible || qAlpha(image.pixel(image.width() / 2, y)) > 0;
        EXPECT_TRUE(visible);
    }
    EXPECT_EQ(source.iconForFile(box.root()), source.iconForFolder());
    EXPECT_EQ(source.iconForFile("/gone/x.pdf"), source.iconForType("PDF"));
}

TEST_F(ThemeIconSourceTest, TypesAreToldByTheNameAlone) {
    const auto disguised = box.text("a.zip", "%PDF-1.4\n");
    EXPECT_EQ(source.iconForFile(disguised), source.iconForType("zip"));
    ASSERT_EQ(::mkfifo(box.path("pipe.txt").c_str(), 0600), 0);
    EXPECT_EQ(source.iconForFile(box.path("pipe.txt")), source.iconForType("txt"));  // and nothing waits
}

TEST_F(ThemeIconSourceTest, ApplicationsAreFoundByWhatFoldersAreCalled) {
    const auto krita = entry("org.kde.krita.desktop", "Name=Krita Studio\nIcon=krita\n");
    static_cast<void>(entry("gone.desktop", "Name=Gone\nHidden=true\n"));
    const auto nested = entry("kde/tool.desktop", "Name=Tool\n");
    for (const char* name : {"krita", "Krita Studio", "org.kde.krita", "KRITA"}) {
        const auto found = source.applicationNamed(name);
        ASSERT_TRUE(found) << name;
        EXPECT_EQ(*found, (InstalledApplication{krita, "Krita Studio"}));
    }
    EXPECT_TRUE(source.applicationWithIdentifier("org.kde.krita"));
    EXPECT_EQ(source.applicationWithIdentifier("kde-tool")->file, nested);
    for (const char* name : {"krit", "Gone", "", "tool.desktop"}) {
        EXPECT_FALSE(source.applicationNamed(name)) << name;
        EXPECT_FALSE(source.applicationWithIdentifier(name)) << name;
    }
}

TEST_F(ThemeIconSourceTest, AnEntryShowsItsOwnPicture) {
    QImage red(16, 16, QImage::Format_RGB32);
    red.fill(Qt::red);
    const auto picture = box.path("red.png");
    ASSERT_TRUE(red.save(QString::fromStdString(picture.native())));
    ASSERT_EQ(::mkfifo(box.path("pipe.png").c_str(), 0600), 0);

    const auto own = entry("own.desktop", "Name=Own\nIcon=" + picture.native() + "\n");
    const auto pipe = entry("pipe.desktop", "Name=Pipe\nIcon=" + box.path("pipe.png").native() + "\n");
    const QImage shown = source.iconForFile(own);
    EXPECT_EQ(shown.size(), QSize(64, 64));
    EXPECT_EQ(shown.pixelColor(32, 32), QColor(Qt::red));
    EXPECT_EQ(source.iconForFile(pipe), source.iconForFile("/gone/x.app"));
    // What only claims to be an application gets the icon of its type.
    const auto stray = box.text("stray.desktop", "[Desktop Entry]\nIcon=" + picture.native() + "\n");
    EXPECT_EQ(source.iconForFile(stray), source.iconForType("desktop"));
}

}  // namespace
}  // namespace tavrel
