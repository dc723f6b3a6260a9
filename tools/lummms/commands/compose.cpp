// lummms compose: a message to send, made as a messaging application makes it: slides are edited in the
// model, the presentation is written from it, and body and header are encoded.

#include "codec/codec_result.h"
#include "codec/message_kinds.h"
#include "codec/ua_encoder.h"
#include "multipart/body_part.h"
#include "multipart/multipart_parser.h"
#include "platform/utility/setting.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/command.h"
#include "tools/lummms/media_files.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/mms_comp_util.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>

#include <limits>
#include <memory>

namespace {

constexpr int MAX_PARTS = 255;           // the count in front of a body is one octet
constexpr unsigned char VERSION = 0x10;  // MMS 1.0
const QString SMIL_ID = "<slides>";      // what the start parameter refers to
const QString SMIL_NAME = "slides.smil"; // and its Content-Location
const QString TEXT_PREFIX = "text:";     // in front of a slide's text that is no file

/// Something that is to stand in a slide.
struct Item {
    QString name; ///< what the user called it
    QString src;  ///< a file name to make a part's name from
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type;
    QString subType;
    QArray<char> octets;
};

/// Composes one message. The members that can fail complain to the user and give false.
class Composer {
public:
    bool compose(const CommandLine& line);

private:
    bool setHeader(const QCommandLineParser& options);
    bool setRecipients(const QCommandLineParser& options);
    bool load(const QString& path, QArray<char>& octets);
    bool addSlide(int number, const QStringList& values);
    bool readItem(int number, const QString& value, Item& item);
    bool addItem(int number, MMS_COMP_SMILTimingContainer& slide, const Item& item, QStringList& kept);
    bool addAttachment(const QString& path);
    void addPresentationPart();
    bool writeMessage(const CommandLine& line);

    MMS_UA_UAMsg header_;
    MMS_COMP_SMILMultipart body_;
    MMS_COMP_SMILData presentation_{&body_};
    MMS_COMP_SMILMultipartBodypart* smilPart_ = nullptr;
    qint64 loaded_ = 0; // octets of all files
};

bool refuse(const QString& subject, const QString& cause) {
    complain(subject, cause);
    return false;
}

qint64 largestMessage() {
    return qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024;
}

bool refuseSize(const QString& subject, qint64 octets) {
    return refuse(subject, QStringLiteral("%1 are more than the %2 that a message may have")
                               .arg(counted(octets, "octet"), counted(largestMessage(), "octet")));
}

MMS_UTIL_Entry addressOf(const QString& text) {
    return MMS_UTIL_Entry(QString(), text.contains(u'@') ? MMS_UTIL_Entry::EMAIL : MMS_UTIL_Entry::PLMN,
                          text);
}

/// Characters that the SMIL text cannot hold, since its values are written as they are, and blanks,
/// which it would lose.
QString nameForSmil(const QString& name) {
    QString clean = cleanName(MMS_COMP_Util::stripePath(name), u"\"'<>\uFFFE\uFFFF");
    for (QChar& c : clean)
        if (c.isSpace())
            c = u'_';
    return clean;
}

bool Composer::setRecipients(const QCommandLineParser& options) {
    using Add = void (MMS_UA_UAMsg::*)(MMS_UTIL_Entry&);
    constexpr struct {
        const char* option;
        Add add;
    } lists[] = {{"to", &MMS_UA_UAMsg::addToRecipient},
                 {"cc", &MMS_UA_UAMsg::addCcRecipient},
                 {"bcc", &MMS_UA_UAMsg::addBccRecipient}};
    for (const auto& list : lists) {
        const QString option = QString::fromLatin1(list.option);
        const QStringList addresses = options.values(option);
        for (const QString& address : addresses) {
            MMS_UTIL_Entry entry = addressOf(address);
            if (entry.isEmpty())
                return refuse(QStringLiteral("--") + option, QStringLiteral("the address is empty"));
            (header_.*list.add)(entry);
        }
    }
    return !header_.getTo().isEmpty() || refuse(QStringLiteral("--to"), QStringLiteral("is missing"));
}

bool Composer::setHeader(const QCommandLineParser& options) {
    header_.messageType = MESSAGE_SEND_REQ;
    header_.markPresent(FIELD_MESSAGE_TYPE);
    header_.setTransactionId(QUuid::createUuid().toString(QUuid::WithoutBraces));
    header_.version = VERSION;
    header_.markPresent(FIELD_MMS_VERSION);
    header_.setSendTime(QDateTime::currentDateTime());
    header_.setFrom(addressOf(options.value("from"))); // without an address the network fills it in
    header_.setSubject(options.value("subject"));
    if (options.isSet("delivery-report"))
        header_.setDeliveryReportNecessity(true);
    if (options.isSet("read-reply"))
        header_.setReadReplyNecessity(true);
    if (options.isSet("priority")) {
        const Word* priority = findWord(priorityWords, options.value("priority"));
        if (!priority)
            return refuse("--priority",
                          QStringLiteral("'%1' is not low, normal or high").arg(options.value("priority")));
        header_.setPriority(static_cast<unsigned char>(priority->number));
    }
    if (options.isSet("expiry")) {
        bool isNumber = false;
        const int seconds = options.value("expiry").toInt(&isNumber);
        if (!isNumber || seconds < 0)
            return refuse("--expiry", QStringLiteral("'%1' is no number of seconds from 0 to %2")
                                          .arg(options.value("expiry"))
                                          .arg(std::numeric_limits<int>::max()));
        header_.setExpireTime(static_cast<unsigned int>(seconds));
    }
    return setRecipients(options);
}

bool Composer::load(const QString& path, QArray<char>& octets) {
    const qint64 size = QFileInfo(path).size(); // so that no file is read that is too large anyway
    if (loaded_ + size > largestMessage())
        return refuseSize(path, loaded_ + size);
    QString cause;
    if (!loadFile(path, octets, cause))
        return refuse(path, cause);
    loaded_ += octets.size();
    return true;
}

bool Composer::readItem(int number, const QString& value, Item& item) {
    item.name = value;
    if (value.startsWith(TEXT_PREFIX)) {
        item.src = QStringLiteral("text.txt");
        item.type = MMS_COMP_SMIL_MEDIA_TEXT;
        item.subType = QStringLiteral("plain");
        item.octets = value.mid(TEXT_PREFIX.size()).toUtf8();
        return true;
    }
    if (!load(value, item.octets))
        return false;
    const MediaType type = mediaTypeOf(value, item.octets);
    item.src = nameForSmil(value);
    item.type = MMS_COMP_SMILParser::getTypeEnum(type.type);
    item.subType = type.subType;
    if (item.type == MMS_COMP_SMIL_MEDIA_OTHER)
        return refuse(value, QStringLiteral("slide %1 cannot show %2/%3; --attach sends it along")
                                 .arg(number)
                                 .arg(type.type, type.subType));
    const QByteArrayView octets(item.octets.data(), item.octets.size());
    if (item.type == MMS_COMP_SMIL_MEDIA_TEXT && !octets.isValidUtf8())
        return refuse(value, QStringLiteral("the text is not in UTF-8"));
    return true;
}

/// Puts the item into the slide; `kept` has the names of what is there, by place: sound, picture or
/// video, text.
bool Composer::addItem(int number, MMS_COMP_SMILTimingContainer& slide, const Item& item, QStringList& kept) {
    const bool isImage = item.type == MMS_COMP_SMIL_MEDIA_IMG || item.type == MMS_COMP_SMIL_MEDIA_VIDEO;
    const bool isText = item.type == MMS_COMP_SMIL_MEDIA_TEXT;
    static const char* const places[] = {"one sound", "one picture or video", "one text"};
    const int place = isImage ? 1 : isText ? 2 : 0;
    if (!kept.at(place).isNull())
        return refuse(QStringLiteral("--slide"),
                      QStringLiteral("slide %1 has room for %2, not for '%3' and '%4'")
                          .arg(number)
                          .arg(QLatin1String(places[place]), kept.at(place), item.name));
    kept[place] = item.name;
    const QString region = isImage  ? MMS_COMP_SMILData::getImgRegionId()
                           : isText ? MMS_COMP_SMILData::getTextRegionId()
                                    : QString();
    return slide.updateData(region, presentation_.createUniqueSrc(item.src), item.type, item.subType,
                            item.octets, false, &body_) ||
           refuse(item.name, QStringLiteral("there is no memory for it"));
}

bool Composer::addSlide(int number, const QStringList& values) {
    if (values.size() < 2)
        return refuse(QStringLiteral("--slide"),
                      QStringLiteral("slide %1 needs a duration and at least one item").arg(number));
    static const QRegularExpression duration("^([0-9]+(\\.[0-9]+)?)(ms|s|min|h)?$|^indefinite$");
    const QRegularExpressionMatch match = duration.match(values.first());
    if (!match.hasMatch())
        return refuse(
            QStringLiteral("--slide"),
            QStringLiteral("slide %1: '%2' is no duration such as 5, 2.5s, 800ms, 1min or indefinite")
                .arg(number)
                .arg(values.first()));
    const bool isBare = match.hasCaptured(1) && !match.hasCaptured(3);
    MMS_COMP_SMILTimingContainer* slide = presentation_.appendSlide();
    slide->setDur(MMS_COMP_SMILParser::parseDur(isBare ? values.first() + u's' : values.first()));
    slide->setSetDurManually(true);
    QStringList kept(3);
    for (const QString& value : values.mid(1)) {
        Item item;
        if (!readItem(number, value, item) || !addItem(number, *slide, item, kept))
            return false;
    }
    return true;
}

bool Composer::addAttachment(const QString& path) {
    QArray<char> octets;
    if (!load(path, octets))
        return false;
    const MediaType type = mediaTypeOf(path, octets);
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    const QString location = presentation_.createUniqueSrc(nameForSmil(path));
    part->setContentType(type.type);
    part->setContentSubType(type.subType);
    part->setContentLocation(location);
    part->setDispFileName(location);
    part->setBodyData(octets);
    body_.appendBodypart(part.release());
    return true;
}

/// The presentation stands in front, and before other parts get their names.
void Composer::addPresentationPart() {
    smilPart_ = new MMS_COMP_SMILMultipartBodypart;
    smilPart_->setContentType(QStringLiteral("application"));
    smilPart_->setContentSubType(QStringLiteral("smil"));
    smilPart_->setContentID(SMIL_ID);
    smilPart_->setContentLocation(SMIL_NAME);
    body_.insertBodypart(smilPart_, 0);
    body_.setStart(SMIL_ID);
    MMS_COMP_SMILParser::updateToVarnelioRootLayout(&presentation_);
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation_);
}

bool Composer::writeMessage(const CommandLine& line) {
    const QString path = line.options.value("output");
    if (smilPart_) {
        presentation_.removeEmptyTextBeforeSend();
        smilPart_->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&presentation_).toUtf8());
    }
    if (body_.getPartCount() > MAX_PARTS)
        return refuse(path, QStringLiteral("%1 are more than the %2 that a message can have")
                                .arg(counted(body_.getPartCount(), "part"))
                                .arg(MAX_PARTS));
    int status = 0;
    const QArray<char> body = MMS_COMP_SMILMultipartParser::assembleBody(&body_, &header_, &status);
    unsigned char* octets = nullptr;
    int length = 0;
    const unsigned char result = MMS_UA_Encoder().encodeHeader(&header_, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    if (status || result != CODEC_WRITTEN)
        return refuse(path, status ? explained(bodyStatusWords, "status", status)
                                   : explained(codecResultWords, "result", result));
    if (length + body.size() > largestMessage())
        return refuseSize(path, length + body.size());
    return writeOutput(line, QByteArray(reinterpret_cast<char*>(octets), length) + body);
}

bool Composer::compose(const CommandLine& line) {
    if (line.options.value("output").isEmpty())
        return refuse("-o", QStringLiteral("the file to write is missing"));
    if (!setHeader(line.options))
        return false;
    body_.setExtType(QString()); // a body without a presentation has no type of a root part
    if (!line.groups.isEmpty())
        addPresentationPart();
    for (int i = 0; i < line.groups.size(); ++i)
        if (!addSlide(i + 1, line.groups.at(i)))
            return false;
    const QStringList attachments = line.options.values("attach");
    for (const QString& path : attachments)
        if (!addAttachment(path))
            return false;
    return writeMessage(line);
}

int compose(const CommandLine& line) {
    return Composer().compose(line) ? EXIT_DONE : EXIT_UNUSABLE;
}

} // namespace

Command composeCommand() {
    return {
        "compose",
        "Makes a message to send (m-send-req) out of texts and files.",
        {"-o FILE --to ADDRESS [OPTION ...] [--slide DURATION ITEM ...] ..."},
        "An ADDRESS with \"@\" is an e-mail address, any other a phone number.\n"
        "A slide is shown for DURATION (5 or 5s, 800ms, 1min, indefinite) and holds at most one\n"
        "text, one picture or video and one sound. An ITEM is a file, whose kind is found out by\n"
        "its name and content, or a text given as text:WORDS.\n"
        "A message larger than what networks let through (300 KB, or as many as the environment\n"
        "variable LUM_MMS_MAX_SIZE_KB says) is refused, and nothing is written.\n",
        {
            outputOption("The file to write."),
            forceOption(),
            {"from", "The sender; without one the network fills it in.", "ADDRESS"},
            {"to", "A recipient; may be given again, like --cc and --bcc.", "ADDRESS"},
            {"cc", "A recipient of a copy.", "ADDRESS"},
            {"bcc", "A recipient of a copy that the others do not see.", "ADDRESS"},
            {"subject", "The subject.", "TEXT"},
            {"priority", "low, normal or high.", "PRIORITY"},
            {"delivery-report", "Asks for a report when the message is delivered."},
            {"read-reply", "Asks for a reply when the message is read."},
            {"expiry", "How long the message may wait to be fetched.", "SECONDS"},
            {"slide", "One slide; may be given again.", "DURATION ITEM ..."},
            {"attach", "A file beside the slides; may be given again.", "FILE"},
        },
        {},
        "slide",
        compose,
    };
}
