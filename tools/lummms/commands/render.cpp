// lummms render: draws a message as the phone shows it, as picture or page.

#include "tools/lummms/draw/draw.h"

#include "tools/lummms/command.h"
#include "tools/lummms/draw/slide_view.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>

#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <limits>

namespace {

constexpr int USUAL_SCALE = 2;
constexpr int LARGEST_SCALE = 4; // with many slides the picture then has 24 megapixels

/// Qt needs a UTF-8 locale and, without a display, the offscreen platform.
void prepareSurroundings() {
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

int save(const CommandLine& line, const QByteArray& octets) {
    if (octets.isEmpty())
        complain(line.options.value("output"), QStringLiteral("the picture cannot be made"));
    return !octets.isEmpty() && writeOutput(line, octets) ? EXIT_DONE : EXIT_UNUSABLE;
}

/// Reads "FROM-TO" or one number; false for any other text.
bool readRange(const QString& text, SlideRange& range) {
    static const QRegularExpression form("^([1-9][0-9]{0,8})(?:-([1-9][0-9]{0,8}))?\\z");
    const QRegularExpressionMatch match = form.match(text);
    range.from = match.captured(1).toInt();
    range.to = match.captured(2).isNull() ? range.from : match.captured(2).toInt();
    return match.hasMatch() && range.from <= range.to;
}

/// What to draw.
struct Wanted {
    bool isPage = false;
    int scale = USUAL_SCALE;
    SlideRange range = {1, std::numeric_limits<int>::max()};
};

/// Reads the options; reports an invalid one and returns false.
bool readOptions(const QCommandLineParser& options, Wanted& wanted) {
    const QString output = options.value("output");
    const QString kind =
        output == STANDARD_STREAM ? QStringLiteral("png") : QFileInfo(output).suffix().toLower();
    wanted.isPage = kind == u"html";
    if (!wanted.isPage && kind != u"png") {
        complain("-o", output.isEmpty()
                           ? QStringLiteral("no output file given")
                           : QStringLiteral("'%1' ends neither in .png nor in .html").arg(output));
        return false;
    }
    bool isNumber = true;
    if (options.isSet("scale"))
        wanted.scale = options.value("scale").toInt(&isNumber);
    if (!isNumber || wanted.scale < 1 || wanted.scale > LARGEST_SCALE) {
        complain("--scale", QStringLiteral("'%1' is not a number from 1 to %2")
                                .arg(options.value("scale"))
                                .arg(LARGEST_SCALE));
        return false;
    }
    if (options.isSet("slides") && !readRange(options.value("slides"), wanted.range)) {
        complain("--slides", QStringLiteral("'%1' is neither a number from 1 on nor a range such as 31-60")
                                 .arg(options.value("slides")));
        return false;
    }
    return true;
}

int render(const CommandLine& line) {
    const QString path = line.files.first();
    Wanted wanted;
    if (!readOptions(line.options, wanted))
        return EXIT_UNUSABLE;
    Message message(readingAskedFor(line));
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    message.readPresentationWithGaps();
    if (!message.smilPart)
        makeSlidesOfParts(message);
    const int verdict = message.verdict(path);
    const int slides = message.presentation->getTotalSlidesNum();
    if (!slides) {
        if (verdict != EXIT_DONE)
            return verdict;
        complain(path, QStringLiteral("has nothing to draw"));
        return EXIT_UNUSABLE;
    }
    if (wanted.range.from > slides) {
        complain("--slides", QStringLiteral("there is no slide %1, only %2")
                                 .arg(wanted.range.from)
                                 .arg(counted(slides, "slide")));
        return EXIT_UNUSABLE;
    }
    prepareSurroundings();
    char name[] = "lummms";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    const Drawing drawing = wanted.isPage ? slidesAsPage(message, wanted.range)
                                          : slidesAsPng(message, wanted.range, wanted.scale);
    const int saved = save(line, drawing.octets);
    if (saved != EXIT_DONE)
        return saved;
    for (const QString& note : drawing.notes)
        complain(line.options.value("output"), note);
    return verdict;
}

} // namespace

Command renderCommand() {
    return {
        "render",
        "Draws the slides of a message, in a picture or on a page.",
        {"FILE -o SLIDES.png [--force] [--slides FROM-TO] [--scale NUMBER] [--phone]",
         "FILE -o SLIDES.html [--force] [--slides FROM-TO] [--phone]"},
        "A .png shows at most 30 slides side by side in the sender's layout, each with its duration, its\n"
        "sounds and its other parts below. A .html is a single page that loads nothing else: header, slides\n"
        "to play, and all parts to save. Arrow keys and buttons change the slide, the space bar pauses and\n"
        "plays. A message without a presentation is shown part by part.\n",
        {
            outputOption("The file to write: .png, .html, or \"-\" for a picture on standard output."),
            forceOption(),
            {"slides", "Only these slides, such as 31-60.", "FROM-TO"},
            {"scale", "Pixels of the picture for each pixel of the layout, 1 to 4; the default is 2.",
             "NUMBER"},
            phoneOption(),
        },
        {"FILE"},
        {},
        render,
    };
}
