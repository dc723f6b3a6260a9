#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"
#include "qt2/qptrlist.h"
#include "smil/model/media_object.h"
#include "util/color.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class QDataStream;

/// One slide (`par`): media objects that are shown together, with duration and colours.
///
/// A slide is the ordered list of its media objects and owns them. canBeInserted() and updateData() limit it
/// to one text, one image or video, and one audio; `ref` objects are not limited. The container is not owned:
/// it must outlive the slide, or be replaced with setMultiPart() in the slide and each of its objects.
class LUM_EXPORT MMS_COMP_SMILTimingContainer : public QPtrList<MMS_COMP_SMILMediaObject> {
public:
    /// An empty slide of 5000 milliseconds. `multipart` may be null.
    explicit MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart* multipart);
    MMS_COMP_SMILTimingContainer(const MMS_COMP_SMILTimingContainer&) = delete;
    MMS_COMP_SMILTimingContainer& operator=(const MMS_COMP_SMILTimingContainer&) = delete;

    /// Milliseconds; -1 not given, -2 "indefinite".
    int getDur() const { return duration_; }
    /// Sets the duration.
    void setDur(int milliseconds) { duration_ = milliseconds; }
    /// Whether the user set the duration.
    bool getSetDurManually() const { return durationSetManually_; }
    /// Sets whether the user set the duration.
    void setSetDurManually(bool manually) { durationSetManually_ = manually; }
    /// The container, which is not owned; null when there is none.
    MMS_COMP_SMILMultipart* getMultiPart() const { return multipart_; }
    /// The container for objects made from now on; those there keep theirs.
    void setMultiPart(MMS_COMP_SMILMultipart* multipart) { multipart_ = multipart; }
    /// A copy of the page colour; kind 3 until set.
    MMS_COMP_COLOR getPageColor() const { return pageColor_; }
    /// A copy of the text colour; kind 3 until set.
    MMS_COMP_COLOR getTextColor() const { return textColor_; }
    /// Sets the page colour.
    void setPageColor(const MMS_COMP_COLOR& color) { pageColor_ = color; }
    /// Sets the text colour.
    void setTextColor(const MMS_COMP_COLOR& color) { textColor_ = color; }
    /// The text size as the presentation has it; empty until set.
    QString getTextSize() const { return textSize_; }
    /// Sets the size of the text.
    void setTextSize(const QString& size) { textSize_ = size; }

    /// Number of objects.
    int getMediaObjectCount() const { return count(); }
    /// The object at `index`, owned by the slide, or null when out of range.
    MMS_COMP_SMILMediaObject* getMediaObject(int index) const { return at(index); }
    /// Appends the object, of any kind, and takes it over; false for null.
    bool appendObject(MMS_COMP_SMILMediaObject* object) { return append(object); }
    /// Inserts the object before the one at `index` and takes it over; false, and the caller keeps it, when
    /// it is null or the index is out of range.
    bool insert(int index, MMS_COMP_SMILMediaObject* object) { return QPtrList::insert(index, object); }
    /// Deletes the object at `index` without releasing its body part; false when out of range.
    bool remove(int index) { return QPtrList::remove(index); }

    /// Whether the slide has room for an object of that kind, given as its tag in any case.
    bool canBeInserted(const QString& kind) const;
    /// Whether nothing is shown: no objects, or only texts without content.
    bool isBlank() const;
    /// False if an image or a video comes after a text, else true.
    bool isTextBellowImg() const;
    /// Whether there is an object of that type.
    bool isElemExist(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) const;
    /// Whether there is a video.
    bool isVideoExist() const;
    /// Whether there is an image or a video.
    bool isImageExist() const;
    /// Whether there is an audio.
    bool isAudioExist() const;
    /// Octets of the payloads of all objects, at most INT_MAX; a part that two objects share counts twice.
    int getPageSize() const;

    /// The first object of that type, or null. With `take` it is removed, and the caller owns it.
    MMS_COMP_SMILMediaObject* getElem(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, bool take = false);
    /// The same for a text.
    MMS_COMP_SMILMediaObject* getTextElem(bool take = false);
    /// The same for a video.
    MMS_COMP_SMILMediaObject* getVideoElem(bool take = false);
    /// The same for an image.
    MMS_COMP_SMILMediaObject* getImgElem(bool take = false);
    /// The same for an audio.
    MMS_COMP_SMILMediaObject* getAudioElem(bool take = false);
    /// The first image, or without one the first video.
    MMS_COMP_SMILMediaObject* getImgObjectLikeElem(bool take = false);

    /// Releases the body part of the first object of that type and deletes the object.
    void removeElem(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);
    /// The same for the first text.
    void removeTextElem();
    /// Removes the first image and the first video.
    void removeImgLikeElem();
    /// Removes the first object with exactly this `src`.
    void removeBySrc(const QString& src);
    /// Releases all body parts, deletes all objects and sets the duration back to 5000 milliseconds.
    void clear();

    /// Sets the content of the object of that type (an image replaces a video and vice versa), or of a new
    /// one. A new text goes to the end if `textBelowImage`, else before the image; a new image goes before
    /// the text if `textBelowImage`, else to the end. A part that other slides share changes for all of them,
    /// see MMS_COMP_SMILMediaObject::setData(). False when an object cannot be made.
    bool updateData(const QString& regionId, const QString& src, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                    const QString& subType, const QArray<char>& bytes, bool textBelowImage,
                    MMS_COMP_SMILMultipart* multipart);
    /// Adds copies of all objects to `target`, whose content is in `multipart`, and copies the slide's own
    /// values. False as soon as an object's content is missing there, with the copies made before; false too
    /// when the target is null or this slide.
    bool copyTo(MMS_COMP_SMILTimingContainer* target, MMS_COMP_SMILMultipart* multipart) const;

    /// Reads the record that writeToStream() writes: duration and objects. The objects are added to the
    /// existing ones and have no container; the caller owns their body parts, and clear() deletes them. False
    /// without memory, or when sub-bodies are nested too deep. A record that ends early is read as far as it
    /// goes, with true: check the stream's status.
    bool readFromStream(QDataStream& stream);
    /// Always true. Colours, text size and the manual flag are not part of the record.
    bool writeToStream(QDataStream& stream) const;

private:
    int indexOfType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) const;
    void release(int index);

    int duration_;
    bool durationSetManually_ = false;
    MMS_COMP_SMILMultipart* multipart_;
    MMS_COMP_COLOR pageColor_{MMS_COMP_COLOR_UNREADABLE, QStringLiteral(""), QColor()};
    MMS_COMP_COLOR textColor_{MMS_COMP_COLOR_UNREADABLE, QStringLiteral(""), QColor()};
    QString textSize_ = QStringLiteral("");
};
