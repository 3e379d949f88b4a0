#include "screens/analyze/Explorer.h"

#include "core/ByteCount.h"
#include "core/Files.h"
#include "core/PathUrl.h"
#include "core/Text.h"
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

QVariantMap placeOf(const Path& path, const std::string& title, std::string_view symbol, bool selected) {
    return {{QStringLiteral("title"), shown(title)},
            {QStringLiteral("symbol"), shown(std::string(symbol))},
            {QStringLiteral("url"), PathUrl::of(path)},
            {QStringLiteral("selected"), selected}};
}

/// The folders in `text`, where a last part of "*" stands for every folder.
std::vector<Path> foldersOf(const Places& places, std::string_view text) {
    constexpr std::string_view every = "/*";
    if (!text.ends_with(every)) return {places.resolve(text)};
    text.remove_suffix(every.size());
    const Path parent = places.resolve(text);
    std::vector<Path> folders;
    for (const std::string& name : Files::names(parent)) folders.push_back(parent / name);
    return folders;
}

/// What stands in a folder of volumes and lies on another device than that folder.
std::vector<Path> volumesOf(const Places& places, std::string_view text) {
    std::vector<Path> volumes;
    for (const Path& folder : foldersOf(places, text)) {
        const auto own = Files::identifier(folder);
        for (const std::string& name : Files::names(folder, Files::Hidden::skip)) {
            const auto mounted = Files::identifier(folder / name);
            if (own && mounted && own->first != mounted->first && Files::isFolder(folder / name))
                volumes.push_back(folder / name);
        }
    }
    return volumes;
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
        connect(&model(), &AnalyzeModel::focusChanged, this, &Explorer::readoutChanged);
        connect(&model(), &AnalyzeModel::pathChanged, this, &Explorer::pathHasChanged);
        connect(app_->monitor(), &Monitor::sampled, this, &Explorer::diskChanged);
        layOut();
    }
    Q_EMIT appChanged();
    Q_EMIT placesChanged();
    Q_EMIT diskChanged();
}

void Explorer::layOut() {
    layout_ = std::make_shared<const OrbitLayout>(
        OrbitChart::layout(model().mode() == AnalyzeModel::Mode::Folders ? std::span(model().entries())
                                                                         : std::span<const AnalyzeEntry>(),
                           model().subSlices()));
    Q_EMIT layoutChanged();
    Q_EMIT readoutChanged();
}

void Explorer::pathHasChanged() {
    if (!walking_) ahead_.clear();
    Q_EMIT placesChanged();
    Q_EMIT historyChanged();
    Q_EMIT readoutChanged();
}

QVariant Explorer::layout() const {
    return QVariant::fromValue(layout_);
}

OrbitReadout Explorer::readout() const {
    if (!app_) return {};
    return OrbitChart::readout(model().entries(), *layout_, model().focus(),
                               {.url = model().currentFolder(),
                                .isRoot = model().isAtRoot(),
                                .total = model().total(),
                                .files = model().totalFiles()});
}

QString Explorer::focusId() const {
    if (!app_ || !model().focus()) return {};
    return shown(Text::exact(OrbitChart::idOf(*model().focus())));
}

QString Explorer::icon() const {
    return shown(readout().icon);
}

QString Explorer::name() const {
    return shown(readout().name);
}

QString Explorer::size() const {
    return shown(readout().size);
}

QString Explorer::detail() const {
    return shown(readout().detail);
}

QVariantList Explorer::places() const {
    QVariantList list;
    if (!app_) return list;
    const Places& places = app_->profile().places;
    const Path& current = model().currentFolder();
    for (const ExplorerPlace& place : app_->profile().explorerPlaces) {
        const Path path = places.resolve(place.path);
        if (!Files::exists(path)) continue;
        const bool named = *place.title != '\0';
        const std::string title =
            named ? Text::localized(place.title) : Text::shown(path.filename().native());
        list.append(placeOf(path, title, place.symbol, path == current));
    }
    for (const std::string_view folder : app_->profile().volumeFolders) {
        for (const Path& volume : volumesOf(places, folder)) {
            list.append(
                placeOf(volume, Text::shown(volume.filename().native()), "internaldrive", volume == current));
        }
    }
    return list;
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
    for (const AnalyzeEntry& each : model().entries()) {
        if (each.url.native() != entry->path) continue;
        const AnalyzeEntry opened = each;
        return model().open(opened);
    }
}

void Explorer::goBack() {
    if (model().isAtRoot()) return;
    ahead_.push_back(model().currentFolder());
    walking_ = true;
    model().goBack();
    walking_ = false;
}

void Explorer::goForward() {
    if (ahead_.empty()) return;
    const Path next = ahead_.back();
    ahead_.pop_back();
    walking_ = true;
    model().navigate(next);
    walking_ = false;
}

}  // namespace tavrel
