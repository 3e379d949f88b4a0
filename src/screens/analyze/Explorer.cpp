#include "screens/analyze/Explorer.h"

#include "core/ByteCount.h"
#include "core/Text.h"
#include "models/support/PathUrl.h"
#include "monitoring/MachineFigures.h"
#include "screens/analyze/OrbitChartItem.h"

#include <QFile>
#include <QUrl>
#include <utility>

namespace tavrel {

namespace {

using Path = std::filesystem::path;

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

void Explorer::setApp(AppState* app) {
    if (app_ == app) return;
    if (app_) {
        disconnect(app_->analyze(), nullptr, this, nullptr);
        disconnect(app_->monitor(), nullptr, this, nullptr);
    }
    app_ = app;
    if (app_) {
        connect(&model(), &AnalyzeModel::entriesChanged, this, &Explorer::layOut);
        connect(&model(), &AnalyzeModel::focusChanged, this, &Explorer::read);
        connect(&model(), &AnalyzeModel::pathChanged, this, &Explorer::read);
        connect(&model(), &AnalyzeModel::pathChanged, this, &Explorer::folderChanged);
        connect(app_->monitor(), &Monitor::sampled, this, &Explorer::diskChanged);
        layOut();
    }
    Q_EMIT appChanged();
    Q_EMIT folderChanged();
    Q_EMIT diskChanged();
}

void Explorer::layOut() {
    layout_ = std::make_shared<const OrbitLayout>(
        OrbitChart::layout(model().mode() == AnalyzeModel::Mode::Folders ? std::span(model().entries())
                                                                         : std::span<const AnalyzeEntry>(),
                           model().subSlices()));
    Q_EMIT layoutChanged();
    read();
}

void Explorer::read() {
    const auto lit = model().lit();
    OrbitReadout words =
        OrbitChart::readout(*layout_, model().focus(), lit ? &model().content().entry(*lit) : nullptr,
                            {.url = model().currentFolder(),
                             .isRoot = model().isAtRoot(),
                             .total = model().total(),
                             .files = model().totalFiles()});
    std::string focusId = model().focus() ? OrbitChart::idOf(*model().focus()) : std::string();
    if (readout_ == words && focusId_ == focusId) return;
    readout_ = std::move(words);
    focusId_ = std::move(focusId);
    Q_EMIT readoutChanged();
}

QVariant Explorer::layout() const {
    return QVariant::fromValue(layout_);
}

QString Explorer::focusId() const {
    return shown(Text::exact(focusId_));
}

QString Explorer::icon() const {
    return shown(readout_.icon);
}

QString Explorer::name() const {
    return shown(readout_.name);
}

QString Explorer::size() const {
    return shown(readout_.size);
}

QString Explorer::detail() const {
    return shown(readout_.detail);
}

double Explorer::diskShare() const {
    return app_ ? usedShare(app_->monitor()->figures().disk) : 0;
}

QString Explorer::diskText() const {
    if (!app_) return {};
    const Sensors::DiskSpace& disk = app_->monitor()->figures().disk;
    if (!disk.total || !disk.available) return QStringLiteral("—");
    return shown(byteCount(*disk.total - *disk.available) + " / " + byteCount(*disk.total));
}

QUrl Explorer::folderUrl() const {
    return app_ ? PathUrl::of(model().currentFolder()) : QUrl();
}

QString Explorer::trashFolder() const {
    if (!app_) return {};
    const Path trash = app_->profile().places.trash();
    const bool hasFiles = app_->profile().trashLayout == Profile::TrashLayout::freedesktop;
    return QFile::decodeName(QByteArray::fromStdString(hasFiles ? trash / "files" : trash));
}

void Explorer::focus(const QString& id) {
    model().setFocus(OrbitChart::focusOf(*layout_, Text::fromExact(id.toStdString())));
}

void Explorer::unfocus(const QString& id) {
    if (focusId() == id) model().setFocus(std::nullopt);
}

void Explorer::open(const QString& id) {
    const auto focus = OrbitChart::focusOf(*layout_, Text::fromExact(id.toStdString()));
    if (!focus) return;
    if (const auto* slice = std::get_if<AnalyzeFocuses::Slice>(&*focus)) {
        const SubSlice opened = slice->slice;  // the layout goes when the folder does
        return model().open(opened);
    }
    const auto* entry = std::get_if<AnalyzeFocuses::Entry>(&*focus);
    if (entry == nullptr) return;
    if (const auto found = model().content().find(entry->path))
        model().open(AnalyzeEntry(model().content().entry(*found)));  // a copy: it goes with the folder
}

}  // namespace tavrel
