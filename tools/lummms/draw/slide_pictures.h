#pragma once

#include "tools/lummms/draw/pictures.h"
#include "tools/lummms/draw/slide_view.h"

#include <QImage>
#include <QList>

#include <map>
#include <tuple>

/// The pictures of slides, ready to be drawn. Each is decoded once, made as large as it is drawn and cut to
/// what is seen of it, and then only that is kept.
class SlidePictures {
public:
    /// Decodes the pictures for a screen of that size, each pixel of it `scale` pixels wide.
    SlidePictures(const QList<SlideView>& slides, const QSizeF& screen, qreal scale);

    /// One picture at its place on the screen.
    struct Shown {
        PICTURE_STATE state;
        QRectF box;   ///< that it takes on the screen
        QImage image; ///< null when nothing is seen of it
    };
    /// The picture of an object with content.
    Shown of(const ObjectView& object) const;
    /// How many pictures were left out because they are too much.
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
