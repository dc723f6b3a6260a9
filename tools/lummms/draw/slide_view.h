#pragma once

#include "tools/lummms/draw/screen.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>

class Message;
class MMS_COMP_SMILMediaObject;
class MMS_COMP_SMILMultipartBodypart;

// The slides prepared for drawing.

/// How an object is shown.
enum VIEW_KIND { VIEW_TEXT, VIEW_PICTURE, VIEW_VIDEO, VIEW_SOUND, VIEW_OTHER };

/// An object of a slide.
struct ObjectView {
    VIEW_KIND kind;
    Place place;
    QString name;                               ///< the content's name, without control characters
    QString alt;                                ///< the sender's alternative text; may be empty
    const MMS_COMP_SMILMultipartBodypart* part; ///< null without content
};

/// A slide.
struct SlideView {
    int duration; ///< milliseconds; -1 not given, -2 until the user goes on
    QColor page;
    QColor text;
    QList<ObjectView> objects; ///< from the bottom to the top
};

/// Whether an object is not on the screen but listed below it.
bool standsAside(const ObjectView& object);
/// Whether a slide has sounds and nothing visible.
bool isOnlyHeard(const SlideView& slide);

/// The slides of a message. Its presentation must have been read, and the message must not move.
class SlideViews {
public:
    explicit SlideViews(const Message& message) : message_(message), screen_(message) {}

    const Screen& screen() const { return screen_; }
    int count() const;
    /// The slide at index n, with a limited number of objects.
    SlideView at(int index) const;

private:
    ObjectView objectView(const MMS_COMP_SMILMediaObject& object) const;

    const Message& message_;
    Screen screen_;
};

/// Makes slides of the parts of a message without a presentation, filling one after another.
void makeSlidesOfParts(Message& message);

/// The text without control characters.
QString wordsOf(const MMS_COMP_SMILMultipartBodypart& part);

/// "5 s", or the text for a slide without a duration.
QString durationLabel(int milliseconds);
