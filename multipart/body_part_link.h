#pragma once

#include "platform/export.h"

class MMS_COMP_SMILMultipartBodypart;

/// A pointer to a body part that becomes null when the part is deleted. It does not own the part.
///
/// Each part keeps a chain of the links to it, so that a link allocates nothing.
class LUM_EXPORT BodypartLink {
public:
    /// A null link.
    BodypartLink() = default;
    /// A link to `part`, which may be null.
    BodypartLink(MMS_COMP_SMILMultipartBodypart* part) { pointAt(part); }
    /// A link to the same part.
    BodypartLink(const BodypartLink& other) { pointAt(other.part_); }
    /// Links to the other's part.
    BodypartLink& operator=(const BodypartLink& other) {
        pointAt(other.part_);
        return *this;
    }
    ~BodypartLink() { pointAt(nullptr); }

    /// The part; null when there is none, or after it was deleted.
    MMS_COMP_SMILMultipartBodypart* get() const { return part_; }
    /// Links to another part, or to none with null.
    void pointAt(MMS_COMP_SMILMultipartBodypart* part);

private:
    MMS_COMP_SMILMultipartBodypart* part_ = nullptr;
    BodypartLink* previous_ = nullptr; // null for the first of the part's chain
    BodypartLink* next_ = nullptr;
};
