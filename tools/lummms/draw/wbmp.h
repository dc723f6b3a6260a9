#pragma once

#include <QByteArrayView>
#include <QImage>

/// The size of a wireless bitmap (WAP WBMP, type 0), which Qt reads only with a plug-in. Empty for other
/// octets and for a truncated picture.
QSize wbmpSize(QByteArrayView octets);

/// The picture; a null image where wbmpSize() is empty.
QImage wbmpPicture(QByteArrayView octets);
