#include "tools/lummms/compose/fitting.h"

#include "tools/lummms/compose/draft.h"
#include "tools/lummms/terminal.h"

namespace {

bool mayBeSmaller(const Item& item) {
    return item.kind() == MMS_COMP_SMIL_MEDIA_IMG && !(item.picture && item.picture->isExhausted());
}

/// The largest picture that can still be made smaller; null when there is none.
Item* largestPicture(Draft& draft) {
    Item* largest = nullptr;
    draft.forEachItem([&largest](Item& item) {
        if (mayBeSmaller(item) && (!largest || item.octets.size() > largest->octets.size()))
            largest = &item;
    });
    return largest;
}

} // namespace

bool makeSmaller(Item& item) {
    if (!mayBeSmaller(item))
        return false;
    if (!item.picture)
        item.picture = std::make_shared<SmallerPicture>(item.octets, item.type);
    QByteArray smaller;
    do {
        smaller = item.picture->next();
    } while (!smaller.isEmpty() && smaller.size() >= item.octets.size());
    if (smaller.isEmpty())
        return false;
    item.octets = smaller;
    item.type = {QStringLiteral("image"), QStringLiteral("jpeg")};
    item.src = nameWithExtension(item.src, item.type);
    item.isSmaller = true;
    return true;
}

bool makeSmaller(Draft& draft, qint64 excess) {
    while (excess > 0) {
        Item* item = largestPicture(draft);
        if (!item)
            return false;
        const qint64 before = item->octets.size();
        makeSmaller(*item);
        excess -= before - item->octets.size();
    }
    return true;
}

QString whyNotSmaller(const Draft& draft) {
    QString cause;
    draft.forEachItem([&cause](const Item& item) {
        if (cause.isEmpty() && item.picture && !item.picture->cause().isEmpty())
            cause = QStringLiteral("%1: %2").arg(item.name, item.picture->cause());
    });
    return cause;
}

void tellChanges(const Draft& draft) {
    draft.forEachItem([](const Item& item) {
        if (item.isSmaller)
            complain(item.name, item.picture->change(item.octets.size()));
    });
}
