#include "multipart/part_index.h"

#include "multipart/body_part.h"
#include "multipart/part_reference.h"

#include <algorithm>

PartIndex::PartIndex(const QPtrList<MMS_COMP_SMILMultipartBodypart>& parts) {
    int place = 0;
    for (MMS_COMP_SMILMultipartBodypart* part : parts) {
        locations_.push_back({part->locationKey_, place, part});
        if (!part->contentId_.isEmpty())
            ids_.push_back({part->idKey_, place, part});
        ++place;
    }
    std::sort(locations_.begin(), locations_.end());
    std::sort(ids_.begin(), ids_.end());
}

const PartIndex::Name* PartIndex::find(const std::vector<Name>& names, quint32 key,
                                       const PartReference& reference, int fileType) {
    auto name = std::lower_bound(names.begin(), names.end(), Name{key, 0, nullptr});
    for (; name != names.end() && name->key == key; ++name)
        if (name->part->getDispFileType() == fileType && reference.means(*name->part))
            return &*name;
    return nullptr;
}

MMS_COMP_SMILMultipartBodypart* PartIndex::find(const PartReference& reference, int fileType) const {
    const Name* location = find(locations_, reference.textKey(), reference, fileType);
    const Name* id = find(ids_, reference.idKey(), reference, fileType);
    if (location && id)
        return location->place < id->place ? location->part : id->part;
    return location ? location->part : id ? id->part : nullptr;
}
