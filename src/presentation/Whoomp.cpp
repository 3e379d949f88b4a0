#include "presentation/Whoomp.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

namespace tavrel::Whoomp {
namespace {

constexpr double turn = 2 * std::numbers::pi;  // radians
constexpr double masterGain = 0.03;            // a small event at the edge of hearing

/// From 0 to 1 along a quarter of a sine while `progress` goes from 0 to 1; 1 afterwards.
double quarterSine(double progress) {
    return std::sin(std::min(progress, 1.0) * std::numbers::pi * 0.5);
}

/// White noise through two low-passes that close while the sound goes on.
class Breath {
  public:
    explicit Breath(double sampleRate) : sampleRate_(sampleRate) {}

    double next(double position) {
        const double cutoff = std::exp(position * -3.2) * 1300 + 120;  // Hz
        const double kept = std::exp(cutoff * -turn / sampleRate_);
        first_ += (noise() - first_) * (1 - kept);
        second_ += (first_ - second_) * (1 - kept);
        drift_ += (second_ - drift_) * 0.004;
        return envelope(position) * (second_ - drift_);
    }

  private:
    /// A linear congruential generator, so that the sound is the same sample for sample.
    double noise() {
        seed_ = seed_ * 1'664'525U + 1'013'904'223U;
        return seed_ / 4294967295.0 * 2 - 1;
    }

    static double envelope(double position) {
        constexpr double peak = 0.35;
        const double fall = position >= peak ? std::exp((position - peak) * -3.4) : 1.0;
        return fall * quarterSine(position / peak);
    }

    double sampleRate_;
    double first_ = 0;
    double second_ = 0;
    double drift_ = 0;
    std::uint32_t seed_ = 0x2545'F491;
};

/// A low D with its octave.
class Tone {
  public:
    explicit Tone(double sampleRate) : step_(461.1858015469817 / sampleRate) {}  // 73.4 Hz

    double next(double position) {
        phase_ += step_;
        const double envelope = quarterSine(position * 4) * std::exp(position * -2.4);
        return (std::sin(phase_) + std::sin(2 * phase_) * 0.35) * envelope * 0.35;
    }

  private:
    double step_;
    double phase_ = 0;
};

struct Bell {
    double start;     // seconds
    double velocity;  // radians a second
    double gain;
};

constexpr Bell bells[] = {
    {0.55, 8284.379827516284, 0.30},   // 1,318.5 Hz
    {0.72, 12412.432574333272, 0.20},  // 1,975.5 Hz
    {0.90, 16568.75965503257, 0.12},   // 2,637.0 Hz
};

double ringing(const Bell& bell, double time) {
    constexpr double vibrato = 5 * turn;  // 5 Hz
    constexpr double vibratoDepth = 0.8;  // radians
    constexpr double attack = 0.05;       // seconds
    const double age = time - bell.start;
    if (age < 0) return 0;
    const double wave = std::sin(age * bell.velocity + std::sin(age * vibrato) * vibratoDepth);
    return wave * quarterSine(age / attack) * std::exp(age * -3.6) * bell.gain;
}

double ringing(double time) {
    double sum = 0;
    for (const Bell& bell : bells) sum += ringing(bell, time);
    return sum;
}

}  // namespace

std::vector<float> render(int sampleRate) {
    const auto rate = static_cast<double>(std::max(sampleRate, 0));
    std::vector<float> samples(static_cast<std::size_t>(rate * duration));
    Breath breath(rate);
    Tone tone(rate);
    for (std::size_t frame = 0; frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / rate;
        const double position = time / duration;
        const double mix = tone.next(position) + breath.next(position) * 2.2 + ringing(time) * 0.5;
        samples[frame] = static_cast<float>(mix * masterGain);
    }
    return samples;
}

}  // namespace tavrel::Whoomp
