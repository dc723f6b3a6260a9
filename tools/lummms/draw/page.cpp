#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/draw/draw.h"
#include "tools/lummms/draw/page_contents.h"
#include "tools/lummms/draw/page_header.h"
#include "tools/lummms/draw/slide_view.h"
#include "tools/lummms/message.h"
#include "tools/lummms/words.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int MOST_SLIDES = 500; // each takes space in the page
constexpr int MOST_LINES_ASIDE = 2;
constexpr double ASIDE_LINE = 5.25; // rem; the space for a name and audio controls

QString resource(const char* name) {
    QFile file(QStringLiteral(":/lummms/page/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The source expression that makes a Content-Security-Policy allow exactly this style or script.
QString allowed(const QString& text) {
    const QByteArray hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toBase64();
    return QStringLiteral("'sha256-%1'").arg(QString::fromLatin1(hash));
}

/// Replaces each {{name}} by its value. Values are not expanded again.
QString filled(const QString& pattern, const QHash<QString, QString>& values) {
    static const QRegularExpression mark("\\{\\{([a-z-]+)\\}\\}");
    QString text;
    qsizetype done = 0;
    for (const QRegularExpressionMatch& match : mark.globalMatch(pattern)) {
        text += QStringView(pattern).sliced(done, match.capturedStart() - done);
        text += values.value(match.captured(1));
        done = match.capturedEnd();
    }
    return text.append(QStringView(pattern).sliced(done));
}

/// Writes the slides and the message's own style: sizes of screen and regions.
class SlidesWriter {
public:
    SlidesWriter(const Message& message, PageContents& contents) : views_(message), contents_(contents) {}

    QString slides(SlideRange range);
    int count() const { return views_.count(); }
    QString style() const;

private:
    QString slide(const SlideView& view, int number, const QString& label);
    QString object(const ObjectView& view);
    QString boxClass(const QRectF& box);

    const SlideViews views_;
    PageContents& contents_;
    QHash<QString, int> boxes_; // the styles of regions, and their class numbers
    qsizetype linesAside_ = 0;
};

QString SlidesWriter::boxClass(const QRectF& box) {
    const QSizeF screen = views_.screen().size();
    const QString style = QStringLiteral("left:%1%;top:%2%;width:%3%;height:%4%")
                              .arg(box.left() / screen.width() * 100)
                              .arg(box.top() / screen.height() * 100)
                              .arg(box.width() / screen.width() * 100)
                              .arg(box.height() / screen.height() * 100);
    const auto known = boxes_.constFind(style);
    const int number = known != boxes_.constEnd() ? *known : *boxes_.insert(style, int(boxes_.size()));
    return QStringLiteral("box%1").arg(number);
}

QString SlidesWriter::style() const {
    const Screen& screen = views_.screen();
    QString style = QStringLiteral(":root{--screen-width:%1;--screen-height:%2;--letters:%3;--aside:%4rem}\n")
                        .arg(screen.size().width())
                        .arg(screen.size().height())
                        .arg(screen.fontPixels())
                        .arg(double(std::min<qsizetype>(linesAside_, MOST_LINES_ASIDE)) * ASIDE_LINE);
    for (auto box = boxes_.constBegin(); box != boxes_.constEnd(); ++box)
        style += QStringLiteral(".box%1{%2}\n").arg(*box).arg(box.key());
    return style;
}

QString SlidesWriter::object(const ObjectView& view) {
    static const QHash<VIEW_KIND, QString> kinds = {{VIEW_TEXT, QStringLiteral("text")},
                                                    {VIEW_PICTURE, QStringLiteral("picture")},
                                                    {VIEW_VIDEO, QStringLiteral("video")},
                                                    {VIEW_SOUND, QStringLiteral("sound")},
                                                    {VIEW_OTHER, QStringLiteral("other")}};
    QString data = QStringLiteral("data-content=\"%1\" data-kind=\"%2\"")
                       .arg(contents_.idOf(view), kinds.value(view.kind));
    if (!view.alt.isEmpty())
        data += QStringLiteral(" data-alt=\"%1\"").arg(view.alt.toHtmlEscaped());
    if (standsAside(view))
        return QStringLiteral("<li %1></li>").arg(data);
    return QStringLiteral("<div class=\"object %1 %2\" %3></div>\n")
        .arg(fitWord(view.place.fit), boxClass(view.place.box), data);
}

QString SlidesWriter::slide(const SlideView& view, int number, const QString& label) {
    QString screen, aside;
    qsizetype linesAside = 0;
    for (const ObjectView& each : view.objects) {
        (standsAside(each) ? aside : screen) += object(each);
        linesAside += standsAside(each);
    }
    if (isOnlyHeard(view))
        screen = QStringLiteral("<div class=\"heard\" aria-hidden=\"true\">\u266A</div>\n");
    linesAside_ = std::max(linesAside_, linesAside);
    if (!aside.isEmpty())
        aside = QStringLiteral("<ul class=\"aside\">%1</ul>\n").arg(aside);
    return QStringLiteral("<section class=\"slide\" aria-label=\"Slide %1 of %2\" "
                          "data-duration=\"%3\" data-label=\"%4\" data-page=\"%5\" data-text=\"%6\" hidden>\n"
                          "<div class=\"screen\">\n")
               .arg(number)
               .arg(views_.count())
               .arg(view.duration)
               .arg(label, view.page.name(), view.text.name()) +
           screen + QStringLiteral("</div>\n") + aside + QStringLiteral("</section>\n");
}

QString SlidesWriter::slides(SlideRange range) {
    QString text;
    for (int i = range.from; i <= range.to; ++i) {
        const SlideView view = views_.at(i - 1);
        text += slide(view, i, durationLabel(view.duration));
    }
    return text;
}

} // namespace

Drawing slidesAsPage(Message& message, SlideRange range) {
    Q_INIT_RESOURCE(page);
    Drawing drawing;
    PageContents contents;
    SlidesWriter writer(message, contents);
    const QString slides = writer.slides(slidesWithin(range, writer.count(), MOST_SLIDES, drawing.notes));
    const QString parts = contents.listOf(message);
    const QString style = resource("page.css") + writer.style();
    const QString script = resource("page.js");
    const QString policy = QStringLiteral("default-src 'none'; img-src blob:; media-src blob:; style-src %1; "
                                          "script-src %2; base-uri 'none'; form-action 'none'")
                               .arg(allowed(style), allowed(script));
    drawing.octets = filled(resource("page.html"), {{"policy", policy},
                                                    {"title", pageTitle(message)},
                                                    {"style", style},
                                                    {"fields", pageFields(message)},
                                                    {"count", counted(writer.count(), "slide")},
                                                    {"slides", slides},
                                                    {"parts-title", counted(contents.listed(), "part")},
                                                    {"parts", parts},
                                                    {"contents", contents.written()},
                                                    {"script", script}})
                         .toUtf8();
    drawing.notes += notesOnPictures(contents.picturesLeftOut());
    return drawing;
}
