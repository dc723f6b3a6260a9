#pragma once

#include <QByteArray>
#include <QStringList>

class Message;

/// Which slides are drawn, counted from 1; `to` may lie behind the last.
struct SlideRange {
    int from;
    int to;
};

/// What was drawn, and a line for each thing that the user should know of it.
struct Drawing {
    QByteArray octets; ///< empty when it could not be made
    QStringList notes;
};

/// The slides side by side as a PNG picture, each pixel of the layout `scale` pixels wide or, where the
/// picture would become too large, less. Needs a QGuiApplication.
Drawing slidesAsPng(const Message& message, SlideRange range, int scale);

/// The message as one HTML page that needs nothing else: header, slides, and the parts to be saved.
Drawing slidesAsPage(Message& message, SlideRange range);

/// The slides of a range that there are, as many as there is room for; a note tells of the rest.
SlideRange slidesWithin(SlideRange range, int slides, int room, QStringList& notes);

/// A note on pictures that were too much; none without.
QStringList notesOnPictures(int leftOut);
