#include "codec/field_base.h"

#include "codec/codec_result.h"

unsigned char FieldBase::writeField(LinearBuffer*, MMS_UA_UAMsg*) const {
    return CODEC_READ;
}

int FieldBase::fieldSize(MMS_UA_UAMsg*) const {
    return 0;
}
