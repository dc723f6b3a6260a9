#pragma once

#include "platform/export.h"
#include "qt2/qptrlist.h"

#include <memory>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;
class PartIndex;

/// A list that owns its body parts: the parts of a container, or the sub-bodies of a part.
///
/// A part has one owner at a time. Adding it removes it from its former owner; deleting it removes it from
/// the list. Null is refused.
class LUM_EXPORT BodypartList final {
public:
    BodypartList();
    BodypartList(const BodypartList&) = delete;
    BodypartList& operator=(const BodypartList&) = delete;
    /// Deletes the parts.
    ~BodypartList();

    /// Number of parts.
    int count() const { return parts_.count(); }
    /// Whether there is no part.
    bool isEmpty() const { return parts_.isEmpty(); }
    /// The part at `index`, or null when out of range. The list owns it.
    MMS_COMP_SMILMultipartBodypart* at(int index) const { return parts_.at(index); }
    /// The first part, for loops.
    QPtrList<MMS_COMP_SMILMultipartBodypart>::const_iterator begin() const { return parts_.begin(); }
    /// Behind the last part.
    QPtrList<MMS_COMP_SMILMultipartBodypart>::const_iterator end() const { return parts_.end(); }

    /// Appends the part and takes it over. False for null.
    bool append(MMS_COMP_SMILMultipartBodypart* part);
    /// The same, before the part at `index`; an index outside the list means its end.
    bool insert(int index, MMS_COMP_SMILMultipartBodypart* part);
    /// Removes the part without deleting it: the caller owns it then. Null when out of range.
    MMS_COMP_SMILMultipartBodypart* take(int index);
    /// Deletes the part. False when out of range.
    bool remove(int index);
    /// Deletes all parts.
    void clear();

private:
    friend class MMS_COMP_SMILMultipartBodypart;
    /// The part is being deleted, or another list takes it over: forgets it without deleting it.
    void disown(MMS_COMP_SMILMultipartBodypart* part);
    /// Parts or their names changed.
    void forgetIndex();
    friend class MMS_COMP_SMILMultipart;
    /// For one more search by name: the sorted names of many parts that are searched often, or null.
    const PartIndex* index() const;

    QPtrList<MMS_COMP_SMILMultipartBodypart> parts_;
    mutable std::unique_ptr<PartIndex> index_;
    mutable int searches_ = 0; // since parts or names changed
};
