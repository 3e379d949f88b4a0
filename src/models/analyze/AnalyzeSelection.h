#pragma once

#include "models/analyze/AnalyzeContent.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Which of the explorer's things are marked, and which may not go and why. All of it by id.
class AnalyzeSelection {
  public:
    using Id = AnalyzeContent::Id;

    /// Other things: nothing is marked, nothing vetted.
    void reset(std::size_t idCount);

    [[nodiscard]] bool holds(Id id) const { return id < selected_.size() && selected_[id]; }
    [[nodiscard]] std::size_t count() const { return count_; }
    [[nodiscard]] std::int64_t size() const { return size_; }
    void select(Id id, bool on);
    /// Whether anything was marked.
    bool clear();
    /// Marks everything that may go, at once or when that is known of everything.
    void selectAll(const AnalyzeContent& content);
    /// Whether everything that may go is marked; never before that is known of everything.
    [[nodiscard]] bool isAll(const AnalyzeContent& content) const;
    /// Adds the sizes up anew; whether the sum is another one.
    bool sumUp(const AnalyzeContent& content);

    /// Why it may not go, empty when it may; nullptr while that is not known.
    [[nodiscard]] const std::string* refusal(Id id) const;
    void learn(Id id, std::string reason) { refusals_[id] = std::move(reason); }
    /// From now on the reasons are others.
    void forgetRefusals();
    /// The reasons of all, by id. What may not go loses its mark.
    void learnAll(const std::vector<std::string>& reasons, const AnalyzeContent& content);

  private:
    std::vector<bool> selected_;
    std::vector<std::optional<std::string>> refusals_;
    std::size_t count_ = 0;
    std::int64_t size_ = 0;
    bool isVetted_ = false;
    bool selectsAllOnceVetted_ = false;
};

}  // namespace tavrel
