#include "tools/lummms/draw/slide_pictures.h"

#include "smil/model/layout.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr qint64 MOST_PIXELS_KEPT = 20 << 20; // of four octets each

/// The rectangle of a picture of that size in its region, which clips it.
QRectF placed(const QSizeF& size, const Place& place) {
    QSizeF shown = size;
    if (place.fit == MMS_COMP_SMIL_FIT_FILL)
        shown = place.box.size();
    else if (place.fit == MMS_COMP_SMIL_FIT_MEET)
        shown.scale(place.box.size(), Qt::KeepAspectRatio);
    else if (place.fit == MMS_COMP_SMIL_FIT_SLICE)
        shown.scale(place.box.size(), Qt::KeepAspectRatioByExpanding);
    return QRectF(place.box.topLeft(), shown);
}

QSize wholePixels(const QSizeF& size) {
    return QSize(int(std::ceil(size.width())), int(std::ceil(size.height())));
}

} // namespace

SlidePictures::Key SlidePictures::keyOf(const ObjectView& object) {
    const QRectF& box = object.place.box;
    return {object.part, object.place.fit, box.x(), box.y(), box.width(), box.height()};
}

SlidePictures::SlidePictures(const QList<SlideView>& slides, const QSizeF& screen, qreal scale) {
    std::map<Key, const ObjectView*> objects; // sorted by part: a part's pictures are adjacent
    for (const SlideView& slide : slides)
        for (const ObjectView& object : slide.objects)
            if (object.kind == VIEW_PICTURE && object.part &&
                pictures_.of(*object.part).state == PICTURE_SHOWN)
                objects.emplace(keyOf(object), &object);
    QList<const ObjectView*> ofOnePart;
    for (const auto& [key, object] : objects) {
        if (!ofOnePart.isEmpty() && ofOnePart.first()->part != object->part) {
            decode(ofOnePart, screen, scale);
            ofOnePart.clear();
        }
        ofOnePart += object;
    }
    if (!ofOnePart.isEmpty())
        decode(ofOnePart, screen, scale);
    leftOut_ += pictures_.leftOut();
}

/// Decodes a part's picture once and cuts it for each object that shows it.
void SlidePictures::decode(const QList<const ObjectView*>& objects, const QSizeF& screen, qreal scale) {
    const MMS_COMP_SMILMultipartBodypart& part = *objects.first()->part;
    const PictureHeader header = pictures_.of(part).header;
    QSize wanted;
    for (const ObjectView* object : objects)
        wanted = wanted.expandedTo(wholePixels(placed(header.size, object->place).size() * scale));
    const QImage picture = decodePicture(part, header, wanted);
    bool isLeftOut = false;
    for (const ObjectView* object : objects) {
        const QRectF target = placed(header.size, object->place);
        const QRectF seen = target & object->place.box & QRectF(QPointF(), screen);
        const Shown shown =
            picture.isNull() ? Shown{PICTURE_BROKEN, {}, {}} : cut(picture, target, seen, scale);
        isLeftOut = isLeftOut || shown.state == PICTURE_TOO_MUCH;
        shown_.emplace(keyOf(*object), shown);
    }
    leftOut_ += isLeftOut;
}

SlidePictures::Shown SlidePictures::cut(const QImage& picture, const QRectF& target, const QRectF& seen,
                                        qreal scale) {
    if (seen.isEmpty())
        return {PICTURE_SHOWN, {}, {}};
    const QSize size = wholePixels(seen.size() * scale);
    const qint64 pixels = qint64(size.width()) * size.height();
    if (pixels > MOST_PIXELS_KEPT - pixelsKept_)
        return {PICTURE_TOO_MUCH, {}, {}};
    pixelsKept_ += pixels;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {PICTURE_TOO_MUCH, {}, {}};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    painter.translate(-seen.topLeft());
    painter.drawImage(target, picture);
    return {PICTURE_SHOWN, QRectF(seen.topLeft(), QSizeF(size) / scale), image};
}

SlidePictures::Shown SlidePictures::of(const ObjectView& object) const {
    const auto found = shown_.find(keyOf(object));
    if (found != shown_.end())
        return found->second;
    return {pictures_.stateOf(*object.part), {}, {}};
}
