#pragma once

#include "multipart/body_part.h"

#include <QStringView>

/// The reference without the marks of a Content-ID, in this order: a "cid:" in front of a "<" is
/// taken off, the "<" behind it stays.
QStringView bareContentId(QStringView reference);

/// Whether two references mean the same Content-ID; never, when the first is empty.
bool isSameContentId(QStringView a, QStringView b);

/// A reference to body parts, made ready for being compared with many.
class PartReference {
public:
    /// The text stays the caller's and must outlive the reference.
    explicit PartReference(QStringView text);
    /// The part's Content-Location as a reference: also a long one is made ready at once. It must not
    /// change as long as the reference is used.
    explicit PartReference(const MMS_COMP_SMILMultipartBodypart& part);

    /// loweredKey() of the reference as it stands, and of the Content-ID that it may be.
    quint32 textKey() const { return textKey_; }
    quint32 idKey() const { return idKey_; }

    /// Whether it is the part's Content-ID or Content-Location.
    bool means(const MMS_COMP_SMILMultipartBodypart& part) const {
        // most parts are told apart by their keys: looking for one among many does little else
        return (part.locationKey_ == textKey_ || part.idKey_ == idKey_) && meansByName(part);
    }

private:
    bool meansByName(const MMS_COMP_SMILMultipartBodypart& part) const;

    QStringView text_;
    QStringView id_;
    quint32 textKey_;
    quint32 idKey_;
};
