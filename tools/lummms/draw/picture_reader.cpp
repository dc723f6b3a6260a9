#include "tools/lummms/draw/picture_reader.h"

#include "multipart/body_part.h"
#include "tools/lummms/draw/wbmp.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>
#include <QtEndian>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int OCTETS_PER_COEFFICIENTS = 8; // of a pixel, until the last scan: four components of two octets

/// Picture formats that phones send. No other is decoded, even if Qt has a plug-in for it.
constexpr const char* PICTURE_FORMATS[] = {"png", "jpeg", "gif", "bmp", "webp"};

constexpr QByteArrayView PNG_SIGNATURE("\x89PNG\r\n\x1a\n", 8);
constexpr QByteArrayView PNG_CHUNKS[] = {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
constexpr qsizetype PNG_CHUNK_FRAME = 12;     // length, type and checksum
constexpr qsizetype PNG_INTERLACE_PLACE = 28; // in the header chunk, which comes first

/// Suppresses standard error while it exists: decoding libraries report broken pictures there, bypassing Qt's
/// message handler.
class SilentErrors {
public:
    SilentErrors() : nowhere_(open("/dev/null", O_WRONLY | O_CLOEXEC)) {
        if (nowhere_ >= 0 && saved_ >= 0)
            dup2(nowhere_, STDERR_FILENO);
    }
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;
    ~SilentErrors() {
        if (saved_ >= 0)
            dup2(saved_, STDERR_FILENO);
        close(saved_);
        close(nowhere_);
    }

private:
    const int saved_ = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere_;
};

/// A WBMP has no signature.
bool isWbmp(const MMS_COMP_SMILMultipartBodypart& part) {
    return part.getSubType().endsWith(QLatin1String("wbmp"), Qt::CaseInsensitive);
}

QByteArray octetsToDecode(const MMS_COMP_SMILMultipartBodypart& part) {
    return withoutAncillaryChunks(QByteArray(part.getBodyData()));
}

bool isTransposed(const QImageReader& reader) {
    return reader.transformation() & QImageIOHandler::TransformationRotate90;
}

/// How the pixels of a JPEG are encoded.
struct JpegLayout {
    int scans = 0;
    bool isInOneScan = false; ///< all colours in one scan; otherwise a decoder keeps all coefficients
};

/// Walks the JPEG's segments like a decoder; what is inside a segment, such as a thumbnail, is skipped.
JpegLayout layoutOf(const QByteArray& jpeg) {
    const auto octet = [&jpeg](qsizetype at) { return at < jpeg.size() ? quint8(jpeg[at]) : quint8(0); };
    JpegLayout layout;
    int components = 0; // of a frame in one scan, or in one scan for each
    for (qsizetype at = 2; (at = jpeg.indexOf('\xFF', at)) >= 0;) {
        const quint8 marker = octet(++at);
        if (marker == 0xFF || marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD9)) // has no length
            continue;
        if (marker == 0xDA && ++layout.scans == 1) // as a decoder does, by the first scan
            layout.isInOneScan = components && octet(at + 3) == components;
        if (marker == 0xC0 || marker == 0xC1) // a baseline frame: three octets before its size
            components = octet(at + 8);
        at += 1 + octet(at + 1) * 256 + octet(at + 2);
    }
    return layout;
}

/// Number of passes over the picture.
int scansOf(QImageReader& reader, const QByteArray& format, const QByteArray& octets) {
    return std::max(format == "jpeg" ? layoutOf(octets).scans : reader.imageCount(), 1);
}

bool isReadRowByRow(const PictureHeader& header, const QByteArray& octets) {
    if (header.format == "jpeg")
        return layoutOf(octets).isInOneScan;
    return header.format == "png" && octets.size() > PNG_INTERLACE_PLACE && octets[PNG_INTERLACE_PLACE] == 0;
}

} // namespace

QByteArray withoutAncillaryChunks(const QByteArray& png) {
    if (!png.startsWith(PNG_SIGNATURE))
        return png;
    QByteArray kept = png.first(PNG_SIGNATURE.size());
    kept.reserve(png.size());
    qsizetype at = PNG_SIGNATURE.size();
    while (png.size() - at >= PNG_CHUNK_FRAME) {
        const qint64 length = qFromBigEndian<quint32>(png.constData() + at);
        const qsizetype chunk = qsizetype(std::min<qint64>(PNG_CHUNK_FRAME + length, png.size() - at));
        const QByteArrayView type = QByteArrayView(png).sliced(at + 4, 4);
        if (std::find(std::begin(PNG_CHUNKS), std::end(PNG_CHUNKS), type) != std::end(PNG_CHUNKS))
            kept += QByteArrayView(png).sliced(at, chunk);
        at += chunk;
    }
    return kept;
}

PictureHeader readPictureHeader(const MMS_COMP_SMILMultipartBodypart& part) {
    PictureHeader header;
    if (isWbmp(part)) {
        const QArray<char>& octets = part.getBodyData();
        header.size = wbmpSize(QByteArrayView(octets.data(), octets.size()));
        header.format = header.size.isEmpty() ? "" : "wbmp";
        header.memory = header.pixels() / 8;
        return header;
    }
    QByteArray octets = octetsToDecode(part);
    QBuffer buffer(&octets);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format(); // by content, not by name
    if (std::find(std::begin(PICTURE_FORMATS), std::end(PICTURE_FORMATS), format) ==
        std::end(PICTURE_FORMATS))
        return header;
    const SilentErrors silent;
    const QSize size = reader.size();
    if (size.isEmpty())
        return header;
    header.format = format;
    header.size = isTransposed(reader) ? size.transposed() : size;
    header.scans = scansOf(reader, format, octets);
    const QImage::Format pixels = reader.imageFormat();
    const int bits = pixels == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(pixels).bitsPerPixel();
    header.memory = header.pixels() * bits / 8;
    const bool rowByRow = isReadRowByRow(header, octets);
    header.scalable = rowByRow && (format == "jpeg" || bits == 32);
    if (format == "jpeg" && !rowByRow)
        header.memory += header.pixels() * OCTETS_PER_COEFFICIENTS;
    return header;
}

bool fitsMemory(const PictureHeader& header, int megabytes) {
    return header.scalable || header.memory <= qint64(megabytes) << 20;
}

QImage decodePicture(const MMS_COMP_SMILMultipartBodypart& part, const PictureHeader& header, QSize wanted,
                     int megabytes) {
    if (header.format.isEmpty() || !fitsMemory(header, megabytes))
        return QImage();
    const SilentErrors silent;
    if (header.format == "wbmp") {
        const QArray<char>& octets = part.getBodyData();
        return wbmpPicture(QByteArrayView(octets.data(), octets.size()));
    }
    QByteArray octets = octetsToDecode(part);
    QBuffer buffer(&octets);
    QImageReader reader(&buffer, header.format);
    QImageReader::setAllocationLimit(megabytes);
    reader.setAutoTransform(true);
    QSize scaled = wanted.boundedTo(header.size);
    while (header.scalable && qint64(scaled.width()) * scaled.height() * 4 > qint64(megabytes) << 18)
        scaled = (scaled / 2).expandedTo(QSize(1, 1));
    if (scaled != header.size && !scaled.isEmpty())
        reader.setScaledSize(isTransposed(reader) ? scaled.transposed() : scaled);
    return reader.read();
}
