#pragma once

#include "qt2/qarray.h"

#include <QByteArray>
#include <QString>

/// Reads a file into `octets`. False, with the reason in `cause`, when it cannot be read.
bool loadFile(const QString& path, QArray<char>& octets, QString& cause);

/// Why no file can be opened at that path, for a message to the user.
QString whyNotOpened(const QString& path);

/// Writes a file whole, in place of one that is there, or leaves everything as it was: then false, with the
/// reason in `cause`. What is there and is no ordinary file, such as a device, is never replaced.
bool saveFile(const QString& path, const QByteArray& octets, QString& cause);
