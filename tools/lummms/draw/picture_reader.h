#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

class MMS_COMP_SMILMultipartBodypart;

// Pictures are a stranger's octets, and few octets can announce many pixels. Everything here looks at the
// header first; nothing is decoded that needs more than a fixed amount of memory.

/// What is known of a picture before it is decoded.
struct PictureHeader {
    QByteArray format;     ///< "png", "jpeg", "gif", "bmp", "webp" or "wbmp"; empty: no picture that is drawn
    QSize size;            ///< as it is shown, turned upright
    int scans = 1;         ///< passes over the pixels: scans of a JPEG, frames of an animation
    bool scalable = false; ///< whether it is made smaller while it is read, and only that takes memory
    qint64 memory = 0;     ///< octets that decoding it at its full size takes

    qint64 pixels() const { return qint64(size.width()) * size.height(); }
};

/// Reads the header of a part's picture.
PictureHeader readPictureHeader(const MMS_COMP_SMILMultipartBodypart& part);

/// What one picture of a stranger may take, in megabytes; all else that is drawn needs room beside it.
constexpr int DECODER_MEGABYTES = 160;

/// Whether the picture can be decoded at all, larger or smaller, in so much memory.
bool fitsMemory(const PictureHeader& header, int megabytes = DECODER_MEGABYTES);

/// Decodes a picture, at most in the wanted size or larger if that is what its format gives; a null image
/// when it is broken or needs more memory.
QImage decodePicture(const MMS_COMP_SMILMultipartBodypart& part, const PictureHeader& header, QSize wanted,
                     int megabytes = DECODER_MEGABYTES);

/// A PNG without all chunks that only say more about the picture: texts and profiles among them are
/// compressed, and a decoder would unpack them. Other octets, and a broken rest, stay as they are.
QByteArray withoutAncillaryChunks(const QByteArray& png);
