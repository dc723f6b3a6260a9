#pragma once

#include "multipart/body_part_link.h"
#include "platform/export.h"
#include "qt2/qarray.h"
#include "qt2/qptrlist.h"
#include "smil/model/media_object_param.h"
#include "util/smil_time.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;
class QDataStream;
class QDomElement;

/// Which element a media object is.
/// @ingroup presentation
enum MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE : int {
    MMS_COMP_SMIL_MEDIA_AUDIO = 0, ///< `audio`
    MMS_COMP_SMIL_MEDIA_VIDEO = 1, ///< `video`
    MMS_COMP_SMIL_MEDIA_TEXT = 2,  ///< `text`
    MMS_COMP_SMIL_MEDIA_IMG = 3,   ///< `img`
    MMS_COMP_SMIL_MEDIA_REF = 4,   ///< `ref`
    MMS_COMP_SMIL_MEDIA_OTHER = 5, ///< any other element
};

/// One media element of a slide: attributes, `param` children and a link to the body part with its content.
///
/// The object owns its params. Its body part belongs to the container and may be shown by several objects,
/// which the part counts. The object only points to the part: its data become null when the part is
/// deleted, and deleting the object never deletes the part. A part that readFromStream() creates, or
/// setData() without a container, belongs to the caller until it is appended to a container: getData()
/// returns it, clear() of an object without a container deletes it.
///
/// The container is never owned: it must outlive the object or be replaced with setMultiPart().
class LUM_EXPORT MMS_COMP_SMILMediaObject {
public:
    /// `multipart` is where the object finds and makes body parts; it may be null.
    explicit MMS_COMP_SMILMediaObject(MMS_COMP_SMILMultipart* multipart);
    MMS_COMP_SMILMediaObject(const MMS_COMP_SMILMediaObject&) = delete;
    MMS_COMP_SMILMediaObject& operator=(const MMS_COMP_SMILMediaObject&) = delete;

    /// Which element it is.
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getMediaElementType() const { return type_; }
    /// A short type word; "txt" once the object has become a text.
    QString getMediaType() const { return mediaType_; }
    /// The reference to the body part: Content-Location or Content-ID.
    QString getSrc() const { return src_; }
    /// The id of the region in which the object is shown.
    QString getRegionId() const { return regionId_; }
    /// A MIME type for the program's own use, stored in records; for that of the content call
    /// getData()->getMimeFormat().
    QString getMimeType() const { return mimeType_; }
    /// The alternative text.
    QString getAlt() const { return alt_; }
    /// The body part with the content; null when there is none, or after it was deleted.
    MMS_COMP_SMILMultipartBodypart* getData() const { return data_.get(); }
    /// The container, which is not owned; null when there is none.
    MMS_COMP_SMILMultipart* getMultiPart() const { return multipart_; }

    /// The begin time of this object, not a copy.
    MMS_COMP_SMIL_TIME* getBegin() { return &begin_; }
    /// The same for reading.
    const MMS_COMP_SMIL_TIME* getBegin() const { return &begin_; }
    /// The end time of this object, not a copy.
    MMS_COMP_SMIL_TIME* getEnd() { return &end_; }
    /// The same for reading.
    const MMS_COMP_SMIL_TIME* getEnd() const { return &end_; }
    /// The kind of begin time.
    MMS_COMP_SMIL_TIME_TYPE getBeginTimeType() const { return begin_.type; }
    /// The id of the element that the begin refers to.
    QString getBeginTimeEvent() const { return begin_.id; }
    /// The begin in milliseconds.
    int getBeginTimeLength() const { return begin_.value; }
    /// The kind of end time.
    MMS_COMP_SMIL_TIME_TYPE getEndTimeType() const { return end_.type; }
    /// The id of the element that the end refers to.
    QString getEndTimeEvent() const { return end_.id; }
    /// The end in milliseconds.
    int getEndTimeLength() const { return end_.value; }

    /// Also makes the media type "txt" when the type is text.
    void setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);
    /// Sets the type word.
    void setMediaType(const QString& word) { mediaType_ = word; }
    /// Also makes `src` the alternative text. Always true.
    bool setSrc(const QString& src);
    /// Sets the id of the region.
    void setRegionId(const QString& id) { regionId_ = id; }
    /// Sets the MIME type.
    void setMimeType(const QString& mimeType) { mimeType_ = mimeType; }
    /// Sets the alternative text.
    void setAlt(const QString& alt) { alt_ = alt; }
    /// Sets the kind of begin time.
    void setBeginTimeType(MMS_COMP_SMIL_TIME_TYPE type) { begin_.type = type; }
    /// Sets the id of the element that the begin refers to.
    void setBeginTimeEvent(const QString& id) { begin_.id = id; }
    /// Sets the milliseconds of the begin.
    void setBeginTimeLength(int milliseconds) { begin_.value = milliseconds; }
    /// Sets the kind of end time.
    void setEndTimeType(MMS_COMP_SMIL_TIME_TYPE type) { end_.type = type; }
    /// Sets the id of the element that the end refers to.
    void setEndTimeEvent(const QString& id) { end_.id = id; }
    /// Sets the milliseconds of the end.
    void setEndTimeLength(int milliseconds) { end_.value = milliseconds; }
    /// Sets the container, which is not owned.
    void setMultiPart(MMS_COMP_SMILMultipart* multipart) { multipart_ = multipart; }
    /// Links to another body part, which is not owned; its reference count is unchanged.
    void setData(MMS_COMP_SMILMultipartBodypart* part);

    /// Fills the object from a SMIL media element and links it to the body part of `multipart` (null for
    /// the object's own container) that its `src` names; the part gains a reference if it had been
    /// linked before. 0 when linked; 3 when the object has no container, and when there is no such part
    /// or no element: then times and params are not read.
    int setObjectElem(QDomElement* element, MMS_COMP_SMILMultipart* multipart);
    /// Gives the object content: a body part with these octets, made if the object has none and then
    /// appended to `multipart`, which also becomes the object's container. Without a container the caller
    /// owns the new part. A part that other objects show changes for all of them. False when there is no
    /// memory for a part.
    bool setData(const QString& regionId, const QString& src, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                 const QString& subType, const QArray<char>& bytes, MMS_COMP_SMILMultipart* multipart);
    /// Copies this object into `target`; its content is the presentation part or linked part of `multipart`
    /// that `src` refers to, whose reference count is unchanged. The copy begins when this object ends, and
    /// has the same end. False, with the target partly filled, when there is no such part; false too when an
    /// argument is null or the target is this object.
    bool copyTo(MMS_COMP_SMILMediaObject* target, MMS_COMP_SMILMultipart* multipart) const;
    /// Releases the body part: the container drops one reference to the part of that Content-Location, and
    /// deletes it with the last one. Without a container the part is deleted, whatever owns it.
    void clear();

    /// Number of params.
    int getParamCount() const { return params_.count(); }
    /// The param at `index`, owned by the object, or null when out of range.
    MMS_COMP_SMILMediaObjectParam* getParam(int index) const { return params_.at(index); }
    /// Appends a param: 0, or -15 when it cannot be made.
    int appendParamElem(const QString& name, const QString& value,
                        MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType, const QString& refValueType);
    /// The same, with the value type as its word ("data", "ref", "object").
    int appendParamElem(const QString& name, const QString& value, const QString& valueType,
                        const QString& refValueType);
    /// Deletes the param at `index`; false when out of range.
    bool deleteParamElem(int index);
    /// Deletes the first param of that name, if there is one.
    void removeParamByName(const QString& name);
    /// Sets the value of the first param of that name; appends one of value type 0 if there is none.
    void updateParamByName(const QString& name, const QString& value);
    /// The value of the first param of that name, or "".
    QString getParamValueByName(const QString& name) const;

    /// Reads the record that writeToStream() writes. The object's former body part is deleted, whatever owns
    /// it; the caller owns the new one. Params are added to the existing ones. False without memory, or when
    /// the part's record is nested too deep. A record that ends early is read as far as it goes, with true:
    /// check the stream's status.
    bool readFromStream(QDataStream& stream);
    /// Always true.
    bool writeToStream(QDataStream& stream) const;

private:
    MMS_COMP_SMILMediaObjectParam* findParam(const QString& name) const;
    void readParams(const QDomElement& element);
    bool readData(QDataStream& stream);

    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type_ = MMS_COMP_SMIL_MEDIA_OTHER;
    QString mediaType_ = QStringLiteral("");
    QString src_ = QStringLiteral("");
    QString regionId_ = QStringLiteral("");
    QString mimeType_ = QStringLiteral("");
    MMS_COMP_SMIL_TIME begin_;
    MMS_COMP_SMIL_TIME end_;
    QString alt_ = QStringLiteral("");
    BodypartLink data_;
    QPtrList<MMS_COMP_SMILMediaObjectParam> params_;
    MMS_COMP_SMILMultipart* multipart_;
};
