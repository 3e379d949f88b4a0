#include "models/clean/TrashEmptier.h"

#include "core/ByteCount.h"
#include "core/Phrase.h"

#include <QCoroFuture>
#include <QPointer>

namespace tavrel {

TrashEmptier::TrashEmptier(CleanRunner& runner, QObject* parent) : QObject(parent), runner_(runner) {}

QString TrashEmptier::emptiedText() const {
    if (!emptied_) return {};
    return QString::fromStdString(phrase("Trash emptied · {}", byteCount(*emptied_)));
}

void TrashEmptier::empty() {
    if (!working_) QCoro::connect(run(), this, [] {});
}

void TrashEmptier::forget() {
    emptied_.reset();
    Q_EMIT changed();
}

QCoro::Task<> TrashEmptier::run() {
    const QPointer<TrashEmptier> self = this;
    working_ = true;
    Q_EMIT changed();
    QFuture<std::int64_t> removal = runner_.emptyTrash();
    const std::int64_t bytes = co_await removal;
    if (!self) co_return;
    emptied_ = bytes;
    working_ = false;
    Q_EMIT changed();
}

}  // namespace tavrel
