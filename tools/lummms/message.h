#pragma once

#include "codec/ua_msg.h"
#include "multipart/multipart.h"
#include "qt2/qarray.h"
#include "smil/model/presentation.h"
#include "tools/lummms/exit_status.h"
#include "tools/lummms/files.h"

#include <QSet>
#include <QString>

#include <memory>

class MMS_COMP_SMILMultipartBodypart;

/// Whether a content type is that of a body made of parts.
bool isMultipart(const MMS_CONTENT_TYPE_T& type);

/// A message read from a PDU file: what an application makes of the octets that came over the air.
class Message {
public:
    /// Reads file, header and body. False, with the reason in `cause`, when the file cannot be read;
    /// what is wrong inside the message is kept for causeOfMalformation().
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

    /// What kept the message from being read whole; empty for a sound message.
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

    QSet<const MMS_COMP_SMILMultipartBodypart*> standIns_;
    QArray<char> octets_; // the header's bodyStart points into them
};
