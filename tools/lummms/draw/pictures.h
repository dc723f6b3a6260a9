#pragma once

#include "tools/lummms/draw/picture_reader.h"

#include <QHash>

/// The state of a picture.
enum PICTURE_STATE {
    PICTURE_SHOWN,
    PICTURE_BROKEN,   ///< cannot be decoded
    PICTURE_TOO_MUCH, ///< beyond the limits for the pictures of a message
};

/// The pictures of a message. Their limit is 64 megapixels and 200 scans together, in the order in which they
/// are requested; a picture on several slides counts once.
class Pictures {
public:
    struct Picture {
        PictureHeader header;
        PICTURE_STATE state;
    };
    /// The state of a part's picture. The part must not move.
    Picture of(const MMS_COMP_SMILMultipartBodypart& part);
    /// The state of a picture requested before.
    PICTURE_STATE stateOf(const MMS_COMP_SMILMultipartBodypart& part) const;

    /// Number of pictures beyond the limits.
    int leftOut() const { return leftOut_; }

private:
    PICTURE_STATE take(const PictureHeader& header);

    QHash<const MMS_COMP_SMILMultipartBodypart*, Picture> pictures_;
    qint64 pixels_ = 0;
    qint64 scans_ = 0;
    qint64 scannedPixels_ = 0;
    int leftOut_ = 0;
};
