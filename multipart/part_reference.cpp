#include "multipart/part_reference.h"

#include "multipart/body_part.h"
#include "util/lowered.h"

QStringView bareContentId(QStringView reference) {
    if (reference.startsWith('<'))
        reference = reference.sliced(1);
    if (reference.endsWith('>'))
        reference.chop(1);
    if (startsWithLowered(reference, u"cid:"))
        reference = reference.sliced(4);
    return reference;
}

bool isSameContentId(QStringView a, QStringView b) {
    const QStringView id = bareContentId(a.trimmed());
    return !id.isEmpty() && equalLowered(id, bareContentId(b.trimmed()));
}

PartReference::PartReference(QStringView text)
    : text_(text), id_(bareContentId(text.trimmed())), textKey_(loweredKey(text_)),
      idKey_(id_.size() == text_.size() ? textKey_ : loweredKey(id_)) {
}

PartReference::PartReference(const MMS_COMP_SMILMultipartBodypart& part)
    : text_(part.contentLocation_), id_(bareContentId(text_.trimmed())), textKey_(part.locationKey_),
      idKey_(part.locationIdKey_) {
}

bool PartReference::meansByName(const MMS_COMP_SMILMultipartBodypart& part) const {
    if (part.locationKey_ == textKey_ && equalLowered(part.contentLocation_, text_))
        return true;
    const QStringView id = part.contentId_;
    return part.idKey_ == idKey_ && !id_.isEmpty() && equalLowered(bareContentId(id.trimmed()), id_);
}
