#pragma once

#include "platform/export.h"

#include <QImage>
#include <QString>

class QWidget;

/// The phone's notices to the user.
class LUM_EXPORT LumMessageBox {
public:
    /// Shows a text in a modal box until the user closes it. Returns the number of the button pressed (0 to
    /// 2), or -1 when the box was closed without one.
    ///
    /// `buttons` is how many of the three labels are used; an empty label makes no button. `parent` and
    /// `icon` may be null. Without a running QApplication, or on a thread other than its own, the call writes
    /// the text to the error log and returns -1 at once.
    static int information(QWidget* parent, const QImage& icon, const QString& text, const QString& button0,
                           const QString& button1 = QString(), const QString& button2 = QString(),
                           int buttons = 1);
};
