#pragma once

#include "tools/lummms/draw/pictures.h"
#include "tools/lummms/draw/slide_view.h"

#include <QImage>
#include <QList>

#include <map>
#include <tuple>

/// The pictures of slides, decoded once, scaled to the size drawn and cut to the visible rectangle. Only the
/// result is kept.
class SlidePictures {
public:
    /// Decodes the pictures for a screen of that size with `scale` pixels for each of its pixels.
    SlidePictures(const QList<SlideView>& slides, const QSizeF& screen, qreal scale);

    /// A picture at its place on the screen.
    struct Shown {
        PICTURE_STATE state;
        QRectF box;   ///< its place on the screen
        QImage image; ///< null when nothing of it is visible
    };
    /// The picture of an object with content.
    Shown of(const ObjectView& object) const;
    /// Number of pictures left out because of the limits.
    int leftOut() const { return leftOut_; }

private:
    using Key = std::tuple<const MMS_COMP_SMILMultipartBodypart*, int, qreal, qreal, qreal, qreal>;
    static Key keyOf(const ObjectView& object);
    void decode(const QList<const ObjectView*>& placed, const QSizeF& screen, qreal scale);
    Shown cut(const QImage& picture, const QRectF& target, const QRectF& seen, qreal scale);

    Pictures pictures_;
    std::map<Key, Shown> shown_;
    qint64 pixelsKept_ = 0;
    int leftOut_ = 0;
};
