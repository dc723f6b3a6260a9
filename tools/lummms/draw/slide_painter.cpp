#include "tools/lummms/draw/slide_painter.h"

#include "tools/lummms/words.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int LINES_UNDER_SLIDE = 3;
constexpr qreal LINE_PER_LETTER = 1.25;
constexpr qsizetype WORDS_DRAWN = 1500;       // characters of a text; the phone's region shows about 300
constexpr qsizetype ALL_WORDS_DRAWN = 60'000; // of all texts: text layout is slow

qreal lineOf(const Screen& screen) {
    return screen.fontPixels() * LINE_PER_LETTER;
}

QFont fontOf(const Screen& screen) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(int(screen.fontPixels()));
    return font;
}

/// The beginning of a text: a region shows no more.
QString beginning(const QString& words) {
    const bool cutsPair = words.size() > WORDS_DRAWN && words.at(WORDS_DRAWN - 1).isHighSurrogate();
    return words.left(cutsPair ? WORDS_DRAWN - 1 : WORDS_DRAWN)
        .remove(u'\r')
        .replace(u'\n', QChar::LineSeparator);
}

} // namespace

SlidePainter::SlidePainter(QPainter& painter, const Screen& screen, const SlidePictures& pictures)
    : painter_(painter), screen_(QPointF(), screen.size()), line_(lineOf(screen)), pictures_(pictures),
      scripts_(fontOf(screen)), charactersLeft_(ALL_WORDS_DRAWN) {
    painter_.setFont(fontOf(screen));
}

qreal SlidePainter::legendHeight(const Screen& screen) {
    return LINES_UNDER_SLIDE * lineOf(screen);
}

QStringList SlidePainter::notes() const {
    QStringList notes = scripts_.missing();
    if (textsLeftOut_)
        notes += QStringLiteral("%1 left out: together the texts are too long")
                     .arg(counted(textsLeftOut_, "text"));
    return notes;
}

QString SlidePainter::elided(const QString& text, qreal width) const {
    return QFontMetricsF(painter_.font()).elidedText(text.left(200), Qt::ElideMiddle, width);
}

/// Draws a dashed frame with words in it, in place of what cannot be drawn.
void SlidePainter::drawGap(const QRectF& box, const QString& words, const QString& name) {
    const QRectF frame = box.adjusted(4, 4, -4, -4);
    painter_.fillRect(frame, QColor(238, 238, 238));
    painter_.setPen(QPen(Qt::gray, 1, Qt::DashLine));
    painter_.drawRect(frame);
    painter_.setPen(Qt::darkGray);
    painter_.drawText(frame, Qt::AlignCenter, elided(name, frame.width() - 8) + u'\n' + words);
}

void SlidePainter::drawPicture(const ObjectView& object) {
    if (!object.part) {
        drawGap(object.place.box, QStringLiteral("missing"), object.name);
        return;
    }
    const SlidePictures::Shown shown = pictures_.of(object);
    if (shown.state == PICTURE_BROKEN)
        drawGap(object.place.box, QStringLiteral("no picture"), object.name);
    else if (shown.state == PICTURE_TOO_MUCH)
        drawGap(object.place.box, QStringLiteral("too large"), object.name);
    else if (!shown.image.isNull())
        painter_.drawImage(shown.box, shown.image);
}

void SlidePainter::drawVideo(const ObjectView& object) {
    const QRectF& box = object.place.box;
    drawGap(box, object.part ? QStringLiteral("video") : QStringLiteral("video missing"), object.name);
    const QPointF top = box.center() - QPointF(line_ * 0.6, line_ * 3.3);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(Qt::darkGray);
    painter_.drawPolygon(
        QPolygonF({top, top + QPointF(0, line_ * 1.6), top + QPointF(line_ * 1.35, line_ * 0.8)}));
}

/// Draws the lines of a text that fit, aligned to the side where its script begins.
void SlidePainter::layOut(const QString& words, const QRectF& box) {
    QTextOption option;
    option.setTextDirection(words.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(words, painter_.font());
    layout.setTextOption(option);
    layout.beginLayout();
    for (qreal y = 0; y < box.height();) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(box.width());
        line.setPosition(QPointF(words.isRightToLeft() ? box.width() - line.naturalTextWidth() : 0, y));
        y += line.height();
    }
    layout.endLayout();
    layout.draw(&painter_, box.topLeft());
}

void SlidePainter::drawText(const ObjectView& object, const QColor& color) {
    if (!object.part) {
        drawGap(object.place.box, QStringLiteral("missing"), object.name);
        return;
    }
    if (!words_.contains(object.part))
        words_.insert(object.part, beginning(wordsOf(*object.part)));
    const QString words = words_.value(object.part);
    if (words.size() > charactersLeft_) {
        ++textsLeftOut_;
        drawGap(object.place.box, QStringLiteral("too long"), object.name);
        return;
    }
    charactersLeft_ -= words.size();
    scripts_.look(words);
    painter_.setPen(color);
    layOut(words, object.place.box.adjusted(2, 2, -2, 0));
}

void SlidePainter::drawObject(const ObjectView& object, const QColor& textColor) {
    painter_.save();
    painter_.setClipRect(object.place.box & screen_);
    if (object.kind == VIEW_TEXT)
        drawText(object, textColor);
    else if (object.kind == VIEW_PICTURE)
        drawPicture(object);
    else if (object.kind == VIEW_VIDEO)
        drawVideo(object);
    painter_.restore();
}

/// A loudspeaker of ten by ten units.
void SlidePainter::drawSoundMark(const QPointF& at, qreal unit, const QColor& color) {
    painter_.save();
    painter_.translate(at);
    painter_.scale(unit, unit);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
    painter_.drawRect(QRectF(0, 3, 3, 4));
    painter_.drawPolygon(QPolygonF({QPointF(3, 3), QPointF(7, 0), QPointF(7, 10), QPointF(3, 7)}));
    painter_.setPen(QPen(color, 1));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawArc(QRectF(5, 1, 6, 8), -60 * 16, 120 * 16);
    painter_.restore();
}

/// The lines below a slide: number and duration, then sounds and other parts.
void SlidePainter::drawLegend(const SlideView& slide, int number) {
    const qreal top = screen_.height() + 2;
    painter_.setPen(Qt::black);
    painter_.drawText(QRectF(0, top, screen_.width(), line_), Qt::AlignCenter | Qt::TextDontClip,
                      QStringLiteral("%1: %2").arg(number).arg(durationLabel(slide.duration)));
    int line = 1;
    for (const ObjectView& object : slide.objects) {
        if (line == LINES_UNDER_SLIDE || !standsAside(object))
            continue;
        const QPointF mark(0, top + line * line_);
        if (object.kind == VIEW_SOUND)
            drawSoundMark(mark + QPointF(0, line_ / 5), line_ / 15, Qt::black);
        else
            painter_.drawText(QRectF(mark, QSizeF(line_, line_)), Qt::AlignVCenter, QStringLiteral("+"));
        const QRectF place(line_ + 1, mark.y(), screen_.width() - line_ - 1, line_);
        painter_.drawText(place, Qt::AlignVCenter, elided(object.name, place.width()));
        ++line;
    }
}

void SlidePainter::draw(const SlideView& slide, int number) {
    painter_.fillRect(screen_, slide.page);
    for (const ObjectView& object : slide.objects)
        drawObject(object, slide.text);
    if (isOnlyHeard(slide))
        drawSoundMark(screen_.center() - QPointF(line_, line_), line_ / 5, Qt::gray);
    painter_.setPen(QPen(Qt::gray, 1));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(screen_.adjusted(-0.5, -0.5, 0.5, 0.5));
    drawLegend(slide, number);
}
