#pragma once

#include <QByteArrayView>
#include <QImage>

/// The black and white picture of phones (WAP wireless bitmap, type 0), which Qt reads only with a
/// plug-in; a null image for other octets.
QImage wbmpPicture(QByteArrayView octets);
