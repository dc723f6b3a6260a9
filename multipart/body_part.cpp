#include "multipart/body_part.h"

#include "multipart/body_part_link.h"
#include "multipart/part_reference.h"
#include "platform/mime/email_util.h"
#include "util/lowered.h"
#include "util/record_stream.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace {

// The deepest nesting of sub-bodies that is read from a record, as in the multipart reader.
constexpr int deepestRecord = 16;

} // namespace

MMS_COMP_SMILMultipartBodypart::MMS_COMP_SMILMultipartBodypart() = default;

MMS_COMP_SMILMultipartBodypart::MMS_COMP_SMILMultipartBodypart(const MMS_COMP_SMILMultipartBodypart& other)
    : dispFileType_(other.dispFileType_), locationKey_(other.locationKey_),
      locationIdKey_(other.locationIdKey_), idKey_(other.idKey_), dispFileName_(other.dispFileName_),
      contentType_(other.contentType_), subType_(other.subType_), charset_(other.charset_),
      description_(other.description_), contentLocation_(other.contentLocation_),
      contentId_(other.contentId_), contentXferEncoding_(other.contentXferEncoding_),
      extHeader_(other.extHeader_), partFlags_(other.partFlags_), bodyData_(other.bodyData_),
      refCount_(other.refCount_), boundary_(other.boundary_), support_(other.support_),
      pixmap_(other.pixmap_), pixmapId_(other.pixmapId_) {
    for (const MMS_COMP_SMILMultipartBodypart* part : other.subBodies_)
        subBodies_.append(new MMS_COMP_SMILMultipartBodypart(*part));
}

MMS_COMP_SMILMultipartBodypart::~MMS_COMP_SMILMultipartBodypart() {
    setOwner(nullptr);
    while (links_)
        links_->pointAt(nullptr);
}

void MMS_COMP_SMILMultipartBodypart::setOwner(BodypartList* owner) {
    BodypartList* former = owner_;
    owner_ = owner;
    if (former)
        former->disown(this);
}

// ---- plain fields ----

int MMS_COMP_SMILMultipartBodypart::setDispFileType(int type) {
    dispFileType_ = type;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setDispFileName(const QString& name) {
    dispFileName_ = name;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setContentType(const QString& type) {
    support_ = SUPPORT_UNKNOWN;
    contentType_ = type;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setCharset(const QString& charset) {
    charset_ = charset;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setDescription(const QString& description) {
    description_ = description;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setContentLocation(const QString& location) {
    contentLocation_ = location;
    const PartReference reference(location);
    locationKey_ = reference.textKey();
    locationIdKey_ = reference.idKey();
    if (owner_)
        owner_->forgetIndex();
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setContentID(const QString& id) {
    contentId_ = id;
    idKey_ = loweredKey(bareContentId(QStringView(id).trimmed()));
    if (owner_)
        owner_->forgetIndex();
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setContentXferEncoding(const QString& encoding) {
    contentXferEncoding_ = encoding;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setExtHeader(const QString& header) {
    extHeader_ = header;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setBoundary(const QString& boundary) {
    boundary_ = boundary;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setRefCount(int count) {
    refCount_ = count;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setSupport(MEDIA_SUPPORT support) {
    support_ = support;
    return 0;
}

QPixmap MMS_COMP_SMILMultipartBodypart::getPixmap() const {
    return pixmap_ ? *pixmap_ : QPixmap();
}

// ---- type, charset and encoding ----

QString MMS_COMP_SMILMultipartBodypart::getMimeFormat() const {
    return contentType_ + '/' + subType_;
}

QString MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(const QString& format) {
    const qsizetype slash = format.indexOf('/');
    return slash < 0 ? QStringLiteral("") : format.left(slash);
}

QString MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(const QString& format) {
    const qsizetype slash = format.lastIndexOf('/');
    return slash < 0 ? QStringLiteral("") : format.mid(slash + 1);
}

bool MMS_COMP_SMILMultipartBodypart::setContentType(int code) {
    QCString name;
    if (!EMAIL_Util::typeEnumToStr(code, name))
        return false;
    setContentType(QString::fromLocal8Bit(name));
    return true;
}

int MMS_COMP_SMILMultipartBodypart::getContentTypeByCode() const {
    return EMAIL_Util::typeStrToEnum(contentType_.toLocal8Bit());
}

bool MMS_COMP_SMILMultipartBodypart::setSubTypeCode(int code) {
    QCString name;
    return EMAIL_Util::subTypeEnumToStr(code, name) && setContentSubType(QString::fromLocal8Bit(name));
}

int MMS_COMP_SMILMultipartBodypart::getSubTypeCode() const {
    return EMAIL_Util::subTypeStrToEnum(subType_.toLocal8Bit());
}

bool MMS_COMP_SMILMultipartBodypart::setContentSubType(const QString& subType) {
    support_ = SUPPORT_UNKNOWN;
    subType_ = equalLowered(subType, u"3gp") ? QStringLiteral("3gpp") : subType;
    return true;
}

bool MMS_COMP_SMILMultipartBodypart::setCharsetByCode(int code) {
    QCString name;
    if (!EMAIL_Util::charsetEnumToStr(code, name))
        return false;
    charset_ = QString::fromLocal8Bit(name);
    return true;
}

int MMS_COMP_SMILMultipartBodypart::getCharsetByCode() const {
    // by sub-type names, unlike setCharsetByCode(): callers rely on these codes
    return EMAIL_Util::subTypeStrToEnum(charset_.toLocal8Bit());
}

void MMS_COMP_SMILMultipartBodypart::setContentXferEncodingByCode(int code) {
    contentXferEncoding_ = QString::fromLocal8Bit(EMAIL_Util::cteEnumToStr(code));
}

int MMS_COMP_SMILMultipartBodypart::getContentXferEncodingByCode() const {
    return EMAIL_Util::cteStrToEnum(contentXferEncoding_.toLocal8Bit());
}

// ---- payload ----

int MMS_COMP_SMILMultipartBodypart::setBodyData(const QArray<char>& data) {
    if (!bodyData_.duplicate(data) || bodyData_.size() != data.size())
        return ERR_NO_MEMORY;
    support_ = SUPPORT_UNKNOWN;
    return 0;
}

int MMS_COMP_SMILMultipartBodypart::setBodyData(const char* octets, int length) {
    support_ = SUPPORT_UNKNOWN;
    if (length < 1) {
        bodyData_ = QArray<char>();
        return 0;
    }
    return octets && bodyData_.duplicate(octets, length) ? 0 : ERR_NO_MEMORY;
}

int MMS_COMP_SMILMultipartBodypart::getBodyDataLen() const {
    return static_cast<int>(std::min<qint64>(totalSize(), std::numeric_limits<int>::max()));
}

qint64 MMS_COMP_SMILMultipartBodypart::totalSize() const {
    qint64 size = bodyData_.size();
    for (const MMS_COMP_SMILMultipartBodypart* part : subBodies_)
        size += part->totalSize();
    return size;
}

// ---- sub-bodies ----

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipartBodypart::getSubBody(unsigned int i) const {
    return subBodies_.at(static_cast<int>(i));
}

bool MMS_COMP_SMILMultipartBodypart::setSubBody(MMS_COMP_SMILMultipartBodypart* part, int index) {
    return part && !part->holds(this) && subBodies_.insert(index, part);
}

bool MMS_COMP_SMILMultipartBodypart::rmSubBody(unsigned int i) {
    return subBodies_.remove(static_cast<int>(i));
}

/// Whether `part` is this part or among its sub-bodies, at any depth.
bool MMS_COMP_SMILMultipartBodypart::holds(const MMS_COMP_SMILMultipartBodypart* part) const {
    return part == this || std::any_of(subBodies_.begin(), subBodies_.end(),
                                       [part](const auto* subBody) { return subBody->holds(part); });
}

// ---- records ----

bool MMS_COMP_SMILMultipartBodypart::readFromStream(QDataStream& stream) {
    RecordReader record(stream);
    return readRecord(record, 0);
}

bool MMS_COMP_SMILMultipartBodypart::readRecord(RecordReader& record, int depth) {
    if (depth > deepestRecord)
        return false;
    contentType_ = record.readText();
    subType_ = record.readText();
    charset_ = record.readText();
    dispFileName_ = record.readText();
    description_ = record.readText();
    setContentLocation(record.readText());
    setContentID(record.readText());
    contentXferEncoding_ = record.readText();
    dispFileType_ = record.readInt();
    bodyData_ = record.readBytes();
    extHeader_ = record.readText();
    partFlags_ = static_cast<unsigned int>(record.readInt());
    boundary_ = record.readText();
    const int count = record.readInt();
    for (int i = 0; i < count && record.ok(); ++i) {
        std::unique_ptr<MMS_COMP_SMILMultipartBodypart> part(new (std::nothrow)
                                                                 MMS_COMP_SMILMultipartBodypart);
        if (!part || !part->readRecord(record, depth + 1))
            return false;
        subBodies_.append(part.release());
    }
    return true;
}

bool MMS_COMP_SMILMultipartBodypart::writeToStream(QDataStream& stream) const {
    RecordWriter record(stream);
    writeRecord(record);
    return true;
}

void MMS_COMP_SMILMultipartBodypart::writeRecord(RecordWriter& record) const {
    record.writeText(contentType_);
    record.writeText(subType_);
    record.writeText(charset_);
    record.writeText(dispFileName_);
    record.writeText(description_);
    record.writeText(contentLocation_);
    record.writeText(contentId_);
    record.writeText(contentXferEncoding_);
    record.writeInt(dispFileType_);
    record.writeBytes(bodyData_);
    record.writeText(extHeader_);
    record.writeInt(static_cast<int>(partFlags_));
    record.writeText(boundary_);
    record.writeInt(subBodies_.count());
    for (const MMS_COMP_SMILMultipartBodypart* part : subBodies_)
        part->writeRecord(record);
}
