#pragma once

#include "codec/ua_msg.h"
#include "multipart/multipart.h"
#include "qt2/qarray.h"
#include "smil/model/presentation.h"
#include "tools/lummms/exit_status.h"
#include "tools/lummms/files.h"
#include "tools/lummms/reading.h"
#include "wire/reader.h"

#include <QList>
#include <QSet>
#include <QString>

#include <memory>

class MMS_COMP_SMILMultipartBodypart;
class MMS_COMP_SMILParser;

/// The place of the reader's error: ", line 3, column 14". Empty without a place.
QString placeOfError(const MMS_COMP_SMILParser& parser);

/// Whether the content type is a multipart.
bool isMultipart(const MMS_CONTENT_TYPE_T& type);

/// Severity of a fault.
enum SEVERITY : int {
    SEVERITY_PROBLEM, ///< malformed or not understood
    SEVERITY_NOTE,    ///< a deviation that does not prevent reading
};

/// A fault of a message.
struct Problem {
    qint64 offset; ///< position in the PDU; -1 without a single place
    SEVERITY severity;
    QString what; ///< a sentence without a full stop
};

/// A message read from a PDU by one of the two readings: header, body and presentation. Nothing is computed
/// before it is requested, and payloads are copied at most once. An object reads one message.
class Message {
public:
    explicit Message(READING reading = READING_SENT) : reading_(reading) {}
    READING reading() const { return reading_; }

    /// Reads file, header and body. False, with `cause` set, when the file cannot be read; faults inside the
    /// message are returned by problems().
    bool read(const QString& path, QString& cause);
    /// Reads header and body from octets, which are shared.
    void read(const QArray<char>& octets);
    /// Reads the presentation, if there is one. This marks the parts that slides use: to list parts
    /// unchanged, list them before.
    void readPresentation();
    /// The same, but keeps media elements without content: for each an empty part is added to the body.
    void readPresentationWithGaps();
    /// Whether a part was added for missing content.
    bool isMissing(const MMS_COMP_SMILMultipartBodypart* part) const { return standIns_.contains(part); }

    /// The faults of the message in the order of the octets, those of the presentation once it was read. The
    /// phone's reading has no notes.
    QList<Problem> problems() const;
    /// The fault of the presentation: empty when there is none.
    QString problemOfPresentation() const;
    /// The first problems on one line, without notes; empty for a sound message.
    QString causeOfMalformation() const;
    /// Reports a malformed message and returns its exit status.
    int verdict(const QString& path) const;

    /// Octets of the header, which is the position of the body.
    qint64 bodyOffset() const;
    /// Octets of the body.
    qint64 bodyLength() const;
    /// The PDU.
    const QArray<char>& octets() const { return octets_; }

    /// All items of the message; for READING_SENT.
    const MMS_WIRE_Reader& wire() const { return wire_; }
    /// The fields that the header record cannot hold, in order; for READING_SENT.
    QList<MMS_WIRE_Item> otherFields;

    MMS_UA_UAMsg header;
    int result = 0;       ///< the header decoder's result; 0 for READING_SENT
    bool hasBody = false; ///< whether there is a multipart body; for READING_SENT any body
    MMS_COMP_SMILMultipart body;
    int bodyStatus = 0;
    /// The presentation part; null when there is none, or before readPresentation().
    MMS_COMP_SMILMultipartBodypart* smilPart = nullptr;
    std::unique_ptr<MMS_COMP_SMILData> presentation = std::make_unique<MMS_COMP_SMILData>(&body);
    int smilStatus = 0;
    int smilWarning = 0;

private:
    void readAsSent();
    void readAsPhone();
    int parsePresentation(MMS_COMP_SMILParser& parser);
    void addStandIns();

    READING reading_;
    QString smilPlace_; // ", line 3, column 14"
    MMS_WIRE_Reader wire_;
    QSet<const MMS_COMP_SMILMultipartBodypart*> standIns_;
    QArray<char> octets_; // header.bodyStart points into them
};
