#pragma once

class MMS_COMP_SMILMultipartBodypart;

/// Whoever will delete a body part: a container, a part that holds it as sub-body, or the media
/// object that made it.
class BodypartOwner {
protected:
    ~BodypartOwner() = default;

private:
    friend class MMS_COMP_SMILMultipartBodypart;
    /// The part is being deleted, or somebody else takes it over: forget it, do not delete it.
    virtual void disown(MMS_COMP_SMILMultipartBodypart* part) = 0;
};
