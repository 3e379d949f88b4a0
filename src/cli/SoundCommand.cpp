#include "cli/AddCommand.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "core/Files.h"
#include "core/Phrase.h"
#include "presentation/WaveFile.h"
#include "presentation/Whoomp.h"

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;
using WaveFile::SampleFormat;

struct SoundCommand {
    std::string file;
    bool sixteenBit = false;

    void addTo(CLI::App& command) {
        command.add_option("--wav", file, localized("write it to this file"))->required()->type_name("FILE");
        command.add_flag("--pcm16", sixteenBit, localized("as whole numbers of 16 bits, not floats"));
    }

    [[nodiscard]] int run(const GlobalOptions& /*global*/, Console& console) const {
        const std::vector<float> samples = Whoomp::render(Whoomp::usualSampleRate);
        const auto format = sixteenBit ? SampleFormat::pcm16 : SampleFormat::float32;
        const std::string bytes = WaveFile::encode(samples, Whoomp::usualSampleRate, format);
        if (const std::error_code failed = Files::writeAtomically(file, bytes)) {
            return console.fail(phrase("{} cannot be written: {}", Text::shown(file), failed.message()));
        }
        if (console.json()) {
            console.document({{"path", Json::path(file)},
                              {"frames", samples.size()},
                              {"sampleRate", Whoomp::usualSampleRate}});
        }
        return ExitStatus::done;
    }
};

}  // namespace

void Commands::addSound(CLI::App& app, Command& chosen) {
    addCommand<SoundCommand>(app, chosen, "sound", "write the sound that ends a clean to a file");
}

}  // namespace tavrel::cli
