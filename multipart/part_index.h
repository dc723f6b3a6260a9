#pragma once

#include "qt2/qptrlist.h"

#include <vector>

class MMS_COMP_SMILMultipartBodypart;
class PartReference;

/// The names of many parts, sorted, so that a presentation with as many references is linked in little more
/// than linear time. Holds as long as neither the parts nor their names change.
class PartIndex {
public:
    explicit PartIndex(const QPtrList<MMS_COMP_SMILMultipartBodypart>& parts);
    /// The first part of that file type that is meant; null if there is none.
    MMS_COMP_SMILMultipartBodypart* find(const PartReference& reference, int fileType) const;

private:
    struct Name {
        quint32 key; ///< loweredKey()
        int place;   ///< of the part in the list
        MMS_COMP_SMILMultipartBodypart* part;
        bool operator<(const Name& other) const {
            return key != other.key ? key < other.key : place < other.place;
        }
    };
    static const Name* find(const std::vector<Name>& names, quint32 key, const PartReference& reference,
                            int fileType);

    std::vector<Name> locations_;
    std::vector<Name> ids_;
};
