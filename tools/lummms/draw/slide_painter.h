#pragma once

#include "tools/lummms/draw/scripts.h"
#include "tools/lummms/draw/slide_pictures.h"
#include "tools/lummms/draw/slide_view.h"

#include <QHash>
#include <QStringList>

class QPainter;

/// Draws slides one at a time, with the painter's origin at the corner of the screen.
class SlidePainter {
public:
    SlidePainter(QPainter& painter, const Screen& screen, const SlidePictures& pictures);

    void draw(const SlideView& slide, int number);

    /// The height of the text below a screen.
    static qreal legendHeight(const Screen& screen);
    /// A note for each script without a font, and for what was not drawn.
    QStringList notes() const;

private:
    void drawObject(const ObjectView& object, const QColor& textColor);
    void drawText(const ObjectView& object, const QColor& color);
    void layOut(const QString& words, const QRectF& box);
    void drawPicture(const ObjectView& object);
    void drawVideo(const ObjectView& object);
    void drawGap(const QRectF& box, const QString& words, const QString& name);
    void drawLegend(const SlideView& slide, int number);
    void drawSoundMark(const QPointF& at, qreal unit, const QColor& color);
    QString elided(const QString& text, qreal width) const;

    QPainter& painter_;
    const QRectF screen_;
    const qreal line_;
    const SlidePictures& pictures_;
    Scripts scripts_;
    QHash<const MMS_COMP_SMILMultipartBodypart*, QString> words_;
    qsizetype charactersLeft_;
    int textsLeftOut_ = 0;
};
