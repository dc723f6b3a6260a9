#pragma once

#include "qt2/qptrlist.h"

#include <vector>

class MMS_COMP_SMILMultipartBodypart;
class PartReference;

/// A sorted index of the names of many parts. With it, linking a presentation takes time close to linear in
/// parts and references. Valid as long as the parts and their names stay unchanged.
class PartIndex {
public:
    explicit PartIndex(const QPtrList<MMS_COMP_SMILMultipartBodypart>& parts);
    /// The first part of that display file type that the reference means; null when there is none.
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
