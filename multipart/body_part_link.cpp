#include "multipart/body_part_link.h"

#include "multipart/body_part.h"

#include <utility>

void BodypartLink::pointAt(MMS_COMP_SMILMultipartBodypart* part) {
    if (part_) {
        (previous_ ? previous_->next_ : part_->links_) = next_;
        if (next_)
            next_->previous_ = previous_;
    }
    part_ = part;
    previous_ = nullptr;
    next_ = part ? std::exchange(part->links_, this) : nullptr;
    if (next_)
        next_->previous_ = this;
}
