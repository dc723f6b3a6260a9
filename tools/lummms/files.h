#pragma once

#include "qt2/qarray.h"

#include <QByteArray>
#include <QString>

/// Standard input as a file to read, standard output as a file to write.
inline constexpr QStringView STANDARD_STREAM = u"-";

/// The path for Qt's classes, which take a leading colon for a resource.
QString filePathOf(const QString& path);

/// Reads a file into `octets`. Pipes, devices and standard input ("-") are read to their end, up to 64 MiB.
/// On failure returns false and sets `cause`.
bool loadFile(const QString& path, QArray<char>& octets, QString& cause);

/// What to do with an existing file.
enum class IfThere { REFUSE, REPLACE };

/// Writes a whole file, or changes nothing, returns false and sets `cause`. Devices and other special files
/// are never replaced. "-" is standard output.
bool saveFile(const QString& path, const QByteArray& octets, IfThere ifThere, QString& cause);
