// lummms compose: makes a message of any kind from options, texts and files.

#include "tools/lummms/command.h"
#include "tools/lummms/compose/assembly.h"
#include "tools/lummms/compose/draft.h"
#include "tools/lummms/compose/fitting.h"
#include "tools/lummms/compose/header_options.h"
#include "tools/lummms/terminal.h"

namespace {

bool refuse(const QString& subject, const QString& cause) {
    complain(subject, cause);
    return false;
}

/// Slides and attachments are only allowed for a kind with a body.
bool checkBody(const MessageKind& kind, const CommandLine& line) {
    const char* given = !line.groups.isEmpty()         ? "--slide"
                        : line.options.isSet("attach") ? "--attach"
                                                       : nullptr;
    return !given || carries(kind, FIELD_CONTENT_TYPE) ||
           refuse(given, QStringLiteral("an %1 has no body").arg(QLatin1String(kind.name)));
}

/// A message with a body needs a subject or content.
bool checkContent(const MessageKind& kind, const CommandLine& line, const Draft& draft) {
    return !carries(kind, FIELD_CONTENT_TYPE) || !draft.isEmpty() || line.options.isSet("subject") ||
           refuse(QString(),
                  QStringLiteral("nothing to send: neither --slide, --attach nor --subject is given"));
}

/// Encodes the message; makes pictures smaller until it is within the limit.
bool encodeFitting(const CommandLine& line, bool hasBody, qint64 limit, MMS_UA_UAMsg& header, Draft& draft,
                   QByteArray& pdu) {
    const QString path = line.options.value("output");
    for (;;) {
        qint64 octets = draft.size();
        if (octets <= limit) {
            QString cause;
            if (!encodeMessage(header, hasBody ? &draft : nullptr, pdu, cause))
                return refuse(path, cause);
            octets = pdu.size();
        }
        if (octets <= limit)
            return true;
        if (line.options.isSet("keep-pictures") || !makeSmaller(draft, octets - limit)) {
            complainOfSize(path, octets, limit, whyNotSmaller(draft));
            return false;
        }
    }
}

bool composeMessage(const CommandLine& line) {
    qint64 limit = 0;
    Draft draft;
    MMS_UA_UAMsg header;
    QByteArray pdu;
    const QString path = line.options.value("output");
    const QString word = line.options.value("kind");
    const MessageKind* kind = findKind(word);
    if (path.isEmpty())
        return refuse("-o", QStringLiteral("no output file given"));
    if (!kind)
        return refuse("--kind", QStringLiteral("'%1' is none of %2").arg(word, kindWords()));
    const bool hasBody = carries(*kind, FIELD_CONTENT_TYPE);
    if (!checkBody(*kind, line) || !setHeader(*kind, line.options, header) || !readSizeLimit(limit) ||
        !readDraft(line, limit, draft) || !checkContent(*kind, line, draft) ||
        !encodeFitting(line, hasBody, limit, header, draft, pdu) || !writeOutput(line, pdu))
        return false;
    tellChanges(draft);
    if (hasBody && draft.isEmpty())
        complain(path, QStringLiteral("the message has a subject only"));
    return true;
}

int compose(const CommandLine& line) {
    return composeMessage(line) ? EXIT_DONE : EXIT_UNUSABLE;
}

QList<QCommandLineOption> allOptions() {
    const QList<QCommandLineOption> first{
        outputOption("The file to write."),
        forceOption(),
        {"kind", "The kind of message; the default is send-req.", "KIND", "send-req"},
    };
    const QList<QCommandLineOption> last{
        {"slide", "A slide; may be given again.", "DURATION ITEM ..."},
        {"attach", "A file that no slide shows; may be given again.", "FILE"},
        {"keep-pictures", "Makes no picture smaller: a message that is too large is refused."},
    };
    return first + headerOptions() + last;
}

} // namespace

Command composeCommand() {
    return {
        "compose",
        "Makes a message from texts and files, by default one to send (m-send-req).",
        {"-o FILE --to ADDRESS [OPTION ...] [--slide DURATION ITEM ...] ...",
         "-o FILE --kind KIND [OPTION ...]"},
        QStringLiteral("KIND is one of %1.\n").arg(kindWords()) +
            "Fields that the kind does not have are refused, and fields that it must have are required.\n"
            "Only send-req and retrieve-conf have slides and attachments.\n"
            "An ADDRESS with \"@\" is an e-mail address, any other a phone number. A DATE is a date and\n"
            "time in ISO 8601, local time unless it has a zone. A TIME is a number of seconds from now, or\n"
            "a DATE. CLASS, PRIORITY and STATUS may also be numbers from 128 to 255.\n"
            "A slide is shown for DURATION (5 or 5s, 800ms, 1min, indefinite) and holds at most one\n"
            "text, one picture or video and one sound. An ITEM is a file, or text:WORDS.\n"
            "If the message is larger than 300 KB (or than the environment variable LUM_MMS_MAX_SIZE_KB),\n"
            "its pictures are made smaller, the largest first: turned upright, at most 640 x 480 pixels,\n"
            "as JPEG. Animations stay as they are. A message that is still too large is refused.\n",
        allOptions(),
        {},
        "slide",
        compose,
    };
}
