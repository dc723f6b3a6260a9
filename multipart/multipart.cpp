#include "multipart/multipart.h"

#include "multipart/part_index.h"
#include "multipart/part_names.h"
#include "multipart/part_reference.h"
#include "util/lowered.h"
#include "util/unique_name.h"

#include <algorithm>
#include <new>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

// EMAIL_Util's TYPE_APPLICATION and SUBTYPE_WAP_MULTIPART_RELATED as constants, which saves a table look-up
// for each new container.
QString typeName() {
    return QStringLiteral("application");
}
QString relatedName() {
    return QStringLiteral("vnd.wap.multipart.related");
}

bool isOrdinary(const Part* part) {
    return part->getDispFileType() == Part::ORDINARY_PART;
}

} // namespace

MMS_COMP_SMILMultipart::MMS_COMP_SMILMultipart()
    : extType_(QStringLiteral("application/smil")), mimeType_(typeName()), mimeSubType_(relatedName()) {
}

MMS_COMP_SMILMultipart::MMS_COMP_SMILMultipart(const MMS_COMP_SMILMultipart& other) {
    copyFrom(other);
}

MMS_COMP_SMILMultipart::~MMS_COMP_SMILMultipart() = default;

void MMS_COMP_SMILMultipart::copyFrom(const MMS_COMP_SMILMultipart& other) {
    extType_ = other.extType_;
    mimeType_ = other.mimeType_;
    mimeSubType_ = other.mimeSubType_;
    start_ = other.start_;
    const int count = other.getPartCount(); // `other` may be this container
    for (int i = 0; i < count; ++i)
        if (!parts_.append(new (std::nothrow) Part(*other.parts_.at(i))))
            return;
}

void MMS_COMP_SMILMultipart::clear() {
    mimeType_ = typeName();
    mimeSubType_ = relatedName();
    start_ = QStringLiteral("");
    extType_ = QStringLiteral(""); // a new container has "application/smil" instead
    parts_.clear();
}

void MMS_COMP_SMILMultipart::setStart(const QString& start) {
    start_ = start;
    if (Part* part = getBodyPartBySrc(start_, Part::ORDINARY_PART))
        part->setDispFileType(Part::PRESENTATION_PART);
}

// ---- the list of parts ----

int MMS_COMP_SMILMultipart::appendBodypart(MMS_COMP_SMILMultipartBodypart* part) {
    return parts_.append(part) ? 0 : ERR_INSERT;
}

int MMS_COMP_SMILMultipart::insertBodypart(MMS_COMP_SMILMultipartBodypart* part, int index) {
    return parts_.insert(std::max(index, 0), part) ? 0 : ERR_INSERT;
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getBodypartByIndex(int index, bool take) {
    return take ? parts_.take(index) : parts_.at(index);
}

int MMS_COMP_SMILMultipart::deletePart(int index) {
    Part* part = parts_.at(index);
    if (!part)
        return ERR_NO_PART;
    if (part->getRefCount() < 2)
        return parts_.remove(index) ? 0 : ERR_NO_PART;
    part->setRefCount(part->getRefCount() - 1);
    return 0;
}

int MMS_COMP_SMILMultipart::deletePartBySrc(const QString& src) {
    return src.isEmpty() ? ERR_NO_PART : deletePartsMeant(PartReference(src));
}

int MMS_COMP_SMILMultipart::deletePartLike(const MMS_COMP_SMILMultipartBodypart& part) {
    const QString location = part.getContentLocation(); // a copy: the part may be deleted
    return location.isEmpty() ? ERR_NO_PART : deletePartsMeant(PartReference(part));
}

int MMS_COMP_SMILMultipart::deletePartsMeant(const PartReference& reference) {
    for (int i = 0; i < parts_.count();) {
        Part* part = parts_.at(i);
        if (!reference.means(*part)) {
            ++i;
            continue;
        }
        if (part->getRefCount() > 1) {
            part->setRefCount(part->getRefCount() - 1);
            return 0;
        }
        if (!parts_.remove(i))
            return ERR_NO_PART;
    }
    return 0;
}

// ---- references and names ----

QString MMS_COMP_SMILMultipart::parseCid(const QString& reference) {
    const QStringView bare = bareContentId(reference);
    return bare.size() == reference.size() ? reference : bare.toString();
}

bool MMS_COMP_SMILMultipart::isCidEqual(const QString& a, const QString& b) {
    return isSameContentId(a, b);
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getBodyPartBySrc(const QString& src,
                                                                         int fileType) const {
    if (src.isEmpty())
        return nullptr;
    const PartReference reference(src);
    if (const PartIndex* index = parts_.index())
        return index->find(reference, fileType);
    for (Part* part : parts_)
        if (part->getDispFileType() == fileType && reference.means(*part))
            return part;
    return nullptr;
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getContentBySrc(const QString& src) const {
    if (src.isEmpty())
        return nullptr;
    const PartReference reference(src);
    if (const PartIndex* index = parts_.index()) {
        Part* ordinary = index->find(reference, Part::ORDINARY_PART);
        return ordinary ? ordinary : index->find(reference, Part::PRESENTATION_PART);
    }
    Part* linked = nullptr;
    for (Part* part : parts_) {
        if (!reference.means(*part))
            continue;
        if (part->getDispFileType() == Part::ORDINARY_PART)
            return part;
        if (part->getDispFileType() == Part::PRESENTATION_PART && !linked)
            linked = part;
    }
    return linked;
}

bool MMS_COMP_SMILMultipart::isPartExist(const QString& name) const {
    const PartReference reference(name);
    return !isUsableName(name) || std::any_of(parts_.begin(), parts_.end(), [&reference](const Part* part) {
        return reference.means(*part);
    });
}

QString MMS_COMP_SMILMultipart::createUniqueLocation(const QString& name) const {
    return PartNames(parts_).uniqueLocation(name);
}

QString MMS_COMP_SMILMultipart::createUniqueAttchmentLocation(const QString& extension) const {
    return PartNames(parts_).uniqueAttachmentLocation(dotted(extension));
}

// ---- presentation part and attachments ----

bool MMS_COMP_SMILMultipart::isRelated() const {
    return equalLowered(mimeType_, u"application") &&
           equalLowered(mimeSubType_, u"vnd.wap.multipart.related");
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getSmilPart() {
    if (Part* part = getBodyPartBySrc(start_, Part::PRESENTATION_PART))
        return part;
    Part* first = parts_.at(0);
    if (!first || !isRelated() || !equalLowered(first->getContentType(), u"application") ||
        !equalLowered(first->getSubType(), u"smil"))
        return nullptr;
    first->setDispFileType(Part::PRESENTATION_PART);
    return first;
}

int MMS_COMP_SMILMultipart::getAttachmentCount() const {
    if (!isRelated())
        return getPartCount();
    return static_cast<int>(std::count_if(parts_.begin(), parts_.end(), isOrdinary));
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getAttachment(int i) const {
    if (!isRelated())
        return parts_.at(i);
    for (Part* part : parts_)
        if (i >= 0 && isOrdinary(part) && i-- == 0)
            return part;
    return nullptr;
}

void MMS_COMP_SMILMultipart::isContainAttachImgAudio(bool* attachment, bool* image, bool* audio,
                                                     bool* video) const {
    if (attachment)
        *attachment = std::any_of(parts_.begin(), parts_.end(), isOrdinary);
    const struct {
        bool* found;
        const char* type;
    } media[] = {{image, "image"}, {audio, "audio"}, {video, "video"}};
    // The presentation part counts too. The type is compared with its case: "Image" is not found.
    for (const auto& kind : media)
        if (kind.found)
            *kind.found = std::any_of(parts_.begin(), parts_.end(), [&kind](const Part* part) {
                return part->getContentType() == QLatin1String(kind.type);
            });
}

int MMS_COMP_SMILMultipart::indexOfUPIPart() const {
    const auto found = std::find_if(parts_.begin(), parts_.end(), [](const Part* part) {
        return part->getPartFlags() & Part::FLAG_USER_PROMPT;
    });
    return static_cast<int>(found - parts_.begin()); // the count when no part has the flag
}

bool MMS_COMP_SMILMultipart::isContainUPI() const {
    return indexOfUPIPart() < getPartCount();
}

MMS_COMP_SMILMultipartBodypart* MMS_COMP_SMILMultipart::getFirstUPIPart(bool take) {
    return getBodypartByIndex(indexOfUPIPart(), take);
}
