#pragma once

#include <QVarLengthArray>
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

/// A body on its way out. The heads of its entries are made once, for the size and for the octets.
class BodyOutput {
public:
    /// The body must outlive the output and not change meanwhile.
    explicit BodyOutput(MMS_COMP_SMILMultipart* body);

    /// The octets that writeTo() writes, given as many.
    qint64 size() const { return size_; }
    /// The octets that a body may not reach when it is sent: what the phone allows for a message, and more
    /// when the payloads need it.
    qint64 room() const { return room_; }
    /// Writes the count and all entries, up to the first that has no room: CODEC_WRITTEN or
    /// CODEC_REFUSED.
    unsigned char writeTo(LinearBuffer* out) const;

private:
    struct Entry {
        const MMS_COMP_SMILMultipartBodypart* part;
        int headLength;
    };

    QVarLengthArray<unsigned char, 1024> heads_; // one behind the other
    QVarLengthArray<Entry, 16> parts_;
    qint64 size_ = 1; // the count
    qint64 room_;
};
