#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_UTIL_MsgHeaderBase;

/// Joins message header and message body: content type on one side, container on the other.
///
/// Parameter lists are texts of items name=value joined by ";".
class LUM_EXPORT MMS_COMP_SMILMultipartParser {
public:
    /// What can go wrong; 0 is success.
    enum STATUS : int {
        ERR_ARGUMENT = -6,   ///< an argument is missing
        ERR_ENCODING = -18,  ///< the body could not be encoded
        ERR_MALFORMED = -19, ///< the octets are no body
        ERR_UNKNOWN = -20,   ///< a codec result that is not known
    };

    /// The value behind the first "start=", up to ";" or the end; empty when there is none.
    static QString parseStart(const QString& params);
    /// The same for "type=", also as the end of a longer name.
    static QString parseExtType(const QString& params);
    /// The same for any name.
    static QString parseParam(const QString& name, const QString& params);
    /// The parameters without the first item of that name.
    static QString stripParam(const QString& name, const QString& params);
    /// The parameters without "start" and "type".
    static QString otherParamListStrExceptStartType(const QString& params);

    /// The STATUS (or 0) for a codec result octet.
    static int handleErr(unsigned char code);

    /// Decodes a message body into `body`, settles its presentation part, and gives every part a
    /// Content-Location. 0, or a STATUS with the parts before the malformed one, as they were received;
    /// a container that has a boundary, of a textual multipart, is left alone. Whether the body is a
    /// multipart at all, the header's content type tells the caller; other octets end in ERR_MALFORMED, or
    /// are taken for parts.
    static int parse(const QArray<char>& data, MMS_UTIL_MsgHeaderBase* header, MMS_COMP_SMILMultipart* body);

    /// Gives every part without a Content-Location a new one, and every part without a display file
    /// name its Content-Location for one.
    static void checkLocation(MMS_COMP_SMILMultipart* body);

    /// The container as message body, its content type written into the header. The null array, and
    /// an unchanged header, on failure. `*status` is set to 0 or the STATUS.
    ///
    /// What MMS_UA_MultiPart_CODEC says of parts that cannot be sent holds here, too: the caller sees to
    /// it that there are no sub-bodies, and no more than 255 parts.
    static QArray<char> assembleBody(MMS_COMP_SMILMultipart* body, MMS_UTIL_MsgHeaderBase* header,
                                     int* status = nullptr);
};
