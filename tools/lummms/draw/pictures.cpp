#include "tools/lummms/draw/pictures.h"

namespace {

constexpr qint64 MEGA = 1 << 20;
constexpr qint64 MOST_PIXELS = 64 * MEGA;
constexpr qint64 MOST_SCANS = 200;
constexpr qint64 MOST_SCANNED_PIXELS = 256 * MEGA; // each scan is a pass over all pixels

} // namespace

PICTURE_STATE Pictures::take(const PictureHeader& header) {
    if (header.format.isEmpty())
        return PICTURE_BROKEN;
    const qint64 pixels = header.pixels();
    if (!fitsMemory(header) || header.scans > MOST_SCANS - scans_ || pixels > MOST_PIXELS - pixels_ ||
        pixels * header.scans > MOST_SCANNED_PIXELS - scannedPixels_) {
        ++leftOut_;
        return PICTURE_TOO_MUCH;
    }
    pixels_ += pixels;
    scans_ += header.scans;
    scannedPixels_ += pixels * header.scans;
    return PICTURE_SHOWN;
}

Pictures::Picture Pictures::of(const MMS_COMP_SMILMultipartBodypart& part) {
    const auto known = pictures_.constFind(&part);
    if (known != pictures_.constEnd())
        return *known;
    const PictureHeader header = readPictureHeader(part);
    return *pictures_.insert(&part, {header, take(header)});
}

PICTURE_STATE Pictures::stateOf(const MMS_COMP_SMILMultipartBodypart& part) const {
    return pictures_.value(&part).state;
}
