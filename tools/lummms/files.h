#pragma once

#include "qt2/qarray.h"

#include <QByteArray>
#include <QString>

/// The name that stands for standard input where a file is read, and for standard output where one is
/// written.
inline constexpr QStringView STANDARD_STREAM = u"-";

/// The path as Qt's classes must be given it: for them a leading colon means a resource of the program.
QString filePathOf(const QString& path);

/// Reads a file into `octets`: an ordinary one at once, a pipe, a device or standard input ("-") to its end,
/// of at most 64 MiB. False, with the reason in `cause`, when it cannot be read.
bool loadFile(const QString& path, QArray<char>& octets, QString& cause);

/// What becomes of a file that is to be written and is there already.
enum class IfThere { REFUSE, REPLACE };

/// Writes a file whole, or leaves everything as it was: then false, with the reason in `cause`. What is there
/// and is no ordinary file, such as a device, is never replaced. "-" is the standard output.
bool saveFile(const QString& path, const QByteArray& octets, IfThere ifThere, QString& cause);
