#include "tools/lummms/message.h"

#include "codec/codec_result.h"
#include "codec/ua_decoder.h"
#include "multipart/body_part.h"
#include "multipart/multipart_parser.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/lowered.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int CONTENT_MISSING = 3; // the reader's warning

} // namespace

bool isMultipart(const MMS_CONTENT_TYPE_T& type) {
    return equalLowered(type.type, u"multipart") ||
           type.subType.startsWith(QLatin1String("vnd.wap.multipart."), Qt::CaseInsensitive);
}

bool Message::read(const QString& path, QString& cause) {
    QArray<char> octets;
    if (!loadFile(path, octets, cause))
        return false;
    read(octets);
    return true;
}

void Message::read(const QArray<char>& octets) {
    octets_ = octets;
    auto length = static_cast<unsigned int>(octets_.size());
    MMS_UA_Decoder decoder;
    result = decoder.decodeHeader(reinterpret_cast<unsigned char*>(octets_.data()), length, &header);
    hasBody = result == CODEC_READ && header.fieldsPresent(presenceBit(FIELD_CONTENT_TYPE)) &&
              isMultipart(header.getContentType());
    if (!hasBody)
        return;
    QArray<char> received;
    received.setRawData(reinterpret_cast<const char*>(header.bodyStart), qsizetype(header.bodyLength));
    bodyStatus = MMS_COMP_SMILMultipartParser::parse(received, &header, &body);
}

void Message::readPresentation() {
    smilPart = hasBody ? body.getSmilPart() : nullptr;
    if (!smilPart)
        return;
    MMS_COMP_SMILParser parser;
    smilStatus = parser.parse(smilPart->getBodyData(), &body, presentation.get());
    smilWarning = parser.getLastWarning();
}

/// Adds an empty part for every reference of the presentation that no part answers to.
void Message::addStandIns() {
    constexpr int mostStandIns = 100; // each makes the search for every other reference longer
    static const QRegularExpression reference("\\ssrc\\s*=\\s*(\"([^\"<]*)\"|'([^'<]*)')");
    const QArray<char>& smil = smilPart->getBodyData();
    const QString text = QString::fromUtf8(smil.data(), smil.size());
    QSet<QString> seen;
    QRegularExpressionMatchIterator match = reference.globalMatch(text);
    while (match.hasNext() && standIns_.size() < mostStandIns) {
        const QRegularExpressionMatch found = match.next();
        QString src = found.captured(2) + found.captured(3);
        src = src.replace("&amp;", "&").trimmed();
        if (src.isEmpty() || seen.contains(src))
            continue;
        seen.insert(src);
        if (body.getBodyPartBySrc(src, MMS_COMP_SMILMultipartBodypart::ORDINARY_PART) ||
            body.getBodyPartBySrc(src, MMS_COMP_SMILMultipartBodypart::PRESENTATION_PART))
            continue;
        auto* part = new MMS_COMP_SMILMultipartBodypart;
        part->setContentLocation(src);
        body.appendBodypart(part);
        standIns_.insert(part);
    }
}

void Message::readPresentationWithGaps() {
    readPresentation();
    if (smilStatus || smilWarning != CONTENT_MISSING)
        return;
    addStandIns();
    presentation = std::make_unique<MMS_COMP_SMILData>(&body);
    MMS_COMP_SMILParser().parse(smilPart->getBodyData(), &body, presentation.get());
}

QList<Problem> Message::problems() const {
    QList<Problem> problems;
    const auto add = [&problems](const QString& what) { problems += Problem{-1, SEVERITY_PROBLEM, what}; };
    if (octets_.isEmpty())
        add(QStringLiteral("is empty, which is no message"));
    if (result != CODEC_READ)
        add(QStringLiteral("header ") + explained(codecResultWords, "result", result));
    if (bodyStatus)
        add(QStringLiteral("body ") + explained(bodyStatusWords, "status", bodyStatus));
    if (smilStatus)
        add(QStringLiteral("presentation: ") + explained(smilStatusWords, "status", smilStatus));
    return problems;
}

QString Message::causeOfMalformation() const {
    QStringList causes;
    for (const Problem& problem : problems())
        if (problem.severity == SEVERITY_PROBLEM)
            causes += problem.what;
    return causes.join(QStringLiteral("; "));
}

int Message::verdict(const QString& path) const {
    const QString cause = causeOfMalformation();
    if (cause.isEmpty())
        return EXIT_DONE;
    complain(path, cause);
    return EXIT_MALFORMED;
}

qint64 Message::bodyOffset() const {
    return octets_.size() - static_cast<qint64>(header.bodyLength);
}
