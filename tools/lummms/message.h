#pragma once

#include "codec/ua_msg.h"
#include "multipart/multipart.h"
#include "qt2/qarray.h"
#include "smil/model/presentation.h"
#include "tools/lummms/exit_status.h"
#include "tools/lummms/files.h"
#include "tools/lummms/reading.h"

#include <QList>
#include <QSet>
#include <QString>

#include <memory>

class MMS_COMP_SMILMultipartBodypart;

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

    /// What is wrong with the message, in the order of the octets; of the presentation, once it was read.
    QList<Problem> problems() const;
    /// The problems without the notes, in one line; empty for a sound message.
    QString causeOfMalformation() const;
    /// Complains about a malformed message, and gives the exit status that the message deserves.
    int verdict(const QString& path) const;

    /// Octets of the header, that is the place of the body in the PDU.
    qint64 bodyOffset() const;

    MMS_UA_UAMsg header;
    int result = 0;       ///< the header decoder's
    bool hasBody = false; ///< whether there is a body made of parts
    MMS_COMP_SMILMultipart body;
    int bodyStatus = 0;
    /// The part with the presentation; null when there is none, or before readPresentation().
    MMS_COMP_SMILMultipartBodypart* smilPart = nullptr;
    std::unique_ptr<MMS_COMP_SMILData> presentation = std::make_unique<MMS_COMP_SMILData>(&body);
    int smilStatus = 0;
    int smilWarning = 0;

private:
    void addStandIns();

    READING reading_;
    QSet<const MMS_COMP_SMILMultipartBodypart*> standIns_;
    QArray<char> octets_; // the header's bodyStart points into them
};
