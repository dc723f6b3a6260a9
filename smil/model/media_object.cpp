#include "smil/model/media_object.h"

#include "multipart/multipart.h"
#include "smil/model/words.h"
#include "util/mms_comp_util.h"
#include "util/record_stream.h"
#include "util/smil_values.h"

#include <QDomElement>

#include <memory>
#include <new>

namespace {

constexpr int LINKED = 0;
constexpr int CONTENT_MISSING = 3;
constexpr int ERR_NO_PARAM = -15;

/// The display file type of a part that a media object uses; the presentation part has the same.
constexpr int LINKED_PART = MMS_COMP_SMILMultipartBodypart::PRESENTATION_PART;

} // namespace

MMS_COMP_SMILMediaObject::MMS_COMP_SMILMediaObject(MMS_COMP_SMILMultipart* multipart)
    : multipart_(multipart) {
    params_.setAutoDelete(true);
}

void MMS_COMP_SMILMediaObject::setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    type_ = type;
    if (type == MMS_COMP_SMIL_MEDIA_TEXT)
        mediaType_ = QStringLiteral("txt");
}

bool MMS_COMP_SMILMediaObject::setSrc(const QString& src) {
    src_ = src;
    alt_ = src; // new content replaces the alternative text too
    return true;
}

void MMS_COMP_SMILMediaObject::setData(MMS_COMP_SMILMultipartBodypart* part) {
    data_.pointAt(part);
}

int MMS_COMP_SMILMediaObject::setObjectElem(QDomElement* element, MMS_COMP_SMILMultipart* multipart) {
    if (!element)
        return CONTENT_MISSING;
    const auto attribute = [element](const QString& name) { return element->attribute(name).trimmed(); };
    const MediaKind* kind = mediaKindOfTag(element->tagName());
    setMediaElementType(kind ? kind->type : MMS_COMP_SMIL_MEDIA_OTHER);
    src_ = attribute(QStringLiteral("src")); // not setSrc(), which would overwrite the alternative text
    alt_ = attribute(QStringLiteral("alt"));
    regionId_ = attribute(QStringLiteral("region"));
    if (!multipart_)
        return CONTENT_MISSING;

    if (!multipart)
        multipart = multipart_;
    MMS_COMP_SMILMultipartBodypart* part = multipart->getContentBySrc(src_);
    setData(part);
    if (!part)
        return CONTENT_MISSING;
    // A part not linked before counts one reference from the start: this one.
    if (part->getDispFileType() == LINKED_PART)
        part->setRefCount(part->getRefCount() + 1);
    part->setDispFileType(LINKED_PART);

    readTime(attribute(QStringLiteral("begin")), begin_);
    readTime(attribute(QStringLiteral("end")), end_);
    readParams(*element);
    return LINKED;
}

void MMS_COMP_SMILMediaObject::readParams(const QDomElement& element) {
    const QString tag = QStringLiteral("param");
    for (QDomElement param = element.firstChildElement(tag); !param.isNull();
         param = param.nextSiblingElement(tag))
        appendParamElem(param.attribute(QStringLiteral("name")), param.attribute(QStringLiteral("value")),
                        param.attribute(QStringLiteral("valuetype")),
                        param.attribute(QStringLiteral("type")));
}

bool MMS_COMP_SMILMediaObject::setData(const QString& regionId, const QString& src,
                                       MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString& subType,
                                       const QArray<char>& bytes, MMS_COMP_SMILMultipart* multipart) {
    multipart_ = multipart;
    setMediaElementType(type);
    setSrc(src);
    setRegionId(regionId);

    MMS_COMP_SMILMultipartBodypart* part = getData();
    if (!part) {
        part = new (std::nothrow) MMS_COMP_SMILMultipartBodypart;
        if (!part)
            return false;
        if (multipart)
            multipart->appendBodypart(part);
    }
    const MediaKind* kind = mediaKindOfType(type);
    part->setContentLocation(src);
    part->setDispFileName(MMS_COMP_Util::stripePath(src));
    part->setContentType(kind ? QString(kind->contentType) : QStringLiteral("application"));
    part->setContentSubType(subType);
    part->setDispFileType(LINKED_PART);
    part->setBodyData(bytes);
    setData(part);
    return true;
}

bool MMS_COMP_SMILMediaObject::copyTo(MMS_COMP_SMILMediaObject* target,
                                      MMS_COMP_SMILMultipart* multipart) const {
    if (!target || !multipart || target == this)
        return false;
    MMS_COMP_SMILMultipartBodypart* part = multipart->getBodyPartBySrc(src_, LINKED_PART);
    if (!part)
        return false;
    target->setData(part);
    target->setMediaElementType(type_);
    target->setMediaType(mediaType_);
    target->setSrc(src_);
    target->setRegionId(regionId_);
    target->setMimeType(mimeType_);
    // The copy begins at this object's end and keeps its own end. Deliberate: stored presentations depend on
    // it.
    target->begin_ = end_;
    target->setAlt(alt_);
    for (const MMS_COMP_SMILMediaObjectParam* param : params_)
        if (target->appendParamElem(param->getName(), param->getValue(), param->getValueType(),
                                    param->getRefValueType()) != 0)
            return false;
    target->setMultiPart(multipart);
    return true;
}

void MMS_COMP_SMILMediaObject::clear() {
    if (MMS_COMP_SMILMultipartBodypart* part = getData()) {
        if (multipart_)
            multipart_->deletePartLike(*part);
        else
            delete part;
    }
    setData(nullptr);
}

MMS_COMP_SMILMediaObjectParam* MMS_COMP_SMILMediaObject::findParam(const QString& name) const {
    for (MMS_COMP_SMILMediaObjectParam* param : params_)
        if (param->getName() == name)
            return param;
    return nullptr;
}

int MMS_COMP_SMILMediaObject::appendParamElem(const QString& name, const QString& value,
                                              MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                              const QString& refValueType) {
    auto* param = new (std::nothrow) MMS_COMP_SMILMediaObjectParam(name, value, valueType, refValueType);
    return params_.append(param) ? 0 : ERR_NO_PARAM;
}

int MMS_COMP_SMILMediaObject::appendParamElem(const QString& name, const QString& value,
                                              const QString& valueType, const QString& refValueType) {
    const int type = indexOfWord(paramTypeWords, valueType);
    return appendParamElem(name, value, static_cast<MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE>(type),
                           refValueType);
}

bool MMS_COMP_SMILMediaObject::deleteParamElem(int index) {
    return params_.remove(index);
}

void MMS_COMP_SMILMediaObject::removeParamByName(const QString& name) {
    params_.removeRef(findParam(name));
}

void MMS_COMP_SMILMediaObject::updateParamByName(const QString& name, const QString& value) {
    if (MMS_COMP_SMILMediaObjectParam* param = findParam(name))
        param->setValue(value);
    else
        appendParamElem(name, value, MMS_COMP_SMIL_PARAM_DATA, QStringLiteral(""));
}

QString MMS_COMP_SMILMediaObject::getParamValueByName(const QString& name) const {
    const MMS_COMP_SMILMediaObjectParam* param = findParam(name);
    return param ? param->getValue() : QStringLiteral("");
}

bool MMS_COMP_SMILMediaObject::readFromStream(QDataStream& stream) {
    RecordReader record(stream);
    const auto readTime = [&record](MMS_COMP_SMIL_TIME& time) {
        time.type = static_cast<MMS_COMP_SMIL_TIME_TYPE>(record.readInt());
        time.id = record.readText();
        time.value = record.readInt();
    };
    type_ = static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(record.readInt());
    mediaType_ = record.readText();
    src_ = record.readText();
    regionId_ = record.readText();
    mimeType_ = record.readText();
    readTime(begin_);
    readTime(end_);
    alt_ = record.readText();
    delete getData();
    if (record.readInt() == 1 && !readData(stream))
        return false;
    const int count = record.readInt();
    for (int i = 0; i < count && record.ok(); ++i) {
        auto* param = new (std::nothrow) MMS_COMP_SMILMediaObjectParam;
        if (!params_.append(param))
            return false;
        param->readFromStream(stream);
    }
    return true;
}

bool MMS_COMP_SMILMediaObject::readData(QDataStream& stream) {
    auto* part = new (std::nothrow) MMS_COMP_SMILMultipartBodypart;
    setData(part);
    return part && part->readFromStream(stream);
}

bool MMS_COMP_SMILMediaObject::writeToStream(QDataStream& stream) const {
    RecordWriter record(stream);
    const auto writeTime = [&record](const MMS_COMP_SMIL_TIME& time) {
        record.writeInt(time.type);
        record.writeText(time.id);
        record.writeInt(time.value);
    };
    record.writeInt(type_);
    record.writeText(mediaType_);
    record.writeText(src_);
    record.writeText(regionId_);
    record.writeText(mimeType_);
    writeTime(begin_);
    writeTime(end_);
    record.writeText(alt_);
    const MMS_COMP_SMILMultipartBodypart* part = getData();
    record.writeInt(part ? 1 : 0);
    if (part)
        part->writeToStream(stream);
    record.writeInt(params_.count());
    for (const MMS_COMP_SMILMediaObjectParam* param : params_)
        param->writeToStream(stream);
    return true;
}
