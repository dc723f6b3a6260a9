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

/// Where the text of a presentation is wrong, as the reader told: ", line 3, column 14". Empty without a
/// place.
QString placeOfError(const MMS_COMP_SMILParser& parser);

/// Whether a content type is that of a body made of parts.
bool isMultipart(const MMS_CONTENT_TYPE_T& type);

/// How much something that is wrong with a message weighs.
enum SEVERITY : int {
    SEVERITY_PROBLEM, ///< something is malformed, or not understood
    SEVERITY_NOTE,    ///< off the rules, and read all the same
};

/// Something that is wrong with a message.
struct Problem {
    qint64 offset; ///< the octet in the PDU; -1 when it has no one place
    SEVERITY severity;
    QString what; ///< a sentence without its full stop
};

/// A message read from a PDU: header, body and presentation, by one of the two readings. Reading is cheap:
/// nothing is done but what is asked for, and payloads are copied once at most. An object reads one message.
class Message {
public:
    explicit Message(READING reading = READING_SENT) : reading_(reading) {}
    READING reading() const { return reading_; }

    /// Reads file, header and body. False, with the reason in `cause`, when the file cannot be read;
    /// what is wrong inside the message is kept for problems().
    bool read(const QString& path, QString& cause);
    /// Reads header and body from octets that are shared with whoever gives them.
    void read(const QArray<char>& octets);
    /// Reads the presentation, if there is one. The reader marks the parts that it links to slides, so
    /// whoever wants to see the parts as they came looks at them before.
    void readPresentation();
    /// The same, but keeps media elements whose content is not in the message: an empty part, added to
    /// the body, stands in for it.
    void readPresentationWithGaps();
    /// Whether a part only stands in for content that is not there.
    bool isMissing(const MMS_COMP_SMILMultipartBodypart* part) const { return standIns_.contains(part); }

    /// What is wrong with the message, in the order of the octets; of the presentation, once it was read. The
    /// phone's reading has no notes.
    QList<Problem> problems() const;
    /// What is wrong with the presentation: empty when there is none, or nothing wrong.
    QString problemOfPresentation() const;
    /// The first problems in one line, without the notes; empty for a sound message.
    QString causeOfMalformation() const;
    /// Complains about a malformed message, and gives the exit status that the message deserves.
    int verdict(const QString& path) const;

    /// Octets of the header, that is the place of the body in the PDU.
    qint64 bodyOffset() const;
    /// Octets of the body.
    qint64 bodyLength() const;
    /// The PDU.
    const QArray<char>& octets() const { return octets_; }

    /// Every item of the message; in the reading as it was sent.
    const MMS_WIRE_Reader& wire() const { return wire_; }
    /// The fields that the header has no place for, in order; in the reading as it was sent.
    QList<MMS_WIRE_Item> otherFields;

    MMS_UA_UAMsg header;
    int result = 0;       ///< the header decoder's; 0 in the reading as it was sent
    bool hasBody = false; ///< whether there is a body made of parts; as it was sent, any body is
    MMS_COMP_SMILMultipart body;
    int bodyStatus = 0;
    /// The part with the presentation; null when there is none, or before readPresentation().
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
    QArray<char> octets_; // the header's bodyStart points into them
};
