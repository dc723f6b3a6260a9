#pragma once

#include "tools/lummms/draw/picture_reader.h"

#include <QHash>

/// Whether a picture is shown.
enum PICTURE_STATE {
    PICTURE_SHOWN,
    PICTURE_BROKEN,   ///< it cannot be decoded
    PICTURE_TOO_MUCH, ///< it takes more than there is left for the pictures of the message
};

/// The pictures of a message. Together they may have 64 megapixels and 200 scans, counted in the order in
/// which they are asked for; each counts once, however many slides show it.
class Pictures {
public:
    struct Picture {
        PictureHeader header;
        PICTURE_STATE state;
    };
    /// What is known of a part's picture. The part must stay where it is.
    Picture of(const MMS_COMP_SMILMultipartBodypart& part);
    /// The state of a picture that was asked for before.
    PICTURE_STATE stateOf(const MMS_COMP_SMILMultipartBodypart& part) const;

    /// How many were too much.
    int leftOut() const { return leftOut_; }

private:
    PICTURE_STATE take(const PictureHeader& header);

    QHash<const MMS_COMP_SMILMultipartBodypart*, Picture> pictures_;
    qint64 pixels_ = 0;
    qint64 scans_ = 0;
    qint64 scannedPixels_ = 0;
    int leftOut_ = 0;
};
