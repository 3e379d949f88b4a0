#include "FixtureTree.h"
#include "OpenWatch.h"
#include "platform/linux/graphics/GraphicsLoad.h"
#include "support/Sandbox.h"

#include <chrono>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;
using testing::OpenWatch;
using testing::plant;
using testing::Sandbox;

struct PlayedNvidia final : NvidiaLibrary {
    std::optional<double> load(const std::string& device) override {
        asked.push_back(device);
        held = true;
        return answer;
    }
    void release() override { held = false; }

    std::vector<std::string> asked;
    std::optional<double> answer;
    bool held = false;
};

class GraphicsLoadTest : public ::testing::Test {
  protected:
    GraphicsLoadTest() {
        auto library = std::make_unique<PlayedNvidia>();
        nvidia = library.get();
        load = std::make_unique<GraphicsLoad>(sandbox.path("sys"), sandbox.path("proc"), std::move(library),
                                              [this] { return now; });
    }

    Sandbox sandbox;
    PlayedNvidia* nvidia = nullptr;
    DrmClients::Time now{1h};
    std::unique_ptr<GraphicsLoad> load;
};

const std::string amd = "sys/bus/pci/drivers/amdgpu/0000:03:00.0/";
const std::string secondAmd = "sys/bus/pci/drivers/amdgpu/0000:04:00.0/";
const std::string nvidiaDevice = "sys/bus/pci/drivers/nvidia/0000:01:00.0/";

TEST_F(GraphicsLoadTest, ASleepingDeviceIsLeftAsleep) {
    sandbox.text(amd + "power/runtime_status", "suspended\n");
    sandbox.text(amd + "gpu_busy_percent", "50\n");
    sandbox.text(nvidiaDevice + "power/runtime_status", "suspended\n");
    nvidia->answer = 0.5;
    const OpenWatch opened(sandbox.path(amd));
    EXPECT_EQ(load->busiest(), std::nullopt);
    EXPECT_THAT(opened.names(), ::testing::IsSubsetOf({std::string("power")}));
    EXPECT_TRUE(nvidia->asked.empty());
    // The watch does see what is opened of a device that is awake.
    sandbox.text(amd + "power/runtime_status", "active\n");
    EXPECT_EQ(load->busiest(), 0.5);
    EXPECT_TRUE(opened.names().contains("gpu_busy_percent"));
}

TEST_F(GraphicsLoadTest, TheBusiestDeviceCounts) {
    sandbox.text(amd + "gpu_busy_percent", "30\n");
    sandbox.text(secondAmd + "gpu_busy_percent", "101\n");
    sandbox.text("sys/bus/pci/drivers/amdgpu/module/gpu_busy_percent", "99\n");
    sandbox.folder(nvidiaDevice);
    EXPECT_EQ(load->busiest(), 0.3);
    nvidia->answer = 0.8;
    EXPECT_EQ(load->busiest(), 0.8);
    EXPECT_EQ(nvidia->asked.back(), "0000:01:00.0");
    EXPECT_TRUE(nvidia->held);
    // What is read as busy, or not at all, is no value.
    sandbox.text(amd + "gpu_busy_percent", "");
    sandbox.folder("sys/bus/pci/drivers/amdgpu/0000:05:00.0/gpu_busy_percent");
    nvidia->answer.reset();
    EXPECT_EQ(load->busiest(), std::nullopt);
}

TEST_F(GraphicsLoadTest, AnIdleDeviceIsGivenTheTimeToFallAsleep) {
    sandbox.text(nvidiaDevice + "power/control", "auto\n");
    nvidia->answer = 0;
    sandbox.text(amd + "power/runtime_status", "active\n");
    sandbox.text(amd + "power/control", "auto\n");
    sandbox.text(amd + "gpu_busy_percent", "0\n");
    EXPECT_EQ(load->busiest(), 0);
    EXPECT_FALSE(nvidia->held);
    sandbox.text(amd + "gpu_busy_percent", "90\n");
    now += 5s;
    EXPECT_EQ(load->busiest(), 0);
    EXPECT_EQ(nvidia->asked.size(), 1U);
    now += 1s;
    EXPECT_EQ(load->busiest(), 0.9);
    now += 2s;
    EXPECT_EQ(load->busiest(), 0.9);
    // One that is kept awake anyway is asked each time.
    sandbox.text(amd + "power/control", "on\n");
    sandbox.text(amd + "gpu_busy_percent", "0\n");
    EXPECT_EQ(load->busiest(), 0);
    sandbox.text(amd + "gpu_busy_percent", "10\n");
    EXPECT_EQ(load->busiest(), 0.1);
}

TEST_F(GraphicsLoadTest, IntelIsCountedByItsClients) {
    const std::string intel = "sys/bus/pci/drivers/i915/0000:00:02.0/";
    const auto client = [&](const std::string& handle, const std::string& id, const std::string& used,
                            const std::string& device = "0000:00:02.0") {
        sandbox.text("proc/70/fdinfo/" + handle, "pos:\t0\ndrm-driver:\ti915\ndrm-pdev:\t" + device +
                                                     "\ndrm-client-id:\t" + id + "\n" + used);
    };
    plant(sandbox, R"(
        proc/70/fd/3 -> /dev/dri/renderD128
        proc/70/fd/4 -> /dev/dri/renderD128
        proc/70/fd/5 -> /dev/dri/card0
        proc/70/fd/6 -> /home/file
        proc/self/fd/7 -> /dev/dri/card0
    )");
    client("3", "1", "drm-engine-render:\t1000 ns\n");
    client("4", "1", "drm-engine-render:\t1000 ns\n");  // the same client through another handle
    client("5", "2", "drm-engine-render:\t7000000000 ns\n");
    plant(sandbox,
          "proc/70/fd/8 -> /dev/dri/card0\nproc/70/fdinfo/8 = drm-pdev: \xFF\\n:\\ndrm-engine-render: -5 ns");
    client("6", "3", "drm-engine-render:\t0 ns\n");  // no handle on a device, whatever it says
    EXPECT_EQ(load->busiest(), std::nullopt);        // no such device
    sandbox.text(intel + "power/runtime_status", "active\n");
    EXPECT_EQ(load->busiest(), std::nullopt);
    now += 2s;
    client("3", "1", "drm-engine-render:\t500001000 ns\n");
    client("4", "1", "drm-engine-render:\t500001000 ns\n");
    client("5", "2", "drm-engine-render:\t7300000000 ns\n");
    client("6", "3", "drm-engine-render:\t2000000000 ns\n");
    EXPECT_DOUBLE_EQ(load->busiest().value_or(-1), 0.4);
    // Gone, counted backwards, new: none has done anything that is known. Another device is none of these.
    now += 2s;
    client("3", "4", "drm-engine-render:\t9000000000 ns\n");
    client("4", "4", "drm-engine-render:\t9000000000 ns\n");
    client("5", "2", "drm-engine-render:\t1 ns\n");
    EXPECT_EQ(load->busiest(), 0);
    now += 2s;
    client("3", "4", "drm-cycles-rcs:\t100\ndrm-total-cycles-rcs:\t1000\n");
    ::unlink(sandbox.path("proc/70/fdinfo/4").c_str());
    client("5", "2", "drm-engine-render:\t2000000001 ns\n", "0000:09:00.0");
    EXPECT_EQ(load->busiest(), 0);
    now += 2s;
    client("3", "4", "drm-cycles-rcs:\t350\ndrm-total-cycles-rcs:\t2000\n");
    EXPECT_DOUBLE_EQ(load->busiest().value_or(-1), 0.25);
    now += 11s;  // nobody watched: a mean of all that time says nothing of now
    EXPECT_EQ(load->busiest(), std::nullopt);
    now += 2s;
    EXPECT_EQ(load->busiest(), 0);
    sandbox.text(intel + "power/runtime_status", "suspended\n");
    EXPECT_EQ(load->busiest(), std::nullopt);
}

}  // namespace
}  // namespace tavrel
