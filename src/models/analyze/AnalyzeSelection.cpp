#include "models/analyze/AnalyzeSelection.h"

#include "core/CheckedSum.h"

#include <utility>

namespace tavrel {

void AnalyzeSelection::reset(std::size_t idCount) {
    selected_.assign(idCount, false);
    count_ = 0;
    size_ = 0;
    selectsAllOnceVetted_ = false;
    forgetRefusals();
}

void AnalyzeSelection::select(Id id, bool on) {
    selectsAllOnceVetted_ = false;
    if (selected_[id] == on) return;
    selected_[id] = on;
    on ? ++count_ : --count_;
}

bool AnalyzeSelection::clear() {
    selectsAllOnceVetted_ = false;
    if (count_ == 0) return false;
    selected_.assign(selected_.size(), false);
    count_ = 0;
    size_ = 0;
    return true;
}

void AnalyzeSelection::selectAll(const AnalyzeContent& content) {
    for (std::size_t at = 0; isVetted_ && at < content.entries().size(); ++at) {
        const Id id = content.id(at);
        if (refusals_[id]->empty()) select(id, true);
    }
    selectsAllOnceVetted_ = !isVetted_;
}

bool AnalyzeSelection::isAll(const AnalyzeContent& content) const {
    if (!isVetted_ || count_ == 0) return false;
    for (std::size_t at = 0; at < content.entries().size(); ++at) {
        const Id id = content.id(at);
        if (!selected_[id] && refusals_[id]->empty()) return false;
    }
    return true;
}

bool AnalyzeSelection::sumUp(const AnalyzeContent& content) {
    std::int64_t sum = 0;
    for (std::size_t at = 0; count_ > 0 && at < content.entries().size(); ++at) {
        if (selected_[content.id(at)]) sum = addBytes(sum, content.entries()[at].size.value_or(0));
    }
    return std::exchange(size_, sum) != sum;
}

const std::string* AnalyzeSelection::refusal(Id id) const {
    return id < refusals_.size() && refusals_[id] ? &*refusals_[id] : nullptr;
}

void AnalyzeSelection::forgetRefusals() {
    isVetted_ = false;
    refusals_.assign(selected_.size(), std::nullopt);
}

void AnalyzeSelection::learnAll(const std::vector<std::string>& reasons, const AnalyzeContent& content) {
    const bool selectsAll = selectsAllOnceVetted_;
    for (Id id = 0; id < reasons.size(); ++id) {
        refusals_[id] = reasons[id];
        if (selected_[id] && !reasons[id].empty()) select(id, false);
    }
    isVetted_ = true;
    if (selectsAll) selectAll(content);
}

}  // namespace tavrel
