#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"

#include <QString>

/// Helpers for file names, MIME types and files.
class LUM_EXPORT MMS_COMP_Util {
public:
    /// Results of getQByteArraySrcByFileName().
    enum FILE_STATUS {
        FILE_READ = 0,        ///< the whole file was read
        FILE_NOT_OPENED = -1, ///< there is no such file, or it must not be read
        FILE_NO_SIZE = -2,    ///< the file has no size, like a pipe
        FILE_NO_MEMORY = -3,  ///< no memory for the contents, or they could not be read
        FILE_TOO_LARGE = -4,  ///< larger than an outgoing message may be
    };

    /// The directory of a path, its separator included; empty for a path without one. White space
    /// around the path does not count.
    static QString getPath(const QString& path);
    /// The file name of a path: what follows the last "/" or "\", white space around the path removed.
    static QString stripePath(const QString& path);
    /// The extension of a file name: what follows the last ".", white space around it removed; empty
    /// for a name without a dot.
    static QString getExtName(const QString& name);
    /// A file name without the last "." and its extension; white space is kept.
    static QString getNoExtName(const QString& name);

    /// The file extension (lower case, no dot) under which a part of this media type is stored: the
    /// first one of the phone's registry that the phone can also show or play; empty for none.
    static QString getFirstSupportExtNameByMIMEType(const QString& type, const QString& subType);

    /// Whether a text holds nothing but A to Z, a to z, 0 to 9, ".", "-", "_", " ", "\" and "/", the
    /// characters of names and paths. True for an empty text.
    static bool isOnlyLetterOrNumber(const QString& text);

    /// Reads a whole file into `data`; with `checkSize` only one that is not larger than
    /// MMS_UTIL_Setting::getMaxiumMOMMSSize() kilobytes. Gives a FILE_STATUS; `data` is left as it
    /// was on every failure.
    static int getQByteArraySrcByFileName(QArray<char>& data, const QString& fileName, bool checkSize);

    /// Reads the wall clock and returns its status, 0 on success. Prints nothing; the arguments are not used.
    static int printTimeStamp(const QString& text, int count);

    /// Tells the user, in a modal box, that the memory is full. Returns when the box is closed. In a
    /// build without the user interface library the text goes to the error log instead.
    static void noFlashMsgBox();
};
