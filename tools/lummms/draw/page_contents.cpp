#include "tools/lummms/draw/page_contents.h"

#include "multipart/body_part.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/media_files.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"

#include <QBuffer>
#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr int MOST_PARTS = 500; // in the list; nested bodies can have thousands

using Part = MMS_COMP_SMILMultipartBodypart;

QString attribute(const char* name, const QString& value) {
    return QStringLiteral(" data-%1=\"%2\"").arg(QLatin1String(name), value.toHtmlEscaped());
}

QString base64(const QByteArray& octets) {
    return QString::fromLatin1(octets.toBase64());
}

/// The type given to the browser: a picture's by its octets, a sound's as sent. Any other part can only be
/// saved.
QString blobType(const ObjectView& view, const QByteArray& pictureFormat) {
    static const QRegularExpression playable("^(audio|video)/[a-z0-9.+-]+$");
    const QString type = view.part->getMimeFormat().toLower();
    if (view.kind == VIEW_TEXT)
        return QStringLiteral("text/plain;charset=utf-8");
    if (view.kind == VIEW_PICTURE && !pictureFormat.isEmpty())
        return QStringLiteral("image/") + QString::fromLatin1(pictureFormat);
    return playable.match(type).hasMatch() ? type : QStringLiteral("application/octet-stream");
}

/// Text that needs no cleaning is its own data: HTML keeps every character but carriage returns.
QString textContent(const Part& part, bool& isWhole) {
    const QString words = wordsOf(part);
    isWhole = words.toUtf8() == QByteArray(part.getBodyData());
    return words.toHtmlEscaped().replace(u'\r', QLatin1String("&#13;"));
}

QByteArray asPng(const QImage& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return buffer.data();
}

bool isText(const Part& part) {
    return MMS_COMP_SMILParser::getTypeEnum(part.getContentType().toLower()) == MMS_COMP_SMIL_MEDIA_TEXT;
}

} // namespace

int PageContents::numberOf(const ObjectView& view) {
    if (!view.part) {
        const auto known = missing_.constFind(view.name);
        if (known != missing_.constEnd())
            return *known;
        written_ += QStringLiteral("<data id=\"content%1\"").arg(count_) + attribute("name", view.name) +
                    attribute("gap", "missing") + QStringLiteral("></data>\n");
        return *missing_.insert(view.name, count_++);
    }
    const auto known = numbers_.constFind(view.part);
    if (known != numbers_.constEnd())
        return *known;
    const int number = count_++;
    numbers_.insert(view.part, number);
    const Part& part = *view.part;
    QString data =
        attribute("name", view.name) + attribute("media-type", printableStart(part.getMimeFormat()));
    Pictures::Picture picture;
    if (view.kind == VIEW_PICTURE) {
        picture = pictures_.of(part);
        data += attribute("width", QString::number(picture.header.size.width())) +
                attribute("height", QString::number(picture.header.size.height()));
        if (picture.state != PICTURE_SHOWN)
            data += attribute("gap", picture.state == PICTURE_BROKEN ? "cannot be shown" : "too large");
        else if (picture.header.format == "wbmp") { // browsers cannot show WBMP
            data += QStringLiteral(" data-shown=\"content%1-shown\"").arg(number);
            written_ += QStringLiteral("<data id=\"content%1-shown\" data-type=\"image/png\" value=\"%2\">"
                                       "</data>\n")
                            .arg(number)
                            .arg(base64(asPng(decodePicture(part, picture.header, picture.header.size))));
        }
    }
    data += attribute("type", blobType(view, picture.header.format));
    bool isWhole = false;
    const QString words = view.kind == VIEW_TEXT ? textContent(part, isWhole) : QString();
    if (!isWhole)
        data += QStringLiteral(" value=\"%1\"").arg(base64(QByteArray(part.getBodyData())));
    written_ += QStringLiteral("<data id=\"content%1\"").arg(number) + data + u'>' + words +
                QStringLiteral("</data>\n");
    return number;
}

QString PageContents::idOf(const ObjectView& view) {
    return QStringLiteral("content%1").arg(numberOf(view));
}

void PageContents::listPart(const Part& part, QString& items) {
    if (++listed_ > MOST_PARTS)
        return;
    const QString location = part.getContentLocation();
    const QString name =
        location.isEmpty() ? QStringLiteral("part %1").arg(listed_) : printableStart(location);
    const QString id = idOf({isText(part) ? VIEW_TEXT : VIEW_OTHER, {}, name, {}, &part});
    const QString size = QLocale::c().formattedDataSize(part.getBodyDataLen(), 1, QLocale::DataSizeSIFormat);
    const QString fileName = cleanName(name, u"/\\:");
    items += QStringLiteral("<li><span class=\"name\" dir=\"auto\">%1</span>"
                            "<span class=\"what\">%2 · %3</span>"
                            "<a class=\"save\" data-content=\"%4\" download=\"%5\" aria-label=\"Save %1\">"
                            "Save</a></li>\n")
                 .arg(name.toHtmlEscaped(), printableStart(part.getMimeFormat()).toHtmlEscaped(), size, id,
                      fileName.toHtmlEscaped());
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        listPart(*part.getSubBody(static_cast<unsigned int>(i)), items);
}

QString PageContents::listOf(Message& message) {
    QString items;
    for (int i = 0; i < message.body.getPartCount(); ++i)
        if (const Part* part = message.body.getBodypartByIndex(i, false); !message.isMissing(part))
            listPart(*part, items);
    if (listed_ > MOST_PARTS)
        items += QStringLiteral("<li>%1 more</li>\n").arg(listed_ - MOST_PARTS);
    return items;
}
