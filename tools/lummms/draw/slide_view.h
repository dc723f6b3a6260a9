#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>

class Message;
class MMS_COMP_SMILMultipartBodypart;
class MMS_COMP_SMILTimingContainer;

// What a slide looks like, for those who draw it.

/// The screen of a slide: two regions of that size, the one for texts above the one for pictures.
constexpr int REGION_WIDTH = 120;
constexpr int REGION_HEIGHT = 160;

/// The two regions, from above.
enum VIEW_REGION { REGION_TEXT, REGION_IMAGE };

/// How an object is shown.
enum VIEW_KIND { VIEW_TEXT, VIEW_PICTURE, VIEW_VIDEO, VIEW_SOUND, VIEW_OTHER };

/// One object of a slide.
struct ObjectView {
    VIEW_KIND kind;
    VIEW_REGION region;
    int fit;                                    ///< one of MMS_COMP_SMIL_REGION_FIT
    QString name;                               ///< the content's name, fit to be shown
    QString words;                              ///< of a text
    const MMS_COMP_SMILMultipartBodypart* part; ///< null when there is no content
};

/// One slide.
struct SlideView {
    int duration; ///< milliseconds; -1 not given, -2 until the user goes on
    QColor page;
    QColor text;
    QList<ObjectView> objects;
};

/// The n-th slide of a message whose presentation has been read.
SlideView slideView(const Message& message, int index);

/// Gives a message without a presentation slides of its parts, filled one after the other.
void makeSlidesOfParts(Message& message);

/// The picture of a part; a null image when it is none that can be decoded, or too large. `format`, if
/// given, becomes the name of the format.
QImage pictureOf(const MMS_COMP_SMILMultipartBodypart& part, QByteArray* format = nullptr);

/// "5 s"; what is said of a slide without a duration.
QString durationLabel(int milliseconds);
