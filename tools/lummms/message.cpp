#include "tools/lummms/message.h"

#include "codec/codec_result.h"
#include "codec/ua_decoder.h"
#include "multipart/body_part.h"
#include "multipart/multipart_parser.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/phone_steps.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/lowered.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int CONTENT_MISSING = 3; // the SMIL reader's warning

} // namespace

QString placeOfError(const MMS_COMP_SMILParser& parser) {
    return parser.getErrorLine() ? QStringLiteral(", line %1, column %2")
                                       .arg(parser.getErrorLine())
                                       .arg(parser.getErrorColumn())
                                 : QString();
}

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
    if (reading_ == READING_SENT)
        readAsSent();
    else
        readAsPhone();
}

void Message::readAsSent() {
    wire_.read(QByteArrayView(octets_.data(), octets_.size()));
    otherFields = wire_.fill(&header);
    hasBody = !wire_.body().isNull();
    if (hasBody)
        wire_.fill(&body);
}

void Message::readAsPhone() {
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
    smilStatus = parsePresentation(parser);
    smilWarning = parser.getLastWarning();
    smilPlace_ = placeOfError(parser);
}

int Message::parsePresentation(MMS_COMP_SMILParser& parser) {
    parser.setLayoutKept(reading_ == READING_SENT);
    return parser.parse(smilPart->getBodyData(), &body, presentation.get());
}

/// Adds an empty part for each reference of the presentation that finds none.
void Message::addStandIns() {
    constexpr int mostStandIns = 100; // each slows down the look-up of all other references
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
    MMS_COMP_SMILParser parser;
    parsePresentation(parser);
}

namespace {

Problem problemOf(const MMS_WIRE_Mark& mark) {
    const QString name = mark.item.name();
    return {mark.item.offset(), mark.severity == MMS_WIRE_Item::PROBLEM ? SEVERITY_PROBLEM : SEVERITY_NOTE,
            name.isEmpty() ? mark.what : QStringLiteral("%1: %2").arg(name, mark.what)};
}

/// Where and why the phone gave up the header: the first field that it does not know, since skipping it may
/// skip its neighbours, and the field that it could not read.
QList<Problem> problemsOfHeader(const QArray<char>& octets, int result) {
    QList<Problem> problems;
    for (const PhoneStep& step : phoneSteps(octets)) {
        if (step.isRead && (step.isKnown() || !problems.isEmpty()))
            continue;
        const char* what = step.isKnown() ? "malformed or cut short" : "not known to the phone";
        problems += {step.begin, SEVERITY_PROBLEM,
                     QStringLiteral("header: %1 at octet %2 is %3")
                         .arg(step.asWritten)
                         .arg(step.begin)
                         .arg(QLatin1String(what))};
    }
    if (!problems.isEmpty())
        problems.last().what += QStringLiteral(" (result %1)").arg(result);
    return problems;
}

} // namespace

QList<Problem> Message::problems() const {
    QList<Problem> problems;
    if (octets_.isEmpty())
        problems += {-1, SEVERITY_PROBLEM, QStringLiteral("the file is empty")};
    for (const MMS_WIRE_Mark& mark : wire_.marks())
        problems += problemOf(mark);
    if (result != CODEC_READ)
        problems += problemsOfHeader(octets_, result);
    if (bodyStatus)
        problems += {bodyOffset(), SEVERITY_PROBLEM,
                     QStringLiteral("body: part %1 is %2")
                         .arg(body.getPartCount() + 1)
                         .arg(explained(bodyStatusWords, "status", bodyStatus))};
    if (smilStatus)
        problems += {-1, SEVERITY_PROBLEM, QStringLiteral("presentation: ") + problemOfPresentation()};
    return problems;
}

QString Message::problemOfPresentation() const {
    return smilStatus ? explained(smilStatusWords, "status", smilStatus) + smilPlace_ : QString();
}

QString Message::causeOfMalformation() const {
    constexpr qsizetype mostTold = 3;
    QStringList causes;
    for (const Problem& problem : problems())
        if (problem.severity == SEVERITY_PROBLEM)
            causes += reading_ == READING_SENT && problem.offset >= 0
                          ? QStringLiteral("octet %1: %2").arg(problem.offset).arg(problem.what)
                          : problem.what;
    const qsizetype more = causes.size() - mostTold;
    if (more > 0)
        causes = causes.first(mostTold) += QStringLiteral("%1 more").arg(more);
    return causes.join(QStringLiteral("; "));
}

int Message::verdict(const QString& path) const {
    const QString cause = causeOfMalformation();
    if (cause.isEmpty())
        return EXIT_DONE;
    complain(path, cause);
    return EXIT_MALFORMED;
}

qint64 Message::bodyLength() const {
    return reading_ == READING_SENT ? wire_.body().length() : static_cast<qint64>(header.bodyLength);
}

qint64 Message::bodyOffset() const {
    return octets_.size() - bodyLength();
}
