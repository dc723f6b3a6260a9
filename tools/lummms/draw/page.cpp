#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/draw/draw.h"
#include "tools/lummms/draw/page_template.h"
#include "tools/lummms/draw/slide_view.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int MAX_SLIDES_PLAYED = 500; // each repeats its text, and all may share a long one

/// What a page says in a Content-Security-Policy to allow exactly this style or script.
QString allowed(const char* text) {
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64();
    return QStringLiteral("'sha256-%1'").arg(QString::fromLatin1(hash));
}

/// The octets of a picture for an `img`; those of a format that browsers lack as PNG. Empty when it
/// cannot be decoded.
QString pictureUrl(const MMS_COMP_SMILMultipartBodypart& part) {
    QByteArray format;
    const QImage picture = pictureOf(part, &format);
    if (picture.isNull())
        return QString();
    QByteArray octets = part.getBodyData();
    if (format == "wbmp") {
        QBuffer buffer(&octets);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        format = "png";
    }
    return QStringLiteral("data:image/%1;base64,%2")
        .arg(QString::fromLatin1(format), QString::fromLatin1(octets.toBase64()));
}

QString soundUrl(const MMS_COMP_SMILMultipartBodypart& part) {
    static const QRegularExpression playable("^(audio|video)/[a-z0-9.+-]+$");
    const QString type = part.getMimeFormat().toLower();
    const QByteArray octets = part.getBodyData();
    return QStringLiteral("data:%1;base64,%2")
        .arg(playable.match(type).hasMatch() ? type : QStringLiteral("application/octet-stream"),
             QString::fromLatin1(octets.toBase64()));
}

/// Writes the page. A part's octets stand in it once, however many slides show it: elements name them
/// by number, and the page's script fetches them.
class PageWriter {
public:
    QString slides(const Message& message, int& leftOut);
    QString contents() const { return contents_; }

private:
    int contentNumber(const MMS_COMP_SMILMultipartBodypart& part, bool isPicture);
    QString object(const ObjectView& view);
    QString slide(const SlideView& view, int number);

    QHash<const MMS_COMP_SMILMultipartBodypart*, int> numbers_[2]; // for sounds, for pictures; -1 unusable
    int count_ = 0;
    QString contents_;
};

int PageWriter::contentNumber(const MMS_COMP_SMILMultipartBodypart& part, bool isPicture) {
    auto& numbers = numbers_[isPicture];
    if (const auto known = numbers.constFind(&part); known != numbers.constEnd())
        return *known;
    const QString url = isPicture ? pictureUrl(part) : soundUrl(part);
    const int number = url.isEmpty() ? -1 : count_++;
    numbers.insert(&part, number);
    if (number >= 0)
        contents_ += QStringLiteral("<data id=\"content%1\" value=\"%2\"></data>\n").arg(number).arg(url);
    return number;
}

QString gap(const QString& name, const char* words) {
    return QStringLiteral("<div class=\"gap\"><b>%1</b><br>%2</div>")
        .arg(name.toHtmlEscaped(), QLatin1String(words));
}

QString PageWriter::object(const ObjectView& view) {
    const QString name = view.name.toHtmlEscaped();
    if (view.kind == VIEW_OTHER)
        return QString();
    if (!view.part)
        return view.kind == VIEW_SOUND ? QString() : gap(view.name, "missing");
    if (view.kind == VIEW_TEXT)
        return QStringLiteral("<p class=\"words\">%1</p>").arg(view.words.toHtmlEscaped());
    const int number = contentNumber(*view.part, view.kind == VIEW_PICTURE);
    if (view.kind == VIEW_SOUND)
        return QStringLiteral("<audio data-content=\"%1\"></audio>").arg(number);
    if (view.kind == VIEW_VIDEO)
        return gap(view.name, "video") +
               QStringLiteral("<video controls data-content=\"%1\"></video>").arg(number);
    if (number < 0)
        return gap(view.name, "no picture");
    const QLatin1String fit = fitWord(view.fit);
    return QStringLiteral("<img class=\"%1\" data-content=\"%2\" alt=\"%3\">")
        .arg(fit.isEmpty() ? fitWord(MMS_COMP_SMIL_FIT_HIDDEN) : fit)
        .arg(number)
        .arg(name);
}

QString PageWriter::slide(const SlideView& view, int number) {
    QString regions[2];
    QString under;
    for (const ObjectView& each : view.objects) {
        if (each.kind == VIEW_SOUND || each.kind == VIEW_OTHER)
            under += QStringLiteral("<li class=\"%1\">%2%3</li>")
                         .arg(QLatin1String(each.kind == VIEW_SOUND ? "sound" : "other"), object(each),
                              each.name.toHtmlEscaped());
        else
            regions[each.region] += object(each);
    }
    QString text = QStringLiteral("<section class=\"slide\" data-duration=\"%1\" data-page=\"%2\" "
                                  "data-text=\"%3\" aria-label=\"Slide %4\">\n<div class=\"screen\">\n")
                       .arg(view.duration)
                       .arg(view.page.name(), view.text.name())
                       .arg(number);
    for (const QString& region : regions)
        text += QStringLiteral("<div class=\"region\">") + region + QStringLiteral("</div>\n");
    return text + QStringLiteral("</div>\n<p class=\"legend\">%1: %2</p><ul>%3</ul>\n</section>\n")
                      .arg(number)
                      .arg(durationLabel(view.duration), under);
}

QString PageWriter::slides(const Message& message, int& leftOut) {
    const int slides = message.presentation->getTotalSlidesNum();
    const int written = std::min(slides, MAX_SLIDES_PLAYED);
    leftOut = slides - written;
    QString text;
    for (int i = 0; i < written; ++i)
        text += slide(slideView(message, i), i + 1);
    return text;
}

} // namespace

QByteArray slidesAsPage(const Message& message, int& leftOut) {
    PageWriter writer;
    const QString slides = writer.slides(message, leftOut);
    const QString subject = printable(message.header.getSubject());
    const QString title = (subject.isEmpty() ? QStringLiteral("Message") : subject).toHtmlEscaped();
    const QString page =
        QLatin1String("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                      "img-src data:; media-src data:; style-src ") +
        allowed(PAGE_STYLE) + QLatin1String("; script-src ") + allowed(PAGE_SCRIPT) +
        QLatin1String("; base-uri 'none'; form-action 'none'\">\n"
                      "<meta name=\"viewport\" content=\"width=device-width\">\n<title>") +
        title + QLatin1String("</title>\n<style>") + QLatin1String(PAGE_STYLE) +
        QLatin1String("</style>\n</head>\n<body>\n<h1>") + title + QLatin1String("</h1>\n") +
        QLatin1String(PAGE_CONTROLS) + QLatin1String("<main>\n") + slides +
        QLatin1String("</main>\n<div hidden>\n") + writer.contents() + QLatin1String("</div>\n<script>") +
        QLatin1String(PAGE_SCRIPT) + QLatin1String("</script>\n</body>\n</html>\n");
    return page.toUtf8();
}
