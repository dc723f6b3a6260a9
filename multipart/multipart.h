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
    /// What copyFrom() makes of an otherwise empty container.
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
    /// Stores the reference and marks the ordinary part it refers to as presentation part.
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
    /// Adds the part at the end and takes it over: 0, or ERR_INSERT for null.
    int appendBodypart(MMS_COMP_SMILMultipartBodypart* part);
    /// Takes the part over and puts it before the one at `index`, in front for an index below 1 and
    /// at the end for one that is too large: 0, or ERR_INSERT for null.
    int insertBodypart(MMS_COMP_SMILMultipartBodypart* part, int index);
    /// The part at `index`, or null. With `take` it leaves the container and is the caller's.
    MMS_COMP_SMILMultipartBodypart* getBodypartByIndex(int index, bool take);
    /// Drops one reference to the part at `index`, and deletes the part with the last: 0, or
    /// ERR_NO_PART.
    int deletePart(int index);
    /// Drops references to the parts that match `src`: all parts up to the first one that has
    /// further references are deleted, that one loses a reference. 0 (also without a match), or
    /// ERR_NO_PART for an empty reference.
    int deletePartBySrc(const QString& src);
    /// The same for the Content-Location of a part, of this container or another; it takes no longer for
    /// a long one.
    int deletePartLike(const MMS_COMP_SMILMultipartBodypart& part);
    /// The first part that matches `src` and has that display file type, or null. It stays the
    /// container's.
    MMS_COMP_SMILMultipartBodypart* getBodyPartBySrc(const QString& src, int fileType) const;
    /// The part that a media element shows: the first that matches `src` among the ordinary parts, or else
    /// among those that are linked already; null when there is none. It stays the container's.
    MMS_COMP_SMILMultipartBodypart* getContentBySrc(const QString& src) const;

    /// The reference without an opening "<", a closing ">" and a leading "cid:".
    static QString parseCid(const QString& reference);
    /// Whether two references mean the same Content-ID; never, when the first is empty.
    static bool isCidEqual(const QString& a, const QString& b);

    /// Whether a new part cannot have that name: a part matches it, or it is not a valid URL, or it
    /// has 100 or more characters.
    bool isPartExist(const QString& name) const;
    /// A Content-Location for a new part that no part has yet, made from the file name in `name`:
    /// photo.jpg, photo_0.jpg, photo_1.jpg, ...
    QString createUniqueLocation(const QString& name) const;
    /// The same for a part without a name: file0.jpg, file1.jpg, ... `extension` may be empty.
    QString createUniqueAttchmentLocation(const QString& extension) const;

    /// The presentation part, which stays the container's, or null. In a related body without a
    /// usable start parameter that is a first part of type "application/smil", which gets marked. (Related
    /// is what setMimeType() says; reading a message leaves that as it is in a new container, related.)
    MMS_COMP_SMILMultipartBodypart* getSmilPart();

    /// Attachments are the ordinary parts of a related body, or all parts of any other.
    int getAttachmentCount() const;
    /// The i-th attachment, counted from 0, or null. It stays the container's.
    MMS_COMP_SMILMultipartBodypart* getAttachment(int i) const;
    /// Tells what there is: ordinary parts, and parts of type "image", "audio" and "video", the
    /// presentation part included. Null for what is not wanted.
    void isContainAttachImgAudio(bool* attachment, bool* image, bool* audio, bool* video) const;

    /// Whether a part asks for the user's consent ("X-Mms-UserPrompt").
    bool isContainUPI() const;
    /// The first such part, or null. With `take` it leaves the container and is the caller's.
    MMS_COMP_SMILMultipartBodypart* getFirstUPIPart(bool take);

    /// Takes over the other's types and start parameter, and adds copies of its parts behind those
    /// already there. Boundary and other parameters stay.
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
