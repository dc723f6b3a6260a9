#pragma once

#include "codec/field_base.h"
#include "platform/utility/msg_header_base.h"

/// Content-Type, 0x84: the type of the body, which begins right behind this field.
///
/// Known parameters are "type" and "start" (of a related multipart), "Application-ID",
/// "Reply-To-Application-ID" and, when reading, "DistributionIndicator"; others are skipped. The media type
/// is read and written as its assigned number only: a media type in letters is not understood, and one
/// without a number is written as 0xFF. The static functions encode and decode the value alone.
class LUM_EXPORT ContentTypeField final : public FieldBase {
public:
    /// The value of "type" in a parameter text: what follows "type=" up to the next ";", also at the end of
    /// a longer name. A null text when it is absent.
    static QString mprtOf(const QString& params);
    /// The same for "start=".
    static QString startOf(const QString& params);
    /// The same for "Application-ID=".
    static QString appIDOf(const QString& params);
    /// The same for "Reply-To-Application-ID=".
    static QString replyAppIDOf(const QString& params);

    /// Reads the value into type, sub-type and parameters. Without a known parameter in the value, the
    /// parameters stay as they are. CODEC_MALFORMED when the input ends inside the value; type and sub-type
    /// may be set by then.
    static unsigned char readFrom(LinearBuffer* buffer, MMS_CONTENT_TYPE_T* out);
    /// Writes the field code and the value. Always CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const MMS_CONTENT_TYPE_T& contentType);
    /// Octets of the value, the field code not counted.
    static int sizeOf(const MMS_CONTENT_TYPE_T& contentType);

    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};
