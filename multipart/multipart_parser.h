#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_UTIL_MsgHeaderBase;

/// Decodes and encodes a message body together with the content type in the header.
///
/// Parameter lists are texts of items name=value joined by ";".
class LUM_EXPORT MMS_COMP_SMILMultipartParser {
public:
    /// Failures; 0 is success.
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

    /// Decodes a message body into `body`, finds its presentation part, and gives every part a
    /// Content-Location. Returns 0, or a STATUS; the parts before the malformed one are then there as they
    /// were received. A container with a boundary (of a textual multipart) is left unchanged. Check in the
    /// header's content type that the body is a multipart: other octets give ERR_MALFORMED, or are read as
    /// parts.
    static int parse(const QArray<char>& data, MMS_UTIL_MsgHeaderBase* header, MMS_COMP_SMILMultipart* body);

    /// Gives every part without a Content-Location a new one, and every part without a display file name its
    /// Content-Location as display file name.
    static void checkLocation(MMS_COMP_SMILMultipart* body);

    /// Encodes the container as message body and sets the header's content type. The null array, and an
    /// unchanged header, on failure. `*status` is set to 0 or the STATUS.
    ///
    /// The caller checks that there are no sub-bodies and at most 255 parts: see MMS_UA_MultiPart_CODEC.
    static QArray<char> assembleBody(MMS_COMP_SMILMultipart* body, MMS_UTIL_MsgHeaderBase* header,
                                     int* status = nullptr);
};
