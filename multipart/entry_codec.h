#pragma once

#include <QVarLengthArray>
#include <QtGlobal>

#include <functional>
#include <memory>

class Charsets;
class LinearBuffer;
class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

// Internals of the multipart codec: one entry, and a list of entries with its count.

/// Receives each part that was read.
using PartReceiver = std::function<void(std::unique_ptr<MMS_COMP_SMILMultipartBodypart>)>;

/// Reads the count and the entries of a body. `depth` is 0 for the body of the message and one more for each
/// multipart around an entry. Parts are passed on as they are read; `charsets` is shared by the whole
/// message. CODEC_READ, or the result of the entry that could not be read.
unsigned char readEntries(LinearBuffer* in, int depth, Charsets& charsets, const PartReceiver& receive);

/// Reads one entry of a body at that depth.
unsigned char readEntry(LinearBuffer* in, int depth, Charsets& charsets,
                        MMS_COMP_SMILMultipartBodypart* part);

/// Writes an entry: CODEC_WRITTEN, or CODEC_REFUSED when there is no room.
unsigned char writeEntry(LinearBuffer* out, const MMS_COMP_SMILMultipartBodypart& part);

/// A body to be encoded. The heads of its entries are made once, for the size and for the octets.
class BodyOutput {
public:
    /// The caller keeps the body and does not change it while the output is in use.
    explicit BodyOutput(MMS_COMP_SMILMultipart* body);

    /// Number of octets that writeTo() writes when it is given as many.
    qint64 size() const { return size_; }
    /// The size that an encoded body must stay below: the phone's limit for a message, or more when the
    /// payloads need it.
    qint64 room() const { return room_; }
    /// Writes the count and the entries, up to the first that does not fit: CODEC_WRITTEN or CODEC_REFUSED.
    unsigned char writeTo(LinearBuffer* out) const;

private:
    struct Entry {
        const MMS_COMP_SMILMultipartBodypart* part;
        int headLength;
    };

    QVarLengthArray<unsigned char, 1024> heads_; // the encoded heads, one after another
    QVarLengthArray<Entry, 16> parts_;
    qint64 size_ = 1; // begins with the octet of the count
    qint64 room_;
};
