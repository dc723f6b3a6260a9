#pragma once

#include "platform/export.h"
#include "qt2/qcstring.h"

/// The phone's code numbers for MIME types, sub-types, charsets and transfer encodings.
///
/// Look-ups by name ignore case and return -1 for an unknown name. Look-ups by code set `name`, in lower
/// case; for an unknown code they return false and leave it unchanged. Programs store the codes: a code never
/// changes its meaning.
class LUM_EXPORT EMAIL_Util {
public:
    /// Code of the top-level type "application".
    static constexpr int TYPE_APPLICATION = 4;
    /// Code of the sub-type "vnd.wap.multipart.related".
    static constexpr int SUBTYPE_WAP_MULTIPART_RELATED = 70;

    /// Top-level media types, such as "image".
    static bool typeEnumToStr(int code, QCString& name);
    /// Code of a top-level media type.
    static int typeStrToEnum(const QCString& name);
    /// Media sub-types of all top-level types, such as "jpeg".
    static bool subTypeEnumToStr(int code, QCString& name);
    /// Code of a media sub-type.
    static int subTypeStrToEnum(const QCString& name);
    /// Charsets, such as "utf-8"; a charset's code is its IANA MIB number (106 for UTF-8).
    static bool charsetEnumToStr(int code, QCString& name);
    /// Code of a charset.
    static int charsetStrToEnum(const QCString& name);
    /// Transfer encodings, such as "base64". An empty text for an unknown code.
    static QCString cteEnumToStr(int code);
    /// Code of a transfer encoding.
    static int cteStrToEnum(const QCString& name);
};
