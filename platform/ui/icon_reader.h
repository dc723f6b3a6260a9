#pragma once

#include "platform/export.h"

#include <QImage>
#include <QString>

/// The pictures that come with the phone's dialogs.
class LUM_EXPORT RES_ICON_Reader {
public:
    /// The icon of this file name, such as "Dialog_Error.gif"; a null image for an unknown name. An image,
    /// not a pixmap, so that programs without an application object can load it. `shared` is not used: images
    /// are always shared.
    static QImage getIcon(const QString& fileName, bool shared = true);
};
