#include "screens/analyze/Explorer.h"

#include "core/Text.h"
#include "models/support/PathUrl.h"
#include "models/support/Strings.h"
#include "screens/analyze/OrbitChartItem.h"

#include <QUrl>
#include <utility>

namespace tavrel {

void Explorer::setModel(AnalyzeModel* model) {
    if (model_ == model) return;
    if (model_) disconnect(model_, nullptr, this, nullptr);
    model_ = model;
    if (model_) {
        connect(model_, &AnalyzeModel::entriesChanged, this, &Explorer::layOut);
        connect(model_, &AnalyzeModel::focusChanged, this, &Explorer::read);
        connect(model_, &AnalyzeModel::pathChanged, this, &Explorer::read);
        connect(model_, &AnalyzeModel::pathChanged, this, &Explorer::folderChanged);
        layOut();
    }
    Q_EMIT modelChanged();
    Q_EMIT folderChanged();
}

void Explorer::layOut() {
    layout_ = std::make_shared<const OrbitLayout>(
        OrbitChart::layout(model_->mode() == AnalyzeModel::Mode::Folders ? std::span(model_->entries())
                                                                         : std::span<const AnalyzeEntry>(),
                           model_->subSlices()));
    Q_EMIT layoutChanged();
    read();
}

void Explorer::read() {
    const auto lit = model_->lit();
    OrbitReadout words =
        OrbitChart::readout(*layout_, model_->focus(), lit ? &model_->content().entry(*lit) : nullptr,
                            {.url = model_->currentFolder(),
                             .isRoot = model_->isAtRoot(),
                             .total = model_->total(),
                             .files = model_->totalFiles()});
    std::string focusId = model_->focus() ? OrbitChart::idOf(*model_->focus()) : std::string();
    if (readout_ == words && focusId_ == focusId) return;
    readout_ = std::move(words);
    focusId_ = std::move(focusId);
    Q_EMIT readoutChanged();
}

QVariant Explorer::layout() const {
    return QVariant::fromValue(layout_);
}

QString Explorer::focusId() const {
    return toQString(Text::encodePath(focusId_));
}

QString Explorer::icon() const {
    return toQString(readout_.icon);
}

QString Explorer::name() const {
    return toQString(readout_.name);
}

QString Explorer::size() const {
    return toQString(readout_.size);
}

QString Explorer::detail() const {
    return toQString(readout_.detail);
}

QUrl Explorer::folderUrl() const {
    return model_ ? PathUrl::of(model_->currentFolder()) : QUrl();
}

void Explorer::focus(const QString& id) {
    model_->setFocus(OrbitChart::focusOf(*layout_, Text::decodePath(id.toStdString())));
}

void Explorer::unfocus(const QString& id) {
    if (focusId() == id) model_->setFocus(std::nullopt);
}

void Explorer::open(const QString& id) {
    const auto focus = OrbitChart::focusOf(*layout_, Text::decodePath(id.toStdString()));
    if (!focus) return;
    if (const auto* slice = std::get_if<AnalyzeFocuses::Slice>(&*focus)) {
        const SubSlice opened = slice->slice;  // the layout goes when the folder does
        return model_->open(opened);
    }
    const auto* entry = std::get_if<AnalyzeFocuses::Entry>(&*focus);
    if (entry == nullptr) return;
    if (const auto found = model_->content().find(entry->path))
        model_->open(AnalyzeEntry(model_->content().entry(*found)));  // a copy: it goes with the folder
}

}  // namespace tavrel
