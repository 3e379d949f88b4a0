#include "models/analyze/PlaceList.h"

#include "models/support/PathUrl.h"

#include <QPointer>
#include <utility>

namespace tavrel {

PlaceList::PlaceList(std::vector<DiskWork::PlaceFinder> finders, DiskWork& work) : work_(work) {
    for (DiskWork::PlaceFinder& find : finders) parts_.push_back({.find = std::move(find)});
}

QVariantList PlaceList::all() const {
    QVariantList list;
    for (const Part& part : parts_) {
        for (const ExplorerPlaces::Found& place : part.found) {
            list.append(QVariantMap{{QStringLiteral("title"), QString::fromStdString(place.title)},
                                    {QStringLiteral("symbol"), QString::fromStdString(place.symbol)},
                                    {QStringLiteral("url"), PathUrl::of(place.path)}});
        }
    }
    return list;
}

void PlaceList::look() {
    for (std::size_t at = 0; at < parts_.size(); ++at) {
        if (std::exchange(parts_[at].isLooking, true)) continue;
        const QPointer<PlaceList> self = this;
        work_.findPlaces(parts_[at].find, [self, at](DiskWork::FoundPlaces found) {
            if (!self) return;
            Part& part = self->parts_[at];
            part.isLooking = false;
            if (part.found == found) return;
            part.found = std::move(found);
            Q_EMIT self->allChanged();
        });
    }
}

}  // namespace tavrel
