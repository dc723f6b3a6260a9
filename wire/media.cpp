#include "wire/media.h"

#include "platform/utility/common.h"
#include "wire/tree.h"

#include <QStringList>

#include <iterator>

namespace {

/// Media types with a number beyond the platform's table (WSP assigned numbers).
constexpr struct {
    const char* type;
    const char* subType;
} laterTypes[] = {
    {"application", "vnd.wv.csp+xml"},
    {"application", "vnd.wv.csp+wbxml"},
    {"application", "vnd.syncml.ds.notification"},
    {"audio", "*"},
    {"video", "*"},
    {"application", "vnd.oma.dd2+xml"},
    {"application", "mikey"},
};
constexpr quint64 firstLaterType = 0x4C;

bool isParameter(const MMS_WIRE_Item& item) {
    const quint16 what = WireTree::nodeOf(item).what;
    return (what >= WIRE_PARAMETER && what < WIRE_MESSAGE) || what == WIRE_NAMED;
}

} // namespace

bool MediaType::isMultipart() const {
    return type.compare(u"multipart", Qt::CaseInsensitive) == 0 ||
           subType.startsWith(u"vnd.wap.multipart.", Qt::CaseInsensitive);
}

bool MediaType::isText() const {
    return isPlainText() || subType.endsWith(u"xml", Qt::CaseInsensitive) ||
           subType.compare(u"smil", Qt::CaseInsensitive) == 0;
}

bool isKnownMedia(quint64 number) {
    return number < firstLaterType + std::size(laterTypes);
}

MediaType mediaByNumber(quint64 number) {
    MediaType media;
    if (number >= firstLaterType && isKnownMedia(number)) {
        const auto& row = laterTypes[number - firstLaterType];
        return {QLatin1StringView(row.type), QLatin1StringView(row.subType)};
    }
    constexpr unsigned char none = 0x7F;
    MMS_UTIL_Common::mimeTypeGetName(isKnownMedia(number) ? static_cast<unsigned char>(number) : none,
                                     media.type, media.subType);
    return media;
}

MediaType mediaByText(const QString& text) {
    const QStringView media = QStringView(text).left(text.indexOf(u';')).trimmed();
    const qsizetype slash = media.indexOf(u'/');
    if (slash < 0)
        return {media.toString(), QString()};
    return {media.first(slash).toString(), media.sliced(slash + 1).toString()};
}

MediaType mediaOf(const MMS_WIRE_Item& contentType) {
    const MMS_WIRE_Item inside = insideOf(contentType, WIRE_MEDIA);
    const MMS_WIRE_Item item = inside.isNull() ? contentType : inside;
    if (item.kind() == MMS_WIRE_Item::TEXT && item.isLeaf()) {
        const MediaType media = mediaByText(item.text());
        if (!media.type.isEmpty())
            return media;
    }
    return mediaByNumber(item.kind() == MMS_WIRE_Item::NUMBER ? item.number() : ~quint64(0));
}

MMS_WIRE_Item parameterOf(const MMS_WIRE_Item& value, QLatin1StringView name) {
    for (const MMS_WIRE_Item inside : value)
        if (isParameter(inside) && isNamed(inside, name) && !WireTree::nodeOf(inside).isMisfit)
            return inside;
    return MMS_WIRE_Item();
}

QString parameterText(const MMS_WIRE_Item& contentType) {
    const MMS_WIRE_Item type = parameterOf(contentType, typeParameter);
    const MMS_WIRE_Item start = parameterOf(contentType, startParameter);
    QStringList parameters;
    if (!type.isNull() || !start.isNull()) // always both, as in the record that MMS_UA_Decoder fills
        parameters += {typeParameter + u'=' + type.text(), startParameter + u'=' + start.text()};
    for (const MMS_WIRE_Item inside : contentType)
        if (isParameter(inside) && inside != type && inside != start)
            parameters += inside.name() + u'=' + inside.valueText();
    return parameters.join(u';');
}
