#pragma once

#include "codec/field_base.h"
#include "platform/utility/msg_header_base.h"

/// Content-Type, 0x84: the type of the body, which follows this field at once.
///
/// Of the parameters "type" and "start" (of a related multipart), "Application-ID",
/// "Reply-To-Application-ID" and, when reading, "DistributionIndicator" are known; others are passed
/// over. The media type is read and written as its assigned number alone: one that is spelt out is not
/// understood, and one without a number goes out as 0xFF. The value itself is offered as an encoding of
/// its own, too.
class LUM_EXPORT ContentTypeField final : public FieldBase {
public:
    /// The value of one parameter in a parameter text: what follows "type=" up to the next ";". A null
    /// text when it is absent. The key is also found at the end of a longer name.
    static QString mprtOf(const QString& params);
    /// The same for "start=".
    static QString startOf(const QString& params);
    /// The same for "Application-ID=".
    static QString appIDOf(const QString& params);
    /// The same for "Reply-To-Application-ID=".
    static QString replyAppIDOf(const QString& params);

    /// Reads the value into type, sub-type and parameters; parameters stay as they are when the value
    /// has none that are known. CODEC_MALFORMED when the input ends inside it; type and sub-type may
    /// be set by then.
    static unsigned char readFrom(LinearBuffer* buffer, MMS_CONTENT_TYPE_T* out);
    /// Writes the field code and the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const MMS_CONTENT_TYPE_T& contentType);
    /// Octets of the value, the field code not counted.
    static int sizeOf(const MMS_CONTENT_TYPE_T& contentType);

    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};
