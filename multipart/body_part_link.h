#pragma once

#include "platform/export.h"

class MMS_COMP_SMILMultipartBodypart;

/// Points at a body part without owning it, and notices when the part is deleted.
///
/// The part keeps a chain of the links to it, so that making one allocates nothing.
class LUM_EXPORT BodypartLink {
public:
    /// Points at nothing.
    BodypartLink() = default;
    /// Points at `part`, which may be null.
    BodypartLink(MMS_COMP_SMILMultipartBodypart* part) { pointAt(part); }
    /// Points at the same part.
    BodypartLink(const BodypartLink& other) { pointAt(other.part_); }
    /// Points at what the other points at.
    BodypartLink& operator=(const BodypartLink& other) {
        pointAt(other.part_);
        return *this;
    }
    ~BodypartLink() { pointAt(nullptr); }

    /// The part; null once it has been deleted, or when there never was one.
    MMS_COMP_SMILMultipartBodypart* get() const { return part_; }
    /// Points at another part, or with null at nothing.
    void pointAt(MMS_COMP_SMILMultipartBodypart* part);

private:
    MMS_COMP_SMILMultipartBodypart* part_ = nullptr;
    BodypartLink* previous_ = nullptr; // null for the first of the part's chain
    BodypartLink* next_ = nullptr;
};
