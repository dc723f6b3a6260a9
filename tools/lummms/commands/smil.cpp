// lummms smil: reads a SMIL text, normalises its layout and writes it again.

#include "multipart/body_part.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/command.h"
#include "tools/lummms/media_files.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

namespace {

/// Adds the files of a directory as parts of the body. On failure reports it and returns false.
bool addParts(const QString& directory, MMS_COMP_SMILMultipart& body) {
    const QString base = filePathOf(directory);
    const QDir dir(base);
    if (directory.isEmpty() || !dir.exists() || !dir.isReadable()) {
        complain(directory,
                 dir.exists() ? QStringLiteral("cannot be read") : QStringLiteral("no such directory"));
        return false;
    }
    const QStringList names = dir.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString path = base + u'/' + name; // not QDir::filePath(), which takes ":x" for a resource
        if (!QFileInfo(path).isFile())
            continue; // a link to a pipe or a device
        QArray<char> octets;
        QString cause;
        if (!loadFile(path, octets, cause)) {
            complain(path, cause);
            return false;
        }
        const MediaType type = mediaTypeOf(name, octets);
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentType(type.type);
        part->setContentSubType(type.subType);
        part->setContentLocation(name);
        part->setDispFileName(name);
        part->setBodyData(octets);
        body.appendBodypart(part.release());
    }
    return true;
}

/// Whether anything could be read of a text with an error.
bool holdsAnything(const MMS_COMP_SMILData& presentation) {
    return presentation.getTotalSlidesNum() || presentation.getMetaCount() || presentation.getRegionCount();
}

int smil(const CommandLine& line) {
    const QString path = line.files.first();
    QArray<char> text;
    QString cause;
    if (!loadFile(path, text, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    MMS_COMP_SMILMultipart body;
    const QString parts = line.options.value(QStringLiteral("parts"));
    if (line.options.isSet(QStringLiteral("parts")) && !addParts(parts, body))
        return EXIT_UNUSABLE;
    MMS_COMP_SMILData presentation(&body);
    MMS_COMP_SMILParser parser;
    const int status = parser.parse(text, &body, &presentation);
    if (!status || holdsAnything(presentation)) {
        const QString written = MMS_COMP_SMILParser::convertToSMILLang(&presentation);
        print(printsToTerminal() ? printableLines(written) : written);
    }
    if (status) {
        complain(path, explained(smilStatusWords, "status", status) + placeOfError(parser));
        return EXIT_MALFORMED;
    }
    if (parser.getLastWarning())
        complain(path, explained(smilWarningWords, "warning", parser.getLastWarning()));
    return EXIT_DONE;
}

} // namespace

Command smilCommand() {
    return {
        QStringLiteral("smil"),
        QStringLiteral("Reads a SMIL text, normalises its layout and prints it as the library writes it."),
        {QStringLiteral("FILE [--parts DIR]")},
        QStringLiteral(
            "Media elements without content are left out. The content is the files in DIR, each with\n"
            "its file name as Content-Location. What was left out is reported on standard error; it\n"
            "does not change the exit status.\n"),
        {{QStringLiteral("parts"), QStringLiteral("The directory with the media files."),
          QStringLiteral("DIR")}},
        {QStringLiteral("FILE")},
        QString(),
        smil,
    };
}
