#pragma once

#include "platform/export.h"

#include <memory>

class MMS_COMP_SMILMultipartBodypart;

/// Points at a body part without owning it, and notices when the part is deleted.
class LUM_EXPORT BodypartLink {
public:
    /// Points at nothing.
    BodypartLink() = default;
    /// Points at `part`, which may be null.
    BodypartLink(MMS_COMP_SMILMultipartBodypart* part);

    /// The part; null once it has been deleted, or when there never was one.
    MMS_COMP_SMILMultipartBodypart* get() const { return anchor_ ? *anchor_ : nullptr; }

private:
    std::shared_ptr<MMS_COMP_SMILMultipartBodypart*> anchor_;
};
