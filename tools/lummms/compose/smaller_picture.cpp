#include "tools/lummms/compose/smaller_picture.h"

#include "multipart/body_part.h"
#include "tools/lummms/draw/picture_reader.h"
#include "tools/lummms/words.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <iterator>

namespace {

/// The largest sides and the quality of one form of a picture.
struct Step {
    int longer, shorter;
    int quality; ///< of the JPEG, up to 100
};

constexpr int PHOTO_MEGABYTES = 512; // limit of memory for decoding the user's own picture

constexpr qint64 PHOTO_PIXELS = 1'000'000'000; // limit of decoding time: pixels times scans

constexpr Step STEPS[] = {
    {640, 480, 85}, {640, 480, 70}, {640, 480, 50}, {320, 240, 75},
    {320, 240, 50}, {240, 180, 50}, {160, 120, 50},
};

/// The size of a picture in that form: not larger than it is, and at least one pixel.
QSize sizeIn(const Step& step, QSize size) {
    const bool isUpright = size.height() > size.width();
    const QSize box = isUpright ? QSize(step.shorter, step.longer) : QSize(step.longer, step.shorter);
    return size.scaled(box, Qt::KeepAspectRatio).boundedTo(size).expandedTo(QSize(1, 1));
}

/// Puts transparent pictures on white: JPEG has no transparency.
QImage opaque(const QImage& image) {
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, image);
    return flat;
}

bool isAnimated(const PictureHeader& header) {
    return (header.format == "gif" || header.format == "webp") && header.scans > 1;
}

} // namespace

SmallerPicture::SmallerPicture(const QArray<char>& octets, const MediaType& type)
    : octetsBefore_(octets.size()) {
    MMS_COMP_SMILMultipartBodypart part;
    part.setContentType(type.type);
    part.setContentSubType(type.subType);
    part.setBodyData(octets);
    const PictureHeader header = readPictureHeader(part);
    sizeBefore_ = header.size;
    if (isAnimated(header)) {
        cause_ = QStringLiteral("an animation is not made smaller");
        return;
    }
    const QSize size = sizeIn(STEPS[0], header.size);
    if (header.pixels() * header.scans <= PHOTO_PIXELS)
        image_ = decodePicture(part, header, size, PHOTO_MEGABYTES);
    if (image_.isNull())
        cause_ = QStringLiteral("the picture cannot be decoded to make it smaller");
    else
        image_ = opaque(image_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

bool SmallerPicture::isExhausted() const {
    return image_.isNull() || step_ == std::size(STEPS);
}

QByteArray SmallerPicture::next() {
    if (isExhausted())
        return QByteArray();
    const Step& step = STEPS[step_++];
    sizeNow_ = sizeIn(step, image_.size());
    const QImage smaller = image_.scaled(sizeNow_, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QByteArray octets;
    QBuffer buffer(&octets);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(step.quality);
    writer.setOptimizedWrite(true);
    return writer.write(smaller) ? octets : QByteArray();
}

QString SmallerPicture::change(qint64 octetsNow) const {
    return QStringLiteral("made smaller: a JPEG of %1 x %2 pixels and %3, from %4 x %5 and %6")
        .arg(sizeNow_.width())
        .arg(sizeNow_.height())
        .arg(counted(octetsNow, "octet"))
        .arg(sizeBefore_.width())
        .arg(sizeBefore_.height())
        .arg(counted(octetsBefore_, "octet"));
}
