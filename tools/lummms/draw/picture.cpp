#include "multipart/body_part.h"
#include "smil/model/layout.h"
#include "smil/model/presentation.h"
#include "tools/lummms/draw/draw.h"
#include "tools/lummms/draw/slide_view.h"
#include "tools/lummms/message.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <algorithm>

namespace {

constexpr int MAX_SLIDES_DRAWN = 30; // beside each other; the picture is to be one that can be opened
constexpr int MARGIN = 6;            // around each slide
constexpr int FONT_PIXELS = 12;
constexpr int LINE = 15; // a line under the slide: duration, then sounds and other objects
constexpr int LINES_UNDER_SLIDE = 3;
constexpr qsizetype WORDS_DRAWN = 1500; // characters of a text; a region has room for some 300
constexpr int CELL_WIDTH = REGION_WIDTH + 2 * MARGIN;
constexpr int CELL_HEIGHT = 2 * REGION_HEIGHT + 2 * MARGIN + LINES_UNDER_SLIDE * LINE;

QRectF rectOf(VIEW_REGION region) {
    return QRectF(0, region * REGION_HEIGHT, REGION_WIDTH, REGION_HEIGHT);
}

QString elided(const QPainter& painter, const QString& text, qreal width) {
    return QFontMetricsF(painter.font()).elidedText(text.left(200), Qt::ElideMiddle, width);
}

/// A dashed frame with words in it, for what cannot be drawn.
void drawPlaceholder(QPainter& painter, const QRectF& region, const QString& words, const QString& name) {
    const QRectF frame = region.adjusted(4, 4, -4, -4);
    painter.fillRect(frame, QColor(238, 238, 238));
    painter.setPen(QPen(Qt::gray, 1, Qt::DashLine));
    painter.drawRect(frame);
    painter.setPen(Qt::darkGray);
    painter.drawText(frame, Qt::AlignCenter, elided(painter, name, frame.width() - 8) + u'\n' + words);
}

/// The rectangle that a picture of that size takes in its region, which clips it.
QRectF placed(const QSizeF& size, const QRectF& region, int fit) {
    QSizeF shown = size;
    if (fit == MMS_COMP_SMIL_FIT_FILL)
        shown = region.size();
    else if (fit == MMS_COMP_SMIL_FIT_MEET)
        shown.scale(region.size(), Qt::KeepAspectRatio);
    else if (fit == MMS_COMP_SMIL_FIT_SLICE)
        shown.scale(region.size(), Qt::KeepAspectRatioByExpanding);
    return QRectF(region.topLeft(), shown);
}

void drawPicture(QPainter& painter, const ObjectView& object, const QRectF& region) {
    const QImage picture = object.part ? pictureOf(*object.part) : QImage();
    if (picture.isNull())
        drawPlaceholder(painter, region, object.part ? "no picture" : "missing", object.name);
    else
        painter.drawImage(placed(picture.size(), region, object.fit), picture);
}

void drawVideo(QPainter& painter, const ObjectView& object, const QRectF& region) {
    drawPlaceholder(painter, region, object.part ? "video" : "video missing", object.name);
    const QPointF top = region.center() - QPointF(9, 50);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::darkGray);
    painter.drawPolygon(QPolygonF({top, top + QPointF(0, 24), top + QPointF(20, 12)}));
}

void drawText(QPainter& painter, const ObjectView& object, const QRectF& region, const QColor& color) {
    if (!object.part) {
        drawPlaceholder(painter, region, "missing", object.name);
        return;
    }
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.setPen(color);
    painter.drawText(region.adjusted(2, 2, -2, 0), object.words.left(WORDS_DRAWN), option);
}

void drawObject(QPainter& painter, const ObjectView& object, const QColor& textColor) {
    const QRectF region = rectOf(object.region);
    painter.save();
    painter.setClipRect(region);
    if (object.kind == VIEW_TEXT)
        drawText(painter, object, region, textColor);
    else if (object.kind == VIEW_PICTURE)
        drawPicture(painter, object, region);
    else if (object.kind == VIEW_VIDEO)
        drawVideo(painter, object, region);
    painter.restore();
}

/// A loudspeaker, 10 by 10.
void drawSoundMark(QPainter& painter, const QPointF& at) {
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRect(QRectF(at + QPointF(0, 3), QSizeF(3, 4)));
    painter.drawPolygon(
        QPolygonF({at + QPointF(3, 3), at + QPointF(7, 0), at + QPointF(7, 10), at + QPointF(3, 7)}));
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(at + QPointF(5, 1), QSizeF(6, 8)), -60 * 16, 120 * 16);
    painter.restore();
}

/// The lines under a slide: its number and duration, then what is heard or else goes with it.
void drawLegend(QPainter& painter, const SlideView& slide, int number) {
    const qreal top = 2 * REGION_HEIGHT + 2;
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, top, REGION_WIDTH, LINE), Qt::AlignHCenter | Qt::AlignVCenter,
                     QStringLiteral("%1: %2").arg(number).arg(durationLabel(slide.duration)));
    int line = 1;
    for (const ObjectView& object : slide.objects) {
        if (line == LINES_UNDER_SLIDE || (object.kind != VIEW_SOUND && object.kind != VIEW_OTHER))
            continue;
        const QRectF place(16, top + line * LINE, REGION_WIDTH - 16, LINE);
        if (object.kind == VIEW_SOUND)
            drawSoundMark(painter, place.topLeft() + QPointF(-16, 3));
        else
            painter.drawText(place.adjusted(-16, 0, 0, 0), Qt::AlignVCenter, "+");
        painter.drawText(place, Qt::AlignVCenter, elided(painter, object.name, place.width()));
        ++line;
    }
}

void drawSlide(QPainter& painter, const SlideView& slide, int number) {
    const QRectF screen(0, 0, REGION_WIDTH, 2 * REGION_HEIGHT);
    painter.fillRect(screen, slide.page);
    const auto drawKinds = [&](bool texts) { // texts on top: another object may stand in their region
        for (const ObjectView& object : slide.objects)
            if ((object.kind == VIEW_TEXT) == texts)
                drawObject(painter, object, slide.text);
    };
    drawKinds(false);
    drawKinds(true);
    painter.setPen(QPen(Qt::gray, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(screen.adjusted(-0.5, -0.5, 0.5, 0.5));
    drawLegend(painter, slide, number);
}

} // namespace

QByteArray slidesAsPng(const Message& message, int scale, int& leftOut) {
    const int slides = message.presentation->getTotalSlidesNum();
    const int drawn = std::min(slides, MAX_SLIDES_DRAWN);
    leftOut = slides - drawn;
    QImage image(drawn * CELL_WIDTH * scale, CELL_HEIGHT * scale, QImage::Format_RGB32);
    image.fill(QColor(250, 250, 250));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(FONT_PIXELS);
    painter.setFont(font);
    painter.scale(scale, scale);
    painter.translate(MARGIN, MARGIN);
    for (int i = 0; i < drawn; ++i) {
        drawSlide(painter, slideView(message, i), i + 1);
        painter.translate(CELL_WIDTH, 0);
    }
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}
