#pragma once

#include "multipart/body_part_list.h"
#include "platform/export.h"
#include "qt2/qarray.h"

#include <QPixmap>
#include <QString>

#include <optional>

class BodypartLink;
class QDataStream;
class RecordReader;
class RecordWriter;

/// One part of a message body: MIME headers, payload, and sub-bodies if it was received as a body within the
/// body.
///
/// Type, charset, Content-Location, Content-ID and payload are sent with a message; the other fields are for
/// the phone and its records.
///
/// Setters that return int always return 0, unless their comment says otherwise. Deleting a part removes it
/// from the container or part that owns it.
class LUM_EXPORT MMS_COMP_SMILMultipartBodypart {
public:
    /// Whether the device can show or play a part. The library uses 0 only; other numbers have the meaning
    /// that the program gives them.
    enum MEDIA_SUPPORT : int { SUPPORT_UNKNOWN = 0 };

    /// Bits of the part flags.
    enum PART_FLAG : unsigned int {
        FLAG_USER_PROMPT = 1u << 0, ///< the part carried "X-Mms-UserPrompt" with the octet 0x80
    };

    /// Values of getDispFileType() that this library knows.
    enum DISP_FILE_TYPE : int {
        PRESENTATION_PART = 0, ///< the SMIL text, and what a slide shows
        ORDINARY_PART = 1,     ///< what no slide shows: attachments
    };

    /// Returned by setBodyData() when there is no memory for the payload.
    static constexpr int ERR_NO_MEMORY = -15;

    MMS_COMP_SMILMultipartBodypart();
    /// A copy without an owner. It shares the payload (see QArray), copies the sub-bodies in the same way,
    /// and has the values of all other fields, the reference count included.
    MMS_COMP_SMILMultipartBodypart(const MMS_COMP_SMILMultipartBodypart& other);
    MMS_COMP_SMILMultipartBodypart& operator=(const MMS_COMP_SMILMultipartBodypart&) = delete;
    /// Deletes the sub-bodies, removes the part from its owner and resets every BodypartLink to it.
    ~MMS_COMP_SMILMultipartBodypart();

    /// A DISP_FILE_TYPE, set by media objects and containers that refer to the part, or a number of the
    /// program's own; 1 in a new part.
    int getDispFileType() const { return dispFileType_; }
    /// Sets the number.
    int setDispFileType(int type);
    /// The file name to show, and to save under.
    QString getDispFileName() const { return dispFileName_; }
    /// Sets the file name to show.
    int setDispFileName(const QString& name);

    /// Top-level MIME type, such as "image".
    QString getContentType() const { return contentType_; }
    /// Also resets the support to 0.
    int setContentType(const QString& type);
    /// MIME sub-type, such as "jpeg".
    QString getSubType() const { return subType_; }
    /// Name of the charset of a text; empty in a new part and in one that was received.
    QString getCharset() const { return charset_; }
    /// Sets the name of the charset. Plain text without a charset is labelled UTF-8 when it is sent, which
    /// payloads are in; with any charset, "utf-8" included, it is labelled US-ASCII.
    int setCharset(const QString& charset);
    /// Content-Description.
    QString getDescription() const { return description_; }
    /// Sets the Content-Description.
    int setDescription(const QString& description);
    /// Content-Location (WSP header 0x0E), a file name in practice.
    QString getContentLocation() const { return contentLocation_; }
    /// Sets the Content-Location.
    int setContentLocation(const QString& location);
    /// Content-ID (WSP header 0x40) as received, "<" and ">" included.
    QString getContentID() const { return contentId_; }
    /// Sets the Content-ID, with "<" and ">".
    int setContentID(const QString& id);
    /// Name of the Content-Transfer-Encoding.
    QString getContentXferEncoding() const { return contentXferEncoding_; }
    /// Sets the name of the Content-Transfer-Encoding.
    int setContentXferEncoding(const QString& encoding);
    /// One free-form extension header.
    QString getExtHeader() const { return extHeader_; }
    /// Sets the extension header.
    int setExtHeader(const QString& header);
    /// The boundary of a nested textual multipart.
    QString getBoundary() const { return boundary_; }
    /// Sets the boundary.
    int setBoundary(const QString& boundary);

    /// PART_FLAG bits.
    unsigned int getPartFlags() const { return partFlags_; }
    /// Replaces all PART_FLAG bits.
    void setPartFlags(unsigned int flags) { partFlags_ = flags; }
    /// The number of media objects that refer to this part; 1 in a new part.
    int getRefCount() const { return refCount_; }
    /// Sets the number of references; any number is stored.
    int setRefCount(int count);
    /// 0 after type, sub-type or payload was set.
    MEDIA_SUPPORT getSupport() const { return support_; }
    /// Sets whether the device can show or play the part.
    int setSupport(MEDIA_SUPPORT support);

    /// A picture for the program's own use, never stored in a record. A null pixmap when none was set, which
    /// like every QPixmap needs a running QGuiApplication.
    QPixmap getPixmap() const;
    /// Keeps a picture.
    void setPixmap(const QPixmap& pixmap) { pixmap_ = pixmap; }
    /// A number that goes with the pixmap; -1 in a new part.
    int getPixmapId() const { return pixmapId_; }
    /// Sets the number that goes with the pixmap.
    void setPixmapId(int id) { pixmapId_ = id; }

    /// "type/sub-type"; "/" for a new part.
    QString getMimeFormat() const;
    /// The text left of the first "/"; empty when there is no "/".
    static QString getTypePartFromFormat(const QString& format);
    /// The text right of the last "/"; empty when there is no "/".
    static QString getSubTypePartFromFormat(const QString& format);

    /// Type, sub-type, charset and transfer encoding by the code numbers of EMAIL_Util. Setters return false,
    /// and change nothing, for an unknown code; getters return -1 for an unknown name.
    bool setContentType(int code);
    /// The code of the top-level type.
    int getContentTypeByCode() const;
    /// Sets the sub-type.
    bool setSubTypeCode(int code);
    /// The code of the sub-type.
    int getSubTypeCode() const;
    /// Sets the charset.
    bool setCharsetByCode(int code);
    /// The code that the charset's name has in the table of sub-types.
    int getCharsetByCode() const;
    /// Stores an empty name for an unknown code.
    void setContentXferEncodingByCode(int code);
    /// The code of the Content-Transfer-Encoding.
    int getContentXferEncodingByCode() const;
    /// Sets the sub-type ("3gp" in any case becomes "3gpp") and resets the support. Always true.
    bool setContentSubType(const QString& subType);

    /// The payload of this part, without sub-bodies. Other arrays may share it.
    QArray<char>& getBodyData() { return bodyData_; }
    /// The same for reading.
    const QArray<char>& getBodyData() const { return bodyData_; }
    /// Stores a private copy of `data`: 0, or ERR_NO_MEMORY. Success resets the support.
    int setBodyData(const QArray<char>& data);
    /// Stores a copy of `length` octets, none for a length below 1: 0, or ERR_NO_MEMORY, also for a null
    /// pointer with a length, which leaves the payload as it was. The support is reset in any case.
    int setBodyData(const char* octets, int length);
    /// Octets of this part and all its sub-bodies together, INT_MAX if there are more.
    int getBodyDataLen() const;

    /// Writes the payload to a file in the temporary directory, named after the display file name or, without
    /// one, the last step of the Content-Location, and stores the file's path in `path`.
    ///
    /// An existing file is overwritten. False, with `path` untouched, when the payload is empty;
    /// false, with the path that was tried, when the file cannot be written, in which case one that was
    /// there is removed, or would not be a regular file below the temporary directory.
    bool saveBodyDataToFile(QString& path) const;

    /// Number of sub-bodies, without their own sub-bodies.
    int getSubBodyCount() const { return subBodies_.count(); }
    /// The i-th sub-body, or null when out of range. This part owns it.
    MMS_COMP_SMILMultipartBodypart* getSubBody(unsigned int i) const;
    /// Takes over `part` as sub-body number `index`, before the one that was there, or as the last one if
    /// there is none at `index`. False, and the caller keeps it, for null and for a part that contains this
    /// one.
    bool setSubBody(MMS_COMP_SMILMultipartBodypart* part, int index);
    /// Deletes the i-th sub-body; false when out of range.
    bool rmSubBody(unsigned int i);
    /// Deletes all sub-bodies.
    void clearSubBody() { subBodies_.clear(); }

    /// Reads a record into this part; its sub-bodies are added behind the existing ones. True, also for a
    /// record that ends early, of which the part gets what was there: check the stream's status. False, with
    /// what was read so far, when sub-bodies are nested deeper than 16 or there is no memory.
    bool readFromStream(QDataStream& stream);
    /// Writes the part as a record. Always true: check the stream's status.
    bool writeToStream(QDataStream& stream) const;

    /// The list that deletes this part; null when the program that made or read the part does.
    BodypartList* getOwner() const { return owner_; }

private:
    friend class BodypartLink;
    friend class BodypartList;  // sets the owner of a part
    friend class PartIndex;     // sorts names by their keys
    friend class PartReference; // compares names by their keys, and without copying them

    /// Moves the part to another list, or to the caller with null; the former list forgets it.
    void setOwner(BodypartList* owner);
    bool readRecord(RecordReader& record, int depth);
    void writeRecord(RecordWriter& record) const;
    bool holds(const MMS_COMP_SMILMultipartBodypart* part) const;
    qint64 totalSize() const;

    // empty, not null: records distinguish the two
    int dispFileType_ = ORDINARY_PART;
    quint32 locationKey_ = 0;   // loweredKey() of the location, of the id in it, of the Content-ID: most
    quint32 locationIdKey_ = 0; // parts differ in them. They are next to the type, so that a look-up
    quint32 idKey_ = 0;         // reads one cache line of each part
    QString dispFileName_ = QStringLiteral("");
    QString contentType_ = QStringLiteral("");
    QString subType_ = QStringLiteral("");
    QString charset_ = QStringLiteral("");
    QString description_ = QStringLiteral("");
    QString contentLocation_ = QStringLiteral("");
    QString contentId_ = QStringLiteral("");
    QString contentXferEncoding_ = QStringLiteral("");
    QString extHeader_ = QStringLiteral("");
    unsigned int partFlags_ = 0;
    QArray<char> bodyData_;
    int refCount_ = 1;
    QString boundary_ = QStringLiteral("");
    BodypartList subBodies_;
    MEDIA_SUPPORT support_ = SUPPORT_UNKNOWN;
    std::optional<QPixmap> pixmap_; // a QPixmap aborts a program that has no application object
    int pixmapId_ = -1;

    BodypartList* owner_ = nullptr;
    BodypartLink* links_ = nullptr; // the first of the chain of links to this part
};
