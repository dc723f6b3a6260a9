#pragma once

#include "multipart/body_part.h"
#include "multipart/body_part_list.h"
#include "platform/export.h"

#include <QString>

class PartReference;

/// The body of a message: its content type and its parts, in order.
///
/// References to parts are Content-IDs ("cid:" and angle brackets optional) or Content-Locations,
/// compared in lower case.
class LUM_EXPORT MMS_COMP_SMILMultipart {
public:
    /// Returned when a part cannot be inserted.
    static constexpr int ERR_INSERT = -21;
    /// Returned for an index out of range and for an empty reference.
    static constexpr int ERR_NO_PART = -22;

    /// An empty related body, "application/vnd.wap.multipart.related" of "application/smil".
    MMS_COMP_SMILMultipart();
    /// An empty container after copyFrom(`other`).
    MMS_COMP_SMILMultipart(const MMS_COMP_SMILMultipart& other);
    MMS_COMP_SMILMultipart& operator=(const MMS_COMP_SMILMultipart&) = delete;
    /// Deletes the parts.
    ~MMS_COMP_SMILMultipart();

    /// The content type's "type" parameter.
    QString getExtType() const { return extType_; }
    /// Sets the "type" parameter.
    void setExtType(const QString& type) { extType_ = type; }
    /// The body's own top-level type.
    QString getMimeType() const { return mimeType_; }
    /// Sets the body's own top-level type.
    void setMimeType(const QString& type) { mimeType_ = type; }
    /// The "start" parameter: the reference of the presentation part.
    QString getStart() const { return start_; }
    /// Sets the reference, and marks the ordinary part that it refers to as presentation part.
    void setStart(const QString& start);
    /// All other parameters of the content type, as one text; null in a new container.
    QString getOtherContentTypeParam() const { return otherContentTypeParam_; }
    /// Sets the other parameters.
    void setOtherContentTypeParam(const QString& parameters) { otherContentTypeParam_ = parameters; }
    /// The boundary of a textual multipart; null in a new container.
    QString getBoundary() const { return boundary_; }
    /// Sets the boundary.
    void setBoundary(const QString& boundary) { boundary_ = boundary; }

    /// Number of parts, sub-bodies not counted.
    int getPartCount() const { return parts_.count(); }
    /// Appends the part and takes it over: 0, or ERR_INSERT for null.
    int appendBodypart(MMS_COMP_SMILMultipartBodypart* part);
    /// Inserts the part before the one at `index` and takes it over; an index below 1 means the front, one
    /// that is too large the end. 0, or ERR_INSERT for null.
    int insertBodypart(MMS_COMP_SMILMultipartBodypart* part, int index);
    /// The part at `index`, or null. With `take` it is removed, and the caller owns it.
    MMS_COMP_SMILMultipartBodypart* getBodypartByIndex(int index, bool take);
    /// Drops one reference to the part at `index`; the part is deleted with the last one. 0, or ERR_NO_PART.
    int deletePart(int index);
    /// Drops references to the parts that match `src`: all parts up to the first one that has
    /// further references are deleted, that one loses a reference. 0 (also without a match), or
    /// ERR_NO_PART for an empty reference.
    int deletePartBySrc(const QString& src);
    /// The same for the Content-Location of a part, of this container or another. A long location costs no
    /// more time than a short one.
    int deletePartLike(const MMS_COMP_SMILMultipartBodypart& part);
    /// The first part that matches `src` and has that display file type, or null. The container owns it.
    MMS_COMP_SMILMultipartBodypart* getBodyPartBySrc(const QString& src, int fileType) const;
    /// The part that a media element shows: the first that matches `src` among the ordinary parts, or else
    /// among those that are linked already; null when there is none. It stays the container's.
    MMS_COMP_SMILMultipartBodypart* getContentBySrc(const QString& src) const;

    /// The reference without an opening "<", a closing ">" and a leading "cid:".
    static QString parseCid(const QString& reference);
    /// Whether two references mean the same Content-ID; false when the first is empty.
    static bool isCidEqual(const QString& a, const QString& b);

    /// Whether a new part cannot have that name: a part matches it, it is not a valid URL, or it has 100 or
    /// more characters.
    bool isPartExist(const QString& name) const;
    /// A Content-Location that no part has yet, made from the file name in `name`: photo.jpg, photo_0.jpg,
    /// photo_1.jpg, ...
    QString createUniqueLocation(const QString& name) const;
    /// The same for a part without a name: file0.jpg, file1.jpg, ... `extension` may be empty.
    QString createUniqueAttchmentLocation(const QString& extension) const;

    /// The presentation part, or null. The container owns it. In a related body without a usable start
    /// parameter it is the first part, if that is of type "application/smil"; it is marked then. (A new
    /// container is related; setMimeType() changes that, reading a message does not.)
    MMS_COMP_SMILMultipartBodypart* getSmilPart();

    /// Number of attachments: the ordinary parts of a related body, or all parts of any other. Read the
    /// presentation first, which marks the parts that slides show.
    int getAttachmentCount() const;
    /// The i-th attachment, counted from 0, or null. The container owns it.
    MMS_COMP_SMILMultipartBodypart* getAttachment(int i) const;
    /// Sets each flag to whether there is an ordinary part, or a part of type "image", "audio" or "video",
    /// the presentation part included. Null pointers are skipped.
    void isContainAttachImgAudio(bool* attachment, bool* image, bool* audio, bool* video) const;

    /// Whether a part asks for the user's consent ("X-Mms-UserPrompt").
    bool isContainUPI() const;
    /// The first such part, or null. With `take` it is removed, and the caller owns it.
    MMS_COMP_SMILMultipartBodypart* getFirstUPIPart(bool take);

    /// Copies the other's types and start parameter, and appends copies of its parts. Boundary and other
    /// parameters stay.
    void copyFrom(const MMS_COMP_SMILMultipart& other);
    /// Deletes the parts and resets types and start parameter; the "type" parameter becomes empty,
    /// boundary and other parameters stay.
    void clear();

private:
    friend class MMS_COMP_SMILMultipartParser; // decides between related and mixed

    bool isRelated() const;
    int indexOfUPIPart() const;
    int deletePartsMeant(const PartReference& reference);

    QString extType_;
    QString mimeType_;
    QString mimeSubType_;
    QString start_ = QStringLiteral("");
    QString otherContentTypeParam_;
    QString boundary_;
    BodypartList parts_;
};
