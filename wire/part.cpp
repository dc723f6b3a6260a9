#include "wire/part.h"

#include "wire/part_data.h"
#include "wire/tree.h"

namespace {

constexpr QLatin1StringView locationHeader("Content-Location");
constexpr QLatin1StringView idHeader("Content-ID");
constexpr QLatin1StringView dispositionHeader("Content-Disposition");
constexpr QLatin1StringView encodingHeader("Content-Transfer-Encoding");
constexpr QLatin1StringView promptHeader("X-Mms-UserPrompt");
constexpr QLatin1StringView nameParameter("Name"), filenameParameter("Filename"), charsetParameter("Charset");
constexpr quint64 promptYes = 0x80;

QStringView withoutLeadingSpace(QStringView text) {
    while (!text.isEmpty() && text.front().isSpace())
        text = text.sliced(1);
    return text;
}

/// The text up to the first `end`, or all of it.
QStringView upTo(QStringView text, char16_t end) {
    const qsizetype at = text.indexOf(end);
    return at < 0 ? text : text.first(at);
}

/// A parameter in the text of a MIME header: attachment; filename="a.jpg". Empty when absent.
QString mimeParameter(const QString& header, QLatin1StringView name) {
    for (qsizetype at = header.indexOf(u';'); at >= 0; at = header.indexOf(u';', at + 1)) {
        QStringView text = withoutLeadingSpace(QStringView(header).sliced(at + 1));
        if (!text.startsWith(name, Qt::CaseInsensitive))
            continue;
        text = withoutLeadingSpace(text.sliced(name.size()));
        if (!text.startsWith(u'='))
            continue;
        text = withoutLeadingSpace(text.sliced(1));
        return (text.startsWith(u'"') ? upTo(text.sliced(1), u'"') : upTo(text, u';').trimmed()).toString();
    }
    return QString();
}

/// The value of a header, whether sent by code or by name.
MMS_WIRE_Item valueOf(const MMS_WIRE_Item& header) {
    const MMS_WIRE_Item value = insideOf(header, WIRE_VALUE);
    return value.isNull() ? header : value;
}

/// A parameter of Content-Disposition, encoded or in MIME text. Empty when absent.
QString dispositionParameter(const MMS_WIRE_Item& disposition, QLatin1StringView name) {
    const MMS_WIRE_Item value = valueOf(disposition);
    const MMS_WIRE_Item parameter = parameterOf(value, name);
    if (!parameter.isNull() || !value.isLeaf())
        return parameter.text();
    return mimeParameter(value.text(), name);
}

} // namespace

MMS_WIRE_Part::MMS_WIRE_Part(const MMS_WIRE_Item& item) : item_(item) {
    if (!item.isNull())
        data_ = WireTree::nodeOf(item).what == WIRE_PART ? insideOf(item, WIRE_DATA) : item;
}

QString MMS_WIRE_Part::mediaType() const {
    return mediaOf(contentTypeOf(item_)).name();
}

QString MMS_WIRE_Part::parameter(const char* name) const {
    return parameterOf(contentTypeOf(item_), QLatin1StringView(name)).text();
}

QString MMS_WIRE_Part::name() const {
    const MMS_WIRE_Item type = contentTypeOf(item_);
    const MMS_WIRE_Item disposition = partHeader(item_, dispositionHeader);
    QString name = partHeader(item_, locationHeader).text();
    if (name.isEmpty())
        name = parameterOf(type, nameParameter).text();
    if (name.isEmpty())
        name = parameterOf(type, filenameParameter).text();
    if (name.isEmpty())
        name = dispositionParameter(disposition, filenameParameter);
    if (name.isEmpty())
        name = dispositionParameter(disposition, nameParameter);
    return name;
}

QString MMS_WIRE_Part::contentId() const {
    return partHeader(item_, idHeader).text();
}

QString MMS_WIRE_Part::charset() const {
    const QString stated = parameterOf(contentTypeOf(item_), charsetParameter).text();
    const int charset = charsetByName(stated.toLatin1()); // senders spell names in different ways
    return charset == charsetUnknown ? stated : charsetName(charset, WireTree::treeOf(item_).charsets());
}

QString MMS_WIRE_Part::transferEncoding() const {
    return partHeader(item_, encodingHeader).text();
}

QString MMS_WIRE_Part::disposition() const {
    const MMS_WIRE_Item value = valueOf(partHeader(item_, dispositionHeader));
    const MMS_WIRE_Item word = insideOf(value, WIRE_DISPOSITION);
    return upTo((word.isNull() ? value : word).text(), u';').trimmed().toString();
}

bool MMS_WIRE_Part::wantsPrompt() const {
    return partHeader(item_, promptHeader).number() == promptYes;
}

bool MMS_WIRE_Part::isMultipart() const {
    return mediaOf(contentTypeOf(item_)).isMultipart();
}

QList<MMS_WIRE_Part> MMS_WIRE_Part::parts() const {
    QList<MMS_WIRE_Part> parts;
    for (const MMS_WIRE_Item inside : data_)
        if (WireTree::nodeOf(inside).what == WIRE_PART && !insideOf(inside, WIRE_DATA).isNull())
            parts.append(MMS_WIRE_Part(inside));
    return parts;
}

QByteArray MMS_WIRE_Part::payload() const {
    return data_.isNull() || isMultipart() ? QByteArray() : DataForm(item_).payload(data_.octets());
}

QByteArray MMS_WIRE_Part::content() const {
    return data_.isNull() || isMultipart() ? QByteArray() : DataForm(item_).content(data_.octets());
}
