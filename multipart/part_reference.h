#pragma once

#include "multipart/body_part.h"

#include <QStringView>

/// Removes a leading "<", a trailing ">" and then a leading "cid:". "cid:<a>" gives "<a".
QStringView bareContentId(QStringView reference);

/// Whether two references mean the same Content-ID; false when the first is empty.
bool isSameContentId(QStringView a, QStringView b);

/// A reference to a body part, prepared for comparison with many parts.
class PartReference {
public:
    /// The caller keeps the text while the reference is in use.
    explicit PartReference(QStringView text);
    /// Prepares the part's Content-Location for comparison at once. It must not change while the reference is
    /// in use.
    explicit PartReference(const MMS_COMP_SMILMultipartBodypart& part);

    /// loweredKey() of the whole reference, and of the Content-ID in it.
    quint32 textKey() const { return textKey_; }
    quint32 idKey() const { return idKey_; }

    /// Whether the reference is the part's Content-ID or Content-Location.
    bool means(const MMS_COMP_SMILMultipartBodypart& part) const {
        // most parts differ in their keys, so that few texts are compared
        return (part.locationKey_ == textKey_ || part.idKey_ == idKey_) && meansByName(part);
    }

private:
    bool meansByName(const MMS_COMP_SMILMultipartBodypart& part) const;

    QStringView text_;
    QStringView id_;
    quint32 textKey_;
    quint32 idKey_;
};
