#include "smil/model/slide.h"

#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "util/record_stream.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace {

constexpr int DEFAULT_DURATION = 5000;

bool isImageLike(const MMS_COMP_SMILMediaObject* object) {
    const MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type = object->getMediaElementType();
    return type == MMS_COMP_SMIL_MEDIA_IMG || type == MMS_COMP_SMIL_MEDIA_VIDEO;
}

bool isText(const MMS_COMP_SMILMediaObject* object) {
    return object->getMediaElementType() == MMS_COMP_SMIL_MEDIA_TEXT;
}

/// Whether an object is a text without a part or with an empty one: no octets, or a zero first.
bool isEmptyText(const MMS_COMP_SMILMediaObject* object) {
    if (!isText(object))
        return false;
    const MMS_COMP_SMILMultipartBodypart* part = object->getData();
    return !part || part->getBodyData().isEmpty() || part->getBodyData().at(0) == '\0';
}

} // namespace

MMS_COMP_SMILTimingContainer::MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart* multipart)
    : duration_(DEFAULT_DURATION), multipart_(multipart) {
    setAutoDelete(true);
}

bool MMS_COMP_SMILTimingContainer::canBeInserted(const QString& kind) const {
    const MediaKind* wanted = mediaKindOfTag(kind.toLower());
    if (!wanted)
        return false;
    switch (wanted->type) {
    case MMS_COMP_SMIL_MEDIA_REF:
        return true;
    case MMS_COMP_SMIL_MEDIA_IMG:
    case MMS_COMP_SMIL_MEDIA_VIDEO:
        return !isImageExist();
    default:
        return !isElemExist(wanted->type);
    }
}

bool MMS_COMP_SMILTimingContainer::isBlank() const {
    return std::all_of(begin(), end(), isEmptyText);
}

bool MMS_COMP_SMILTimingContainer::isTextBellowImg() const {
    return std::none_of(std::find_if(begin(), end(), isText), end(), isImageLike);
}

bool MMS_COMP_SMILTimingContainer::isElemExist(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) const {
    return indexOfType(type) >= 0;
}

bool MMS_COMP_SMILTimingContainer::isVideoExist() const {
    return isElemExist(MMS_COMP_SMIL_MEDIA_VIDEO);
}

// A video counts too: a slide has one image or one video.
bool MMS_COMP_SMILTimingContainer::isImageExist() const {
    return std::any_of(begin(), end(), isImageLike);
}

bool MMS_COMP_SMILTimingContainer::isAudioExist() const {
    return isElemExist(MMS_COMP_SMIL_MEDIA_AUDIO);
}

int MMS_COMP_SMILTimingContainer::getPageSize() const {
    qint64 size = 0;
    for (const MMS_COMP_SMILMediaObject* object : *this)
        if (const MMS_COMP_SMILMultipartBodypart* part = object->getData())
            size += part->getBodyData().size();
    return static_cast<int>(std::min<qint64>(size, std::numeric_limits<int>::max()));
}

int MMS_COMP_SMILTimingContainer::indexOfType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) const {
    const auto found = std::find_if(begin(), end(), [type](const MMS_COMP_SMILMediaObject* object) {
        return object->getMediaElementType() == type;
    });
    return found == end() ? -1 : static_cast<int>(found - begin());
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getElem(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                                                                bool take) {
    const int index = indexOfType(type);
    return take ? QPtrList::take(index) : at(index);
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getTextElem(bool take) {
    return getElem(MMS_COMP_SMIL_MEDIA_TEXT, take);
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getVideoElem(bool take) {
    return getElem(MMS_COMP_SMIL_MEDIA_VIDEO, take);
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getImgElem(bool take) {
    return getElem(MMS_COMP_SMIL_MEDIA_IMG, take);
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getAudioElem(bool take) {
    return getElem(MMS_COMP_SMIL_MEDIA_AUDIO, take);
}

MMS_COMP_SMILMediaObject* MMS_COMP_SMILTimingContainer::getImgObjectLikeElem(bool take) {
    MMS_COMP_SMILMediaObject* image = getImgElem(take);
    return image ? image : getVideoElem(take);
}

void MMS_COMP_SMILTimingContainer::release(int index) {
    if (MMS_COMP_SMILMediaObject* object = at(index)) {
        object->clear();
        remove(index);
    }
}

void MMS_COMP_SMILTimingContainer::removeElem(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    release(indexOfType(type));
}

void MMS_COMP_SMILTimingContainer::removeTextElem() {
    removeElem(MMS_COMP_SMIL_MEDIA_TEXT);
}

void MMS_COMP_SMILTimingContainer::removeImgLikeElem() {
    removeElem(MMS_COMP_SMIL_MEDIA_IMG);
    removeElem(MMS_COMP_SMIL_MEDIA_VIDEO);
}

void MMS_COMP_SMILTimingContainer::removeBySrc(const QString& src) {
    const auto found = std::find_if(
        begin(), end(), [&src](const MMS_COMP_SMILMediaObject* object) { return object->getSrc() == src; });
    if (found != end())
        release(static_cast<int>(found - begin()));
}

void MMS_COMP_SMILTimingContainer::clear() {
    for (MMS_COMP_SMILMediaObject* object : *this)
        object->clear();
    QPtrList::clear();
    duration_ = DEFAULT_DURATION;
}

bool MMS_COMP_SMILTimingContainer::updateData(const QString& regionId, const QString& src,
                                              MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString& subType,
                                              const QArray<char>& bytes, bool textBelowImage,
                                              MMS_COMP_SMILMultipart* multipart) {
    int textPlace = -1;
    int imagePlace = -1;
    for (int i = 0; i < count(); ++i) {
        if (isText(at(i)))
            textPlace = i;
        else if (isImageLike(at(i)))
            imagePlace = i;
    }

    int oldPlace = -1;
    int newPlace = count();
    switch (type) {
    case MMS_COMP_SMIL_MEDIA_TEXT:
        oldPlace = textPlace;
        if (!textBelowImage)
            newPlace = std::max(imagePlace, 0);
        break;
    case MMS_COMP_SMIL_MEDIA_IMG:
    case MMS_COMP_SMIL_MEDIA_VIDEO:
        oldPlace = imagePlace;
        if (textBelowImage && textPlace >= 0)
            newPlace = textPlace;
        break;
    default:
        oldPlace = indexOfType(type);
    }

    if (MMS_COMP_SMILMediaObject* object = at(oldPlace))
        return object->setData(regionId, src, type, subType, bytes, multipart);
    std::unique_ptr<MMS_COMP_SMILMediaObject> object(new (std::nothrow) MMS_COMP_SMILMediaObject(multipart_));
    if (!object || !object->setData(regionId, src, type, subType, bytes, multipart))
        return false;
    return insert(newPlace, object.release());
}

bool MMS_COMP_SMILTimingContainer::copyTo(MMS_COMP_SMILTimingContainer* target,
                                          MMS_COMP_SMILMultipart* multipart) const {
    if (!target || target == this)
        return false;
    target->setDur(duration_);
    target->setMultiPart(multipart);
    for (const MMS_COMP_SMILMediaObject* object : *this) {
        std::unique_ptr<MMS_COMP_SMILMediaObject> copy(new (std::nothrow) MMS_COMP_SMILMediaObject(nullptr));
        if (!copy || !object->copyTo(copy.get(), multipart))
            return false;
        target->appendObject(copy.release());
    }
    target->setSetDurManually(durationSetManually_);
    target->setPageColor(pageColor_);
    target->setTextColor(textColor_);
    target->setTextSize(textSize_);
    return true;
}

bool MMS_COMP_SMILTimingContainer::readFromStream(QDataStream& stream) {
    RecordReader record(stream);
    duration_ = record.readInt();
    const int objects = record.readInt();
    for (int i = 0; i < objects && record.ok(); ++i) {
        auto* object = new (std::nothrow) MMS_COMP_SMILMediaObject(nullptr);
        if (!appendObject(object) || !object->readFromStream(stream))
            return false;
    }
    return true;
}

bool MMS_COMP_SMILTimingContainer::writeToStream(QDataStream& stream) const {
    RecordWriter record(stream);
    record.writeInt(duration_);
    record.writeInt(count());
    for (const MMS_COMP_SMILMediaObject* object : *this)
        object->writeToStream(stream);
    return true;
}
