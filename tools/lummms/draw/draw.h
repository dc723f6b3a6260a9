#pragma once

#include <QByteArray>
#include <QStringList>

class Message;

/// The slides to draw, counted from 1; `to` may be beyond the last.
struct SlideRange {
    int from;
    int to;
};

/// The result, and notes for the user.
struct Drawing {
    QByteArray octets; ///< empty on failure
    QStringList notes;
};

/// Draws the slides side by side as PNG, each pixel of the layout `scale` pixels wide, or less when the
/// picture would become too large. Needs a QGuiApplication.
Drawing slidesAsPng(const Message& message, SlideRange range, int scale);

/// Makes one HTML page that loads nothing else: header, slides, and the parts to save.
Drawing slidesAsPage(Message& message, SlideRange range);

/// The slides of a range, as many as can be drawn; a note reports the others.
SlideRange slidesWithin(SlideRange range, int slides, int room, QStringList& notes);

/// The note on pictures that were too large to draw; none without such.
QStringList notesOnPictures(int leftOut);
