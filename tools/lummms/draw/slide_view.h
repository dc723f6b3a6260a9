#pragma once

#include "tools/lummms/draw/screen.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>

class Message;
class MMS_COMP_SMILMediaObject;
class MMS_COMP_SMILMultipartBodypart;

// What a slide looks like, for those who draw it.

/// How an object is shown.
enum VIEW_KIND { VIEW_TEXT, VIEW_PICTURE, VIEW_VIDEO, VIEW_SOUND, VIEW_OTHER };

/// One object of a slide.
struct ObjectView {
    VIEW_KIND kind;
    Place place;
    QString name;                               ///< the content's name, fit to be shown
    QString alt;                                ///< what the sender says of it instead; may be empty
    const MMS_COMP_SMILMultipartBodypart* part; ///< null when there is no content
};

/// One slide.
struct SlideView {
    int duration; ///< milliseconds; -1 not given, -2 until the user goes on
    QColor page;
    QColor text;
    QList<ObjectView> objects; ///< the later ones above the earlier ones
};

/// Whether an object is not on the screen, but told of below it.
bool standsAside(const ObjectView& object);
/// Whether a slide has sounds and nothing to be seen.
bool isOnlyHeard(const SlideView& slide);

/// The slides of a message whose presentation has been read, and that stays where it is.
class SlideViews {
public:
    explicit SlideViews(const Message& message) : message_(message), screen_(message) {}

    const Screen& screen() const { return screen_; }
    int count() const;
    /// The n-th slide, with as many objects as one can tell apart.
    SlideView at(int index) const;

private:
    ObjectView objectView(const MMS_COMP_SMILMediaObject& object) const;

    const Message& message_;
    Screen screen_;
};

/// Gives a message without a presentation slides of its parts, filled one after the other.
void makeSlidesOfParts(Message& message);

/// The words of a text, without what would steer whatever shows them.
QString wordsOf(const MMS_COMP_SMILMultipartBodypart& part);

/// "5 s"; what is said of a slide without a duration.
QString durationLabel(int milliseconds);
