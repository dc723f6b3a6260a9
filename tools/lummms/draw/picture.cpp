#include "tools/lummms/draw/draw.h"
#include "tools/lummms/draw/slide_painter.h"
#include "tools/lummms/message.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int MOST_SLIDES = 30;               // of one picture: a limit that other programs can open
constexpr qreal MOST_PIXELS = 24 * (1 << 20); // of the whole picture
constexpr qreal GREATEST_WIDTH = 32'000;      // the limit of Qt's raster painter
constexpr qreal MARGIN = 6;                   // around each slide
constexpr qreal NARROWEST = 120;              // leaves room for the text below a slide

/// A slide with the text below and the margins.
QSizeF cellOf(const Screen& screen) {
    return QSizeF(std::max(screen.size().width(), NARROWEST) + 2 * MARGIN,
                  screen.size().height() + SlidePainter::legendHeight(screen) + 2 * MARGIN);
}

/// The wanted scale, or the largest that fits.
qreal boundedScale(const QSizeF& size, int wanted) {
    return std::min({qreal(wanted), std::sqrt(MOST_PIXELS / (size.width() * size.height())),
                     GREATEST_WIDTH / size.width()});
}

QByteArray asPng(const QImage& image) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

} // namespace

Drawing slidesAsPng(const Message& message, SlideRange range, int scale) {
    Drawing drawing;
    const SlideViews views(message);
    const SlideRange drawn = slidesWithin(range, views.count(), MOST_SLIDES, drawing.notes);
    QList<SlideView> slides;
    for (int i = drawn.from; i <= drawn.to; ++i)
        slides += views.at(i - 1);
    const QSizeF cell = cellOf(views.screen());
    const QSizeF size(cell.width() * double(slides.size()), cell.height());
    const qreal pixel = boundedScale(size, scale);
    // decoding comes first: its memory is free again when the picture is drawn
    const SlidePictures pictures(slides, views.screen().size(), pixel);

    QImage image((size * pixel).toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    if (image.isNull())
        return drawing;
    image.fill(QColor(250, 250, 250));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(pixel, pixel);
    painter.translate(MARGIN, MARGIN);
    SlidePainter slidePainter(painter, views.screen(), pictures);
    int number = drawn.from;
    for (const SlideView& slide : slides) {
        slidePainter.draw(slide, number++);
        painter.translate(cell.width(), 0);
    }
    painter.end();
    drawing.octets = asPng(image);
    drawing.notes += notesOnPictures(pictures.leftOut());
    drawing.notes += slidePainter.notes();
    return drawing;
}
