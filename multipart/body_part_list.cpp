#include "multipart/body_part_list.h"

#include "multipart/body_part.h"
#include "multipart/part_index.h"

BodypartList::BodypartList() {
    parts_.setAutoDelete(true);
}

BodypartList::~BodypartList() {
    clear();
}

const PartIndex* BodypartList::index() const {
    constexpr int fewParts = 64;
    constexpr int fewSearches = 16; // together they cost about as much as an index
    if (count() > fewParts && !index_ && ++searches_ > fewSearches)
        index_ = std::make_unique<PartIndex>(parts_);
    return index_.get();
}

void BodypartList::forgetIndex() {
    index_.reset();
    searches_ = 0;
}

bool BodypartList::append(MMS_COMP_SMILMultipartBodypart* part) {
    return insert(count(), part);
}

bool BodypartList::insert(int index, MMS_COMP_SMILMultipartBodypart* part) {
    if (!part)
        return false;
    part->setOwner(this); // also removes it from this list if it is already in it
    forgetIndex();
    return parts_.insert(index >= 0 && index < count() ? index : count(), part);
}

MMS_COMP_SMILMultipartBodypart* BodypartList::take(int index) {
    MMS_COMP_SMILMultipartBodypart* part = at(index);
    if (part)
        part->setOwner(nullptr);
    return part;
}

bool BodypartList::remove(int index) {
    MMS_COMP_SMILMultipartBodypart* part = take(index);
    delete part;
    return part != nullptr;
}

void BodypartList::clear() {
    forgetIndex();
    parts_.clear(); // swaps the list out before deleting the parts, which call disown()
}

void BodypartList::disown(MMS_COMP_SMILMultipartBodypart* part) {
    forgetIndex();
    parts_.take(parts_.indexOf(part));
}
