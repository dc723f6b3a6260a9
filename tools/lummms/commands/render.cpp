// lummms render: a message as the phone shows it, in a picture or on a page.

#include "tools/lummms/draw/draw.h"

#include "tools/lummms/command.h"
#include "tools/lummms/draw/slide_view.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace {

constexpr int USUAL_SCALE = 2;
constexpr int LARGEST_SCALE = 4; // with many slides the picture has 24 megapixels then

/// What Qt wants of its surroundings to draw: a locale with UTF-8 and a platform without a display.
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

int render(const CommandLine& line) {
    const QString path = line.files.first();
    const QString output = line.options.value("output");
    const QString kind =
        output == STANDARD_STREAM ? QStringLiteral("png") : QFileInfo(output).suffix().toLower();
    if (kind != u"png" && kind != u"html") {
        complain("-o", output.isEmpty()
                           ? QStringLiteral("the file to write is missing")
                           : QStringLiteral("'%1' ends neither in .png nor in .html").arg(output));
        return EXIT_UNUSABLE;
    }
    bool isNumber = true;
    const int scale =
        line.options.isSet("scale") ? line.options.value("scale").toInt(&isNumber) : USUAL_SCALE;
    if (!isNumber || scale < 1 || scale > LARGEST_SCALE) {
        complain("--scale", QStringLiteral("'%1' is no number from 1 to %2")
                                .arg(line.options.value("scale"))
                                .arg(LARGEST_SCALE));
        return EXIT_UNUSABLE;
    }
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
    if (!message.presentation->getTotalSlidesNum()) {
        if (verdict != EXIT_DONE)
            return verdict;
        complain(path, QStringLiteral("has nothing to draw"));
        return EXIT_UNUSABLE;
    }
    prepareSurroundings();
    char name[] = "lummms";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    int leftOut = 0;
    const int saved =
        save(line, kind == u"png" ? slidesAsPng(message, scale, leftOut) : slidesAsPage(message, leftOut));
    if (saved == EXIT_DONE && leftOut)
        complain(output, QStringLiteral("there was no room for %1").arg(counted(leftOut, "further slide")));
    return saved == EXIT_DONE ? verdict : saved;
}

} // namespace

Command renderCommand() {
    return {
        "render",
        "Draws the slides of a message as the phone shows them.",
        {"FILE -o SLIDES.png [--scale NUMBER] [--phone]", "FILE -o SLIDES.html [--phone]"},
        "A .png has the slides side by side: the region for texts above the one for pictures, marks\n"
        "for sound and video, and the duration below. A .html is one page that plays the slides;\n"
        "arrow keys and buttons step through them, the space bar stops and goes on.\n"
        "A message without a presentation is shown part by part.\n",
        {
            outputOption("The file to write; its ending tells the kind, and \"-\" is a picture."),
            forceOption(),
            {"scale", "Pixels of the picture for a pixel of the phone, 1 to 4 (usually 2).", "NUMBER"},
            phoneOption(),
        },
        {"FILE"},
        {},
        render,
    };
}
