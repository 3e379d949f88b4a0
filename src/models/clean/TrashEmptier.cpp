#include "models/clean/TrashEmptier.h"

#include "core/ByteCount.h"
#include "core/Phrase.h"

#include <QPointer>
#include <utility>

namespace tavrel {

TrashEmptier::TrashEmptier(CleanRunner& runner, QObject* parent) : QObject(parent), runner_(runner) {}

QString TrashEmptier::emptiedText() const {
    if (!emptied_) return {};
    return QString::fromStdString(phrase("Trash emptied · {}", byteCount(*emptied_)));
}

void TrashEmptier::empty() {
    if (std::exchange(working_, true)) return;
    Q_EMIT changed();
    runner_.emptyTrash([self = QPointer(this)](std::int64_t bytes) {
        if (!self) return;
        self->emptied_ = bytes;
        self->working_ = false;
        Q_EMIT self->changed();
    });
}

void TrashEmptier::forget() {
    emptied_.reset();
    Q_EMIT changed();
}

}  // namespace tavrel
