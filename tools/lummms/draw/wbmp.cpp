#include "tools/lummms/draw/wbmp.h"

#include <algorithm>
#include <optional>

namespace {

constexpr int LARGEST_SIDE = 4096; // far larger than the screens for which WBMP was made

/// Takes a multi-octet integer from the front: seven bits an octet, the highest first, the top bit set on all
/// but the last.
std::optional<int> takeNumber(QByteArrayView& octets) {
    int number = 0;
    while (!octets.isEmpty() && number <= LARGEST_SIDE) {
        const auto octet = static_cast<unsigned char>(octets.front());
        octets = octets.sliced(1);
        number = number * 128 + (octet & 0x7F);
        if (octet < 0x80)
            return number;
    }
    return std::nullopt;
}

qsizetype octetsOfRow(int width) {
    return (width + 7) / 8;
}

/// Takes the header from the front. An empty size when rows are missing behind it.
QSize takeHeader(QByteArrayView& octets) {
    if (octets.size() < 2 || octets[0] != 0 || octets[1] != 0) // type 0 without extension headers
        return QSize();
    octets = octets.sliced(2);
    const std::optional<int> width = takeNumber(octets);
    const std::optional<int> height = takeNumber(octets);
    if (!width || !height || *width < 1 || *height < 1 || *width > LARGEST_SIDE || *height > LARGEST_SIDE ||
        octets.size() < octetsOfRow(*width) * *height)
        return QSize();
    return QSize(*width, *height);
}

} // namespace

QSize wbmpSize(QByteArrayView octets) {
    return takeHeader(octets);
}

QImage wbmpPicture(QByteArrayView octets) {
    const QSize size = takeHeader(octets);
    if (size.isEmpty())
        return QImage();
    const qsizetype row = octetsOfRow(size.width());
    QImage picture(size, QImage::Format_Mono);
    if (picture.isNull())
        return QImage();
    picture.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    for (int y = 0; y < size.height(); ++y)
        std::copy_n(octets.data() + y * row, row, reinterpret_cast<char*>(picture.scanLine(y)));
    return picture;
}
