#include "screens/clean/CleanHero.h"

#include "cleaning/CleanTexts.h"

namespace tavrel {

void CleanHero::setModel(CleanListModel* model) {
    if (model_ == model) return;
    if (model_) model_->disconnect(this);
    if (feed_) feed_->disconnect(this);
    model_ = model;
    resealed_ = true;
    if (model_) {
        for (const auto signal : {&CleanListModel::phaseChanged, &CleanListModel::itemsChanged,
                                  &CleanListModel::selectionChanged}) {
            connect(model_, signal, this, &CleanHero::changed);
        }
        connect(model_, &CleanListModel::feedChanged, this, &CleanHero::watchFeed);
        watchFeed();
    }
    Q_EMIT modelChanged();
    Q_EMIT changed();
}

void CleanHero::watchFeed() {
    if (feed_) feed_->disconnect(this);
    feed_ = model_->feed();
    if (feed_) connect(feed_, &SwallowFeed::remainingChanged, this, &CleanHero::changed);
    Q_EMIT changed();
}

CleanTexts::Idle CleanHero::idle() const {
    return {idleTitle_.toStdString(), idleSubtitle_.toStdString()};
}

QString CleanHero::title() const {
    if (!model_) return {};
    return QString::fromStdString(CleanTexts::heroTitle(model_->phase(), model_->figures(), idle()));
}

QString CleanHero::subtitle() const {
    if (!model_) return {};
    return QString::fromStdString(CleanTexts::heroSubtitle(model_->phase(), model_->figures(), idle()));
}

double CleanHero::irisOpening() const {
    if (!model_) return 0;
    switch (model_->stage()) {
        case CleanListModel::Stage::Idle:
        case CleanListModel::Stage::Scanning:
            return 0;
        case CleanListModel::Stage::Cleaning:
            return 1;
        case CleanListModel::Stage::Ready:
            return model_->items().empty() ? 0 : 0.5;
        case CleanListModel::Stage::Done:
            return model_->isPreview() || resealed_ ? 0 : 1;
    }
    return 0;
}

}  // namespace tavrel
