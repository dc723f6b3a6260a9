#include "multipart/multipart_parser.h"

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"
#include "multipart/entry_codec.h"
#include "multipart/multipart.h"
#include "multipart/multipart_codec.h"
#include "multipart/part_names.h"
#include "platform/mime/email_util.h"
#include "platform/utility/msg_header_base.h"
#include "util/mms_comp_util.h"
#include "util/unique_name.h"

#include <QHash>
#include <QStringBuilder>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

/// The position of "name=" in a parameter text, -1 when absent. It also matches the end of a longer name.
qsizetype findParam(QStringView params, QStringView name) {
    qsizetype at = params.indexOf(name);
    while (at >= 0 && !params.sliced(at + name.size()).startsWith(u'='))
        at = params.indexOf(name, at + 1);
    return at;
}

/// The pairs with a value, as "name=value" joined by ";".
QString joined(std::initializer_list<std::pair<QLatin1String, QString>> items) {
    QString params;
    for (const auto& [name, value] : items) {
        if (value.isEmpty())
            continue;
        if (!params.isEmpty())
            params += ';';
        params += name + '=' + value;
    }
    return params;
}

/// The suffix of file names of each media type, looked up once per body: the MIME database is slow, and most
/// parts share a few types.
class Suffixes {
public:
    const QString& of(const MMS_COMP_SMILMultipartBodypart& part) {
        const std::pair type(part.getContentType(), part.getSubType());
        QString& suffix = found_[type];
        if (suffix.isNull()) // not looked up yet; a type without an extension has an empty text
            suffix = dotted(MMS_COMP_Util::getFirstSupportExtNameByMIMEType(type.first, type.second));
        return suffix;
    }

private:
    QHash<std::pair<QString, QString>, QString> found_;
};

/// Whether every part has a Content-Location or no display file name.
bool onlyFiles(const BodypartList& parts) {
    return std::all_of(parts.begin(), parts.end(), [](const MMS_COMP_SMILMultipartBodypart* part) {
        return !part->getContentLocation().isEmpty() || part->getDispFileName().isEmpty();
    });
}

/// The encoded container; the null array with a result other than CODEC_WRITTEN.
QArray<char> encoded(MMS_COMP_SMILMultipart* body, unsigned char* result) {
    const BodyOutput output(body);
    const qint64 size = output.size();
    *result = CODEC_REFUSED;
    if (size >= output.room() || size > std::numeric_limits<int>::max())
        return QArray<char>();
    QArray<char> octets(static_cast<qsizetype>(size));
    if (octets.isNull())
        return octets;
    LinearBuffer out(reinterpret_cast<unsigned char*>(octets.data()), static_cast<int>(size));
    *result = output.writeTo(&out);
    return *result == CODEC_WRITTEN ? octets : QArray<char>();
}

} // namespace

QString MMS_COMP_SMILMultipartParser::parseStart(const QString& params) {
    return parseParam(QStringLiteral("start"), params);
}

QString MMS_COMP_SMILMultipartParser::parseExtType(const QString& params) {
    return parseParam(QStringLiteral("type"), params); // matches the end of a longer name too
}

QString MMS_COMP_SMILMultipartParser::parseParam(const QString& name, const QString& params) {
    const qsizetype at = findParam(params, name);
    if (at < 0)
        return QStringLiteral("");
    const qsizetype begin = at + name.size() + 1;
    const qsizetype end = params.indexOf(';', begin);
    return params.mid(begin, end < 0 ? -1 : end - begin);
}

QString MMS_COMP_SMILMultipartParser::stripParam(const QString& name, const QString& params) {
    const qsizetype at = findParam(params, name);
    if (at < 0)
        return params;
    QStringView before = QStringView(params).first(at);
    if (before.endsWith(';'))
        before.chop(1);
    const qsizetype end = params.indexOf(';', at);
    QStringView after = end < 0 ? QStringView() : QStringView(params).sliced(end + 1);
    if (after.startsWith(';'))
        after = after.sliced(1);
    if (before.isEmpty())
        return after.toString();
    if (after.isEmpty())
        return before.toString();
    return before % u';' % after;
}

QString MMS_COMP_SMILMultipartParser::otherParamListStrExceptStartType(const QString& params) {
    return stripParam(QStringLiteral("type"), stripParam(QStringLiteral("start"), params));
}

int MMS_COMP_SMILMultipartParser::handleErr(unsigned char code) {
    if (code == CODEC_READ || code == CODEC_WRITTEN)
        return 0;
    if (code < CODEC_WRITTEN)
        return ERR_MALFORMED;
    return code <= CODEC_REFUSED ? ERR_ENCODING : ERR_UNKNOWN;
}

int MMS_COMP_SMILMultipartParser::parse(const QArray<char>& data, MMS_UTIL_MsgHeaderBase* header,
                                        MMS_COMP_SMILMultipart* body) {
    if (!header || !body)
        return ERR_ARGUMENT;
    if (!body->getBoundary().isEmpty())
        return 0;
    const MMS_CONTENT_TYPE_T type = header->getContentType();
    QCString related;
    EMAIL_Util::subTypeEnumToStr(EMAIL_Util::SUBTYPE_WAP_MULTIPART_RELATED, related);
    if (data.size() > std::numeric_limits<int>::max())
        return ERR_MALFORMED;
    // the decoder only reads the octets
    auto* octets = reinterpret_cast<unsigned char*>(const_cast<char*>(data.data()));
    const unsigned char result = MMS_UA_MultiPart_CODEC::decodeMultipart(
        type.subType == QLatin1String(related), octets, static_cast<unsigned int>(data.size()), body);
    if (result != CODEC_READ)
        return handleErr(result);
    checkLocation(body);
    body->setStart(parseStart(type.parameters));
    body->setExtType(parseExtType(type.parameters));
    body->setOtherContentTypeParam(otherParamListStrExceptStartType(type.parameters));
    return 0;
}

void MMS_COMP_SMILMultipartParser::checkLocation(MMS_COMP_SMILMultipart* body) {
    if (!body)
        return;
    std::optional<PartNames> names; // made for the first part without a location
    bool isNumbered = false;        // all names are made by number
    Suffixes suffixes;
    for (MMS_COMP_SMILMultipartBodypart* part : body->parts_) {
        if (part->getContentLocation().isEmpty()) {
            if (!names) {
                isNumbered = onlyFiles(body->parts_);
                names.emplace(body->parts_, isNumbered ? PartNames::attachmentPrefix : u"");
            }
            const QString shown = part->getDispFileName();
            const QString location = shown.isEmpty() ? names->uniqueAttachmentLocation(suffixes.of(*part))
                                                     : names->uniqueLocation(shown);
            part->setContentLocation(location);
            if (!isNumbered) // names by number are never made twice
                names->addLocation(location);
        }
        if (part->getDispFileName().isEmpty())
            part->setDispFileName(part->getContentLocation());
    }
}

QArray<char> MMS_COMP_SMILMultipartParser::assembleBody(MMS_COMP_SMILMultipart* body,
                                                        MMS_UTIL_MsgHeaderBase* header, int* status) {
    int ignored = 0;
    int& outcome = status ? *status : ignored;
    outcome = ERR_ARGUMENT;
    if (!body || !header)
        return QArray<char>();
    const bool hasPresentation = body->getSmilPart() != nullptr;
    body->mimeSubType_ = hasPresentation ? QStringLiteral("vnd.wap.multipart.related")
                                         : QStringLiteral("vnd.wap.multipart.mixed");
    if (hasPresentation)
        body->setExtType(QStringLiteral("application/smil"));
    QString params = joined({{QLatin1String("start"), body->getStart()},
                             {QLatin1String("boundary"), body->getBoundary()},
                             {QLatin1String("type"), body->getExtType()}});
    const QString others = body->getOtherContentTypeParam();
    if (!params.isEmpty() && !others.isEmpty() && !others.startsWith(';'))
        params += ';';
    params += others;

    unsigned char result = CODEC_REFUSED;
    const QArray<char> octets = encoded(body, &result);
    outcome = handleErr(result);
    if (outcome == 0)
        header->setContentType({body->getMimeType(), body->mimeSubType_, params});
    return octets;
}
