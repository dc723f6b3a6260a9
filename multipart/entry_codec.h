#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

class Charsets;
class LinearBuffer;
class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

// The inside of the multipart codec: one entry, and a count with that many entries.

/// Takes a part that was read.
using PartReceiver = std::function<void(std::unique_ptr<MMS_COMP_SMILMultipartBodypart>)>;

/// Reads the count and the entries of a body; `depth` is 0 for a body that is in no other. Parts are
/// handed on as they come; `charsets` are those of the whole message. CODEC_READ, or the result of the entry
/// that could not be read.
unsigned char readEntries(LinearBuffer* in, int depth, Charsets& charsets, const PartReceiver& receive);

/// Reads one entry of a body at that depth.
unsigned char readEntry(LinearBuffer* in, int depth, Charsets& charsets,
                        MMS_COMP_SMILMultipartBodypart* part);

/// Writes an entry: CODEC_WRITTEN, or CODEC_REFUSED when there is no room.
unsigned char writeEntry(LinearBuffer* out, const MMS_COMP_SMILMultipartBodypart& part);

/// The octets that writeEntry() writes.
qint64 sizeOfEntry(const MMS_COMP_SMILMultipartBodypart& part);

/// The room that a body may take when it is sent: what the phone allows for a message, and more when
/// the payloads need it.
qint64 roomForBody(MMS_COMP_SMILMultipart* body);

/// Writes the count and all entries, up to the first that has no room: CODEC_WRITTEN or CODEC_REFUSED.
unsigned char writeBody(LinearBuffer* out, MMS_COMP_SMILMultipart* body);

/// The octets that writeBody() writes.
qint64 sizeOfBody(MMS_COMP_SMILMultipart* body);
