#include "tools/lummms/draw/screen.h"

#include "smil/model/layout.h"
#include "smil/model/presentation.h"
#include "tools/lummms/message.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr QSizeF PHONE_REGION(120, 160);
constexpr QSizeF USUAL_SCREEN(240, 320); // when the sender gives no size
constexpr qreal LARGEST_SIDE = 4096;
constexpr qreal SMALLEST_LETTERS = 12; // the phone's size of letters
constexpr qreal LETTERS_PER_SCREEN = 20;
constexpr int NOT_GIVEN = -1; // marks an absent measure in the presentation

QSizeF bounded(const QSizeF& size) {
    return size.expandedTo(QSizeF(1, 1)).boundedTo(QSizeF(LARGEST_SIDE, LARGEST_SIDE));
}

/// A measure in pixels of the layout; percentages are of `whole`.
qreal pixels(float measure, bool isPercent, qreal whole) {
    const qreal value = isPercent ? qreal(measure) * whole / 100 : qreal(measure);
    return std::isfinite(value) ? std::clamp(value, -LARGEST_SIDE, LARGEST_SIDE) : 0;
}

/// The box of a region. Without width or height it extends to the edge of the screen.
QRectF boxOf(const MMS_COMP_SMILRegion& region, bool isPercent, const QSizeF& screen) {
    const auto start = [&](float measure, qreal whole) {
        return measure == NOT_GIVEN ? 0 : pixels(measure, isPercent, whole);
    };
    const auto extent = [&](float measure, qreal whole, qreal from) {
        return measure == NOT_GIVEN ? whole - from : pixels(measure, isPercent, whole);
    };
    const qreal left = start(region.getLeft(), screen.width());
    const qreal top = start(region.getTop(), screen.height());
    return QRectF(left, top, std::max<qreal>(extent(region.getWidth(), screen.width(), left), 0),
                  std::max<qreal>(extent(region.getHeight(), screen.height(), top), 0));
}

} // namespace

Screen::Screen(const Message& message) {
    const MMS_COMP_SMILData& presentation = *message.presentation;
    hasTwoRegions_ = message.reading() == READING_PHONE || presentation.getRegionCount() == 0;
    size_ = QSizeF(PHONE_REGION.width(), 2 * PHONE_REGION.height());
    if (!hasTwoRegions_) {
        const MMS_COMP_SMILRootLayout* root = presentation.getRootLayout();
        size_ = root ? QSizeF(root->getWidth(), root->getHeight()) : QSizeF();
    }
    takeRegions(presentation);
    size_ = bounded(size_);
}

void Screen::takeRegions(const MMS_COMP_SMILData& presentation) {
    const bool isPercent = presentation.getLayoutMeasureUnit() == MMS_COMP_SMIL_UNIT_PERCENT;
    const bool sizeGiven = !size_.isEmpty();
    const QSizeF screen = sizeGiven ? bounded(size_) : USUAL_SCREEN;
    QRectF all;
    for (const MMS_COMP_SMILRegion* region : presentation.getLayout()->getRegionList()) {
        const Place place = {boxOf(*region, isPercent, screen), region->getFit()};
        if (!places_.contains(region->getId()))
            places_.insert(region->getId(), place);
        all = all.united(place.box);
    }
    if (hasTwoRegions_)
        return;
    if (!sizeGiven)
        size_ = isPercent || all.isEmpty() ? screen : QSizeF(all.right(), all.bottom());
    else // objects outside the screen would be invisible: like phones, extend the screen
        size_ = screen.expandedTo(QSizeF(all.right(), all.bottom()).boundedTo(screen * 2));
}

qreal Screen::fontPixels() const {
    const qreal side = std::sqrt(size_.width() * size_.height());
    return std::max(SMALLEST_LETTERS, std::round(side / LETTERS_PER_SCREEN));
}

Place Screen::place(const QString& regionId, bool isText) const {
    const QString textId = MMS_COMP_SMILData::getTextRegionId();
    const QString imageId = MMS_COMP_SMILData::getImgRegionId();
    const Place whole = {QRectF(QPointF(), size_), MMS_COMP_SMIL_FIT_HIDDEN};
    const Place usual = places_.value(isText ? textId : imageId, whole);
    const Place given = places_.value(regionId, usual);
    if (!hasTwoRegions_)
        return given;
    const bool standsInText = regionId == textId || (isText && regionId != imageId);
    return {QRectF(QPointF(0, standsInText ? 0 : PHONE_REGION.height()), PHONE_REGION), given.fit};
}
