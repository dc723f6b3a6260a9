#pragma once

#include <QByteArrayView>
#include <QImage>

/// The size of a black and white picture of phones (WAP wireless bitmap, type 0), which Qt reads only with a
/// plug-in; an empty one for other octets, and for a picture that is cut off.
QSize wbmpSize(QByteArrayView octets);

/// The picture; a null image where the size is empty.
QImage wbmpPicture(QByteArrayView octets);
