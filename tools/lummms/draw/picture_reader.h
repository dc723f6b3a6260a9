#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

class MMS_COMP_SMILMultipartBodypart;

// Pictures are untrusted input, and a few octets can announce many pixels. These functions read the header
// first and decode nothing that needs more than a fixed amount of memory.

/// What the header says about a picture.
struct PictureHeader {
    QByteArray format;     ///< "png", "jpeg", "gif", "bmp", "webp" or "wbmp"; empty if it is not drawn
    QSize size;            ///< as shown, upright
    int scans = 1;         ///< passes over the pixels: scans of a JPEG, frames of an animation
    bool scalable = false; ///< whether it can be scaled down during decoding, which bounds the memory
    qint64 memory = 0;     ///< octets for decoding at full size

    qint64 pixels() const { return qint64(size.width()) * size.height(); }
};

/// Reads the header of a part's picture.
PictureHeader readPictureHeader(const MMS_COMP_SMILMultipartBodypart& part);

/// The memory limit of one picture in megabytes; the rest of the drawing needs memory too.
constexpr int DECODER_MEGABYTES = 160;

/// Whether the picture can be decoded, at any size, in that much memory.
bool fitsMemory(const PictureHeader& header, int megabytes = DECODER_MEGABYTES);

/// Decodes a picture at the wanted size or the nearest larger one that its format can give. A null image when
/// it is broken or needs more memory.
QImage decodePicture(const MMS_COMP_SMILMultipartBodypart& part, const PictureHeader& header, QSize wanted,
                     int megabytes = DECODER_MEGABYTES);

/// A PNG without ancillary chunks: texts and profiles are compressed, and a decoder would unpack them. Other
/// octets are returned unchanged, and so is a broken rest.
QByteArray withoutAncillaryChunks(const QByteArray& png);
