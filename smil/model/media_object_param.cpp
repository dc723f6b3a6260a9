#include "smil/model/media_object_param.h"

#include "util/record_stream.h"

MMS_COMP_SMILMediaObjectParam::MMS_COMP_SMILMediaObjectParam() = default;

MMS_COMP_SMILMediaObjectParam::MMS_COMP_SMILMediaObjectParam(const QString& name, const QString& value,
                                                             MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                                             const QString& refValueType)
    : name_(name), value_(value), valueType_(valueType), refValueType_(refValueType) {
}

void MMS_COMP_SMILMediaObjectParam::setAll(const QString& name, const QString& value,
                                           MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                           const QString& refValueType) {
    *this = MMS_COMP_SMILMediaObjectParam(name, value, valueType, refValueType);
}

bool MMS_COMP_SMILMediaObjectParam::readFromStream(QDataStream& stream) {
    RecordReader record(stream);
    name_ = record.readText();
    value_ = record.readText();
    valueType_ = static_cast<MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE>(record.readInt());
    refValueType_ = record.readText();
    return true;
}

bool MMS_COMP_SMILMediaObjectParam::writeToStream(QDataStream& stream) const {
    RecordWriter record(stream);
    record.writeText(name_);
    record.writeText(value_);
    record.writeInt(valueType_);
    record.writeText(refValueType_);
    return true;
}
